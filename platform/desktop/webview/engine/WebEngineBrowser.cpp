// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/webview/engine/WebEngineBrowser.h"

#include "platform/desktop/webview/engine/PageHead.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QWebEngineContextMenuRequest>
#include <QWebEngineCookieStore>
#include <QWebEngineDownloadRequest>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

#include <array>
#include <utility>

#include <unistd.h>

namespace zib {
namespace {

constexpr int kCacheBytes = 32 * 1024 * 1024;
/// A cleared pane shows the next page when it is whole, but waits no longer than that for its pictures.
constexpr int kRevealMs = 250;
constexpr int kRepeatedLoads = 3;

/// Whether the processor does a graphics card's work, or nobody does.
bool isWithoutGraphicsCard()
{
    QOpenGLContext* context = QOpenGLContext::globalShareContext();
    QOffscreenSurface surface;
    surface.create();
    if (!context || !context->makeCurrent(&surface))
        return true;
    const auto* name = reinterpret_cast<const char*>(context->functions()->glGetString(GL_RENDERER));
    const QByteArray renderer = QByteArray(name).toLower();
    context->doneCurrent();
    return renderer.contains("llvmpipe") || renderer.contains("softpipe") || renderer.contains("swiftshader");
}

/// Before the first profile, which starts the engine.
void prepareEngine(bool motionReduced)
{
    // An imitated graphics card would put the whole window together anew whenever a corner of it changes.
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND") && isWithoutGraphicsCard())
        qputenv("QT_QUICK_BACKEND", "software");
    // The engine's sandbox refuses to run as root; everybody else has it.
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    // One process draws the pages; a frame of another site has its own.
    QByteArray flags = qgetenv("QTWEBENGINE_CHROMIUM_FLAGS") + " --renderer-process-limit=1";
    if (motionReduced)
        flags += " --force-prefers-reduced-motion";
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", flags);

    QWebEngineUrlScheme pages(kPageScheme);
    pages.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    QWebEngineUrlScheme::registerScheme(pages);
    QWebEngineUrlScheme links(kLinkScheme); // unknown schemes never ask before they fail
    links.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    QWebEngineUrlScheme::registerScheme(links);
}

} // namespace

void PageView::contextMenuEvent(QContextMenuEvent* event)
{
    const QWebEngineContextMenuRequest* request = lastContextMenuRequest();
    QMenu menu(this);
    if (request && !request->selectedText().isEmpty())
        menu.addAction(pageAction(QWebEnginePage::Copy));
    if (request && isWeb(request->linkUrl()))
        menu.addAction(pageAction(QWebEnginePage::CopyLinkToClipboard));
    if (!menu.isEmpty())
        menu.exec(event->globalPos());
}

/// Nothing is behind the program's own links.
class WebEngineBrowser::NoLinks : public QWebEngineUrlSchemeHandler {
  public:
    void requestStarted(QWebEngineUrlRequestJob* job) override
    {
        job->fail(QWebEngineUrlRequestJob::RequestDenied);
    }
};

WebEngineBrowser::WebEngineBrowser(const PageBrowserOptions& options)
    : videoSite_((prepareEngine(options.motionReduced), options.videoSite))
    , filter_(videoSite_, nullptr)
    , noLinks_(std::make_unique<NoLinks>())
    , view_(new PageView(options.parent))
    , page_(std::make_unique<WebEnginePage>(&profile_, server_, videoSite_, *options.delegate))
{
    setUpProfile();
    setUpPage();
    view_->setPage(page_.get());
    view_->setAcceptDrops(false); // files are the window's
    view_->hide();

    reveal_.setSingleShot(true);
    reveal_.setInterval(kRevealMs);
    connect(&reveal_, &QTimer::timeout, view_, &QWidget::show);
    connect(page_.get(), &QWebEnginePage::loadFinished, this, &WebEngineBrowser::loadEnded);
}

WebEngineBrowser::~WebEngineBrowser()
{
    delete view_; // the page must not outlive its profile, nor the view the page
}

void WebEngineBrowser::setUpProfile()
{
    profile_.installUrlSchemeHandler(kPageScheme, &server_);
    profile_.installUrlSchemeHandler(kLinkScheme, noLinks_.get());
    profile_.setUrlRequestInterceptor(&filter_);
    profile_.setHttpCacheType(QWebEngineProfile::MemoryHttpCache);
    profile_.setHttpCacheMaximumSize(kCacheBytes);
    profile_.setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    profile_.setSpellCheckEnabled(false);
    profile_.cookieStore()->setCookieFilter(
        [site = videoSite_](const QWebEngineCookieStore::FilterRequest& request) {
            return site.has(request.origin);
        });
    connect(&profile_, &QWebEngineProfile::downloadRequested, this,
            [](QWebEngineDownloadRequest* download) { download->cancel(); });
}

void WebEngineBrowser::setUpPage()
{
    QWebEngineSettings& settings = *page_->settings();
    using Settings = QWebEngineSettings;
    static constexpr std::array off{
        Settings::JavascriptCanOpenWindows,
        Settings::JavascriptCanAccessClipboard,
        Settings::JavascriptCanPaste,
        Settings::LocalStorageEnabled,
        Settings::LocalContentCanAccessRemoteUrls,
        Settings::LocalContentCanAccessFileUrls,
        Settings::HyperlinkAuditingEnabled,
        Settings::ErrorPageEnabled,
        Settings::PluginsEnabled,
        Settings::ScreenCaptureEnabled,
        Settings::WebGLEnabled,
        Settings::AutoLoadIconsForPage,
        Settings::TouchIconsEnabled,
        Settings::FocusOnNavigationEnabled,
        Settings::AllowRunningInsecureContent,
        Settings::AllowGeolocationOnInsecureOrigins,
        Settings::DnsPrefetchEnabled,
        Settings::PdfViewerEnabled,
        Settings::NavigateOnDropEnabled,
    };
    for (const auto attribute : off)
        settings.setAttribute(attribute, false);
    settings.setAttribute(Settings::LinksIncludedInFocusChain, true);
    settings.setAttribute(Settings::PlaybackRequiresUserGesture, true);
    settings.setUnknownUrlSchemePolicy(Settings::DisallowUnknownUrlSchemes);
}

void WebEngineBrowser::load(const BrowserPage& page)
{
    if (view_->isHidden())
        reveal_.start();
    page_->setBackgroundColor(view_->palette().color(QPalette::Base));
    loadsLeft_ = kRepeatedLoads;
    page_->setUrl(server_.show(boundedPage(page, videoSite_), page.folder, page.dark));
}

void WebEngineBrowser::loadEnded()
{
    if (page_->url() == server_.address()) {
        if (reveal_.isActive())
            view_->show();
        reveal_.stop();
        return;
    }
    // A click in the page before, refused while this one was on its way, has ended its load as well.
    const bool isElsewhere = isWeb(page_->url());
    if (!isElsewhere && !page_->isLoading() && loadsLeft_ > 0) {
        --loadsLeft_;
        page_->setUrl(server_.address());
    }
}

void WebEngineBrowser::clear()
{
    reveal_.stop();
    loadsLeft_ = 0;
    view_->hide();
    server_.forget();
    page_->setUrl(QUrl(QStringLiteral("about:blank")));
}

} // namespace zib

extern "C" Q_DECL_EXPORT zib::PageBrowser* zibMakePageBrowser(const zib::PageBrowserOptions& options)
{
    return new zib::WebEngineBrowser(options);
}
