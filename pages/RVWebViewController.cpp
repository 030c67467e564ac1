// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/RVWebViewController.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "services/ServiceHosts.h"

#include <QRandomGenerator>

#include <array>

namespace zib {
namespace {

QByteArray newScriptMark()
{
    std::array<quint32, 4> numbers{};
    QRandomGenerator::system()->generate(numbers.begin(), numbers.end());
    return QByteArray(reinterpret_cast<const char*>(numbers.data()), sizeof numbers).toHex();
}

} // namespace

RVWebViewController::RVWebViewController(WebView& view, const WebServices& services,
                                         UserDefaults& userDefaults, Desktop& desktop, QString resourceFolder)
    : view_(view)
    , services_(services)
    , userDefaults_(userDefaults)
    , desktop_(desktop)
    , resourceFolder_(std::move(resourceFolder))
{
    view_.setDelegate(this);
}

RVWebViewController::~RVWebViewController()
{
    view_.setDelegate(nullptr);
}

int RVWebViewController::currentPage() const
{
    return userDefaults_.integer(settings::SelectedNowPlayingPage);
}

void RVWebViewController::loadCurrentPage()
{
    view_.setBusyGearShown(false);
    switch (const auto page = static_cast<Page>(currentPage())) {
    case Page::Album:
        return loadAlbumPage();
    case Page::Track:
        return loadTrackPage();
    case Page::Images:
        return loadImagesPage();
    case Page::Videos:
    case Page::Blogs:
    case Page::News:
    case Page::Reviews:
        return loadFeedPage(page);
    case Page::Artist:
        break;
    }
    loadArtistPage(false, true);
}

void RVWebViewController::loadArtistPage(bool fullBio, bool animate)
{
    storePage(Page::Artist);
    loadComposed([&](const PageComposer& composer) { return composer.artistPage(fullBio, animate); });
}

void RVWebViewController::loadAlbumPage()
{
    storePage(Page::Album);
    loadComposed([](const PageComposer& composer) { return composer.albumPage(); });
}

void RVWebViewController::loadTrackPage()
{
    storePage(Page::Track);
    loadComposed([](const PageComposer& composer) { return composer.trackPage(); });
}

void RVWebViewController::loadImagesPage()
{
    storePage(Page::Images);
    loadComposed([](const PageComposer& composer) { return composer.imagesPage(); });
    setImageIndex(imageIndex() + imagesPerStep);
}

void RVWebViewController::loadFeedPage(Page page)
{
    storePage(page);
    loadComposed([&](const PageComposer& composer) { return composer.feedPage(page); });
}

void RVWebViewController::loadStoppedPage()
{
    view_.setBusyGearShown(false); // nothing is on its way any more
    loadComposed([](const PageComposer& composer) { return composer.startPage(); });
    resetParameters();
}

void RVWebViewController::loadBusyPage()
{
    if (view_.isBusyGearShown())
        return;
    view_.setBusyGearShown(true);
    loadComposed([](const PageComposer& composer) { return composer.busyPage(); });
}

void RVWebViewController::loadErrorPage(const QString& message)
{
    view_.setBusyGearShown(false);
    loadComposed([&](const PageComposer& composer) { return composer.errorPage(message); });
    resetParameters(); // perhaps the end of whoever owns the message
}

void RVWebViewController::loadWithHTMLString(const QString& html, const QByteArray& scriptMark)
{
    view_.loadHtml(html.toUtf8(), scriptMark, resourceFolder_);
}

void RVWebViewController::storePage(Page page)
{
    userDefaults_.setValue(settings::SelectedNowPlayingPage, int(page));
}

template <typename Compose>
void RVWebViewController::loadComposed(Compose compose)
{
    const QByteArray scriptMark = newScriptMark();
    const PageSurroundings around = surroundings();
    loadWithHTMLString(compose(PageComposer(*this, around, scriptMark)), scriptMark);
}

PageSurroundings RVWebViewController::surroundings() const
{
    const auto home = [this](const QString& hostKey) {
        return QString::fromUtf8(serviceAddress(userDefaults_, hostKey, QStringLiteral("/")));
    };
    return {.resourceFolder = resourceFolder_,
            .musicInfoHome = QLatin1String("http://") + musicInfoWebSite(userDefaults_) + u'/',
            .artistProfileHome = home(settings::SongSearchHost),
            .releaseHome = home(settings::ReleaseHost),
            .lyricsHome = home(settings::LyricsHost)};
}

} // namespace zib
