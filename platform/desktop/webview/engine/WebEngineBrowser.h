// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/webview/PageBrowser.h"
#include "platform/desktop/webview/engine/PageAddresses.h"
#include "platform/desktop/webview/engine/PageFilter.h"
#include "platform/desktop/webview/engine/PageServer.h"
#include "platform/desktop/webview/engine/WebEnginePage.h"

#include <QPointer>
#include <QTimer>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include <memory>

namespace zib {

/// The widget that paints, with a menu that only copies.
class PageView : public QWebEngineView {
    Q_OBJECT

  public:
    using QWebEngineView::QWebEngineView;

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
};

/// Qt WebEngine with everything off that a page about a song does not need. It leaves nothing on the disk:
/// the profile is off the record, its cache is in memory and bounded.
class WebEngineBrowser : public QObject, public PageBrowser {
    Q_OBJECT

  public:
    explicit WebEngineBrowser(const PageBrowserOptions& options);
    ~WebEngineBrowser() override;

    [[nodiscard]] QWidget& widget() override { return *view_; }
    void load(const BrowserPage& page) override;
    void clear() override;

  private:
    void setUpProfile();
    void setUpPage();
    void loadEnded();

    VideoSite videoSite_;
    PageServer server_;
    PageFilter filter_;
    class NoLinks;
    std::unique_ptr<NoLinks> noLinks_;
    QWebEngineProfile profile_; ///< off the record because it has no name
    QPointer<PageView> view_;   ///< its parent's
    std::unique_ptr<WebEnginePage> page_;
    QTimer reveal_;
    int loadsLeft_ = 0; ///< of the page, should its load be cut off
};

} // namespace zib
