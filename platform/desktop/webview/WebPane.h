// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/webview/BusyGear.h"
#include "platform/desktop/webview/PageBrowser.h"

#include <QBasicTimer>
#include <QWidget>

#include <memory>
#include <optional>

namespace zib {

/// The pane that shows pages. The engine is the heaviest library of all: it is loaded, and its processes are
/// started, when the first page is seen. When it cannot be loaded, the pane says so. Pages follow the
/// palette's lightness into the dark.
class WebPane : public QWidget, public WebView, private WebViewDelegate {
    Q_OBJECT

  public:
    struct Options {
        QString engine;    ///< path of the library
        QString videoSite; ///< HOST[:PORT] of the only site that may stand in a frame
        bool motionReduced = false;
    };

    explicit WebPane(Options options, QWidget* parent = nullptr);
    ~WebPane() override;

    void setDelegate(WebViewDelegate* delegate) override { delegate_ = delegate; }
    void loadHtml(const QByteArray& html, const QByteArray& scriptMark, const QString& baseUrl) override;
    void clear() override;
    void setBusyGearShown(bool shown) override;
    [[nodiscard]] bool isBusyGearShown() const override { return !gear_.isHidden(); }

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    NavigationPolicy decidePolicyForNavigationAction(const QString& address, NavigationType type,
                                                     const QByteArray& body) override;
    void mouseDidMoveOverElement(const QString& link) override;

    void startBrowser();
    void loadSoon();
    void place();
    [[nodiscard]] bool isDark() const;

    Options options_;
    WebViewDelegate* delegate_ = nullptr;
    std::unique_ptr<PageBrowser> browser_;
    bool tried_ = false;              ///< to load the engine; a second time would fail as well
    std::optional<BrowserPage> page_; ///< the one shown, once loaded_
    bool loaded_ = false;
    QBasicTimer loadTimer_;
    BusyGear gear_;
};

} // namespace zib
