// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/webview/engine/WebEnginePage.h"

#include "platform/desktop/webview/engine/PageServer.h"

#include <QLoggingCategory>
#include <QPointer>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>

#include <utility>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(logPage, "zib.webview.page", QtWarningMsg)

// The engine does not tell what a form sends, so a script that the page cannot reach keeps it.
const char* const kKeepSubmitted = R"(
    let zibSubmitted = "";
    window.addEventListener("submit", event => {
        zibSubmitted = new URLSearchParams(new FormData(event.target)).toString();
    }, true);
)";

QString text(const QUrl& url)
{
    return QString::fromLatin1(url.toEncoded());
}

} // namespace

WebEnginePage::WebEnginePage(QWebEngineProfile* profile, const PageServer& server, VideoSite videoSite,
                             WebViewDelegate& delegate)
    : QWebEnginePage(profile)
    , server_(server)
    , videoSite_(std::move(videoSite))
    , delegate_(delegate)
{
    QWebEngineScript script;
    script.setSourceCode(QString::fromLatin1(kKeepSubmitted));
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    scripts().insert(script);

    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, QWebEnginePage::Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
    connect(this, &QWebEnginePage::newWindowRequested, this, &WebEnginePage::openWindow);
    connect(this, &QWebEnginePage::linkHovered, this,
            [this](const QString& link) { delegate_.mouseDidMoveOverElement(text(QUrl(link))); });
    connect(this, &QWebEnginePage::renderProcessTerminated, this,
            [](RenderProcessTerminationStatus status, int code) {
                if (status != NormalTerminationStatus)
                    qCWarning(logPage, "the page's process ended with code %d", code);
            });
}

bool WebEnginePage::showsOwnPage() const
{
    return url().scheme() == QLatin1String(kPageScheme);
}

bool WebEnginePage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame)
{
    if (!isMainFrame) {
        if (videoSite_.has(url))
            return delegate_.decidePolicyForNavigationAction(text(url), zib::NavigationType::Other, {}) ==
                   NavigationPolicy::Load;
        // Frames within the video's; the filter knows who asks.
        return isWeb(url);
    }
    if (url.adjusted(QUrl::RemoveFragment) == server_.address())
        return true;
    switch (type) {
    case NavigationTypeTyped:
        return true; // only the program does
    case NavigationTypeLinkClicked:
        return follow(url);
    case NavigationTypeFormSubmitted:
        submit(url);
        return false;
    default:
        return false;
    }
}

bool WebEnginePage::follow(const QUrl& link)
{
    // On a site's own page the site's scripts look like clicks: it has no say in what the program does.
    const bool isOurs = link.scheme() == QLatin1String(kLinkScheme) && showsOwnPage();
    if (!isOurs && !isWeb(link))
        return false;
    return delegate_.decidePolicyForNavigationAction(text(link), zib::NavigationType::LinkClicked, {}) ==
               NavigationPolicy::Load &&
           videoSite_.has(link);
}

void WebEnginePage::submit(const QUrl& action)
{
    if (!showsOwnPage() || action.scheme() != QLatin1String(kLinkScheme))
        return;
    const QPointer<WebEnginePage> self(this);
    runJavaScript(QStringLiteral("zibSubmitted"), QWebEngineScript::ApplicationWorld,
                  [self, action](const QVariant& body) {
                      if (self)
                          self->delegate_.decidePolicyForNavigationAction(
                              text(action), zib::NavigationType::FormSubmitted, body.toString().toUtf8());
                  });
}

void WebEnginePage::openWindow(QWebEngineNewWindowRequest& request)
{
    // Unless it is opened in one, the request ends with this call.
    if (request.isUserInitiated() && isWeb(request.requestedUrl()) && follow(request.requestedUrl()))
        setUrl(request.requestedUrl());
}

void WebEnginePage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message,
                                             int line, const QString& /*source*/)
{
    if (level == ErrorMessageLevel)
        qCInfo(logPage, "line %d: %s", line, qPrintable(message.left(500)));
}

} // namespace zib
