// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/WebView.h"
#include "platform/desktop/webview/engine/PageAddresses.h"

#include <QWebEngineNewWindowRequest>
#include <QWebEnginePage>

namespace zib {

class PageServer;

/// Asks the delegate about what the user does, and refuses what nobody did.
class WebEnginePage : public QWebEnginePage {
    Q_OBJECT

  public:
    WebEnginePage(QWebEngineProfile* profile, const PageServer& server, VideoSite videoSite,
                  WebViewDelegate& delegate);

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    void javaScriptAlert(const QUrl& /*origin*/, const QString& /*message*/) override {}
    bool javaScriptConfirm(const QUrl& /*origin*/, const QString& /*message*/) override { return false; }
    bool javaScriptPrompt(const QUrl& /*origin*/, const QString& /*message*/, const QString& /*proposal*/,
                          QString* /*answer*/) override
    {
        return false;
    }
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                  const QString& source) override;

  private:
    [[nodiscard]] bool showsOwnPage() const;
    bool follow(const QUrl& link);
    void submit(const QUrl& action);
    void openWindow(QWebEngineNewWindowRequest& request);

    const PageServer& server_;
    VideoSite videoSite_;
    WebViewDelegate& delegate_;
};

} // namespace zib
