// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/webview/WebPane.h"

#include <QEvent>
#include <QLabel>
#include <QLibrary>
#include <QLoggingCategory>
#include <QOpenGLContext>
#include <QUrl>

#include <utility>

// The engine asks for a context that all others share with, which the toolkit would make at every start of
// the program had it to be asked for there.
extern Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);
extern Q_GUI_EXPORT QOpenGLContext* qt_gl_global_share_context();

namespace zib {
namespace {

Q_LOGGING_CATEGORY(logPane, "zib.webview")

constexpr int kDarkBelow = 128;   // of 255
constexpr int kBeforeEngine = 60; // milliseconds, in which a window that has just come up is painted

void shareContexts()
{
    if (qt_gl_global_share_context())
        return;
    // For the rest of the process: the engine's threads use it to the end.
    auto context = std::make_unique<QOpenGLContext>();
    if (context->create())
        qt_gl_set_global_share_context(context.release());
}

} // namespace

WebPane::WebPane(Options options, QWidget* parent)
    : QWidget(parent)
    , options_(std::move(options))
    , gear_(options_.motionReduced, this)
{
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    gear_.hide();
}

WebPane::~WebPane() = default;

bool WebPane::isDark() const
{
    return palette().color(QPalette::Base).lightness() < kDarkBelow;
}

void WebPane::startBrowser()
{
    tried_ = true;
    shareContexts();
    QLibrary library(options_.engine);
    if (auto make = MakePageBrowser(library.resolve(kMakePageBrowser))) {
        browser_.reset(make({this, this, options_.videoSite, options_.motionReduced}));
        place();
        return;
    }
    qCWarning(logPane, "no web engine: %s", qPrintable(library.errorString()));
    auto* label =
        new QLabel(tr("Information about the song cannot be shown: Zib’s web engine is missing."), this);
    label->setObjectName(QStringLiteral("noEngine"));
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->show();
    place();
}

void WebPane::loadHtml(const QByteArray& html, const QByteArray& scriptMark, const QString& baseUrl)
{
    const QString folder = QUrl(baseUrl).adjusted(QUrl::StripTrailingSlash).toLocalFile();
    page_ = BrowserPage{html, scriptMark, folder, isDark()};
    loaded_ = false;
    if (isVisible())
        loadSoon();
}

void WebPane::loadSoon()
{
    // The window is painted before the engine starts, and of several pages at once only the last is loaded.
    if (!loadTimer_.isActive())
        loadTimer_.start(tried_ ? 0 : kBeforeEngine, this);
}

void WebPane::timerEvent(QTimerEvent*)
{
    loadTimer_.stop();
    if (loaded_ || !page_ || !isVisible())
        return;
    loaded_ = true;
    if (!tried_)
        startBrowser();
    if (browser_)
        browser_->load(*page_);
}

void WebPane::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (page_ && !loaded_)
        loadSoon();
}

void WebPane::clear()
{
    page_.reset();
    if (browser_)
        browser_->clear();
}

void WebPane::setBusyGearShown(bool shown)
{
    gear_.setVisible(shown);
    gear_.raise();
}

void WebPane::place()
{
    if (browser_)
        browser_->widget().setGeometry(rect());
    if (auto* label = findChild<QLabel*>(QStringLiteral("noEngine")))
        label->setGeometry(rect());
    gear_.move((width() - gear_.width()) / 2, (height() - gear_.height()) / 2);
    gear_.raise();
}

void WebPane::resizeEvent(QResizeEvent*)
{
    place();
}

void WebPane::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || !page_ || page_->dark == isDark())
        return;
    page_->dark = isDark();
    loaded_ = false;
    if (isVisible())
        loadSoon();
}

NavigationPolicy WebPane::decidePolicyForNavigationAction(const QString& address, NavigationType type,
                                                          const QByteArray& body)
{
    return delegate_ ? delegate_->decidePolicyForNavigationAction(address, type, body)
                     : NavigationPolicy::Refuse;
}

void WebPane::mouseDidMoveOverElement(const QString& link)
{
    if (delegate_)
        delegate_->mouseDidMoveOverElement(link);
}

} // namespace zib
