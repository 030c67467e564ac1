// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/RVMainController.h"

#include "controller/MainWindowView.h"
#include "library/RVDataManager.h"
#include "library/playlists/PlaylistExport.h"
#include "platform/SettingsKeys.h"
#include "platform/TableView.h"
#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>

namespace zib {

RVMainController::RVMainController(RVDataManager& dataManager, RVPlayer& player, const WebServices& services,
                                   UserDefaults& defaults, Alerts& alerts, Desktop& desktop, Trash& trash,
                                   TagAPIs& tags, MainWindowView& window, const QString& pageResources,
                                   const SharingPorts& sharing)
    : player_(player)
    , notices_(defaults, alerts, desktop)
    , undo_(defaults)
    , downloads_(dataManager, services, defaults, alerts)
    , removal_({dataManager, downloads_, defaults, trash, alerts, desktop, undo_})
    , information_(dataManager, tags, defaults)
    , editing_(dataManager, tags, defaults, alerts)
    , webController_(window.webView(), services, defaults, desktop, pageResources)
    , context_{.dataManager = dataManager,
               .downloads = downloads_,
               .defaults = defaults,
               .window = window,
               .notices = notices_,
               .pages = webController_,
               .undo = undo_}
    , playback_(context_, player, services)
    , loving_(context_, playback_)
    , sources_(context_, playback_, window.outlineView())
    , search_(context_, playback_, sources_, services)
    , downloading_(context_, playback_, downloads_)
    , sharing_(context_, sources_, services, desktop, sharing)
{
    dataManager.setDelegate(this);
    player.setDelegate(&playback_);
    webController_.setDelegate(this);
    QObject::connect(&playback_, &PlaybackQueue::songInformationCompleted, &playback_,
                     [this] { songInformationCompleted(); });
    QObject::connect(&playback_, &PlaybackQueue::stopped, &playback_, [this] { playbackStopped(); });
}

void RVMainController::setUrlField(const QString& text)
{
    context_.window.setUrlFieldText(text);
}

/// The pages are about that song from now on.
void RVMainController::songInformationCompleted()
{
    const RVSongInfoDownloader& song = *playback_.songInformation();
    webController_.resetParameters();
    webController_.setArtwork(song.artworkLarge());
    webController_.setTrack_wiki(song.wiki());
    webController_.setArtist(song.artist());
    webController_.setAlbum(song.album());
    webController_.setTrack(song.name());
    webController_.setTrack_tags(song.tags());
    webController_.setMbid(song.mbid());
    if (sources_.categoryOfSelectedNode() == int(SourceType::NowPlaying))
        sources_.changeItemView();
}

/// A page that is being read stays.
void RVMainController::playbackStopped()
{
    if (sources_.categoryOfSelectedNode() != int(SourceType::NowPlaying))
        webController_.loadStoppedPage();
}

RVMainController::~RVMainController()
{
    player_.stop();
    player_.setDelegate(nullptr);
    context_.dataManager.setDelegate(nullptr);
}

void RVMainController::windowDidLoad()
{
    search_.showSearchType();
    playback_.stop();
    sources_.populateOutlineContents();
}

void RVMainController::importITunesLibrary()
{
    const int button = notices_.runSuppressibleConfirmation(
        QCoreApplication::translate("RVMainController",
                                    "You are about to import your iTunes music library. Songs will be added "
                                    "by reference. No songs will be duplicated on disk."),
        settings::SupressDialogITunes);
    if (button == 0)
        context_.dataManager.mergeLibraryWithITunesLibrary();
}

void RVMainController::removeITunesItems()
{
    context_.dataManager.removeITunesItemsFromLibrary();
}

void RVMainController::exportPlaylist(const Record& playlist, const QString& path)
{
    const auto exported = zib::exportPlaylist(context_.dataManager, context_.defaults, playlist, path);
    if (!exported)
        notices_.runErrorAlert(
            QCoreApplication::translate("RVMainController", "The playlist could not be exported."),
            exported.error());
}

void RVMainController::editInformation()
{
    const QList<Record> songs = sources_.selectedSongs();
    if (songs.isEmpty())
        return;
    const QString question = QCoreApplication::translate(
        "RVMainController", "Are you sure you want to edit information for multiple items?");
    const QString edit = QCoreApplication::translate("RVMainController", "Edit");
    if (songs.size() > 1 && !notices_.runConfirmation(question, {}, edit))
        return;
    information_.open(songs);
    const auto fields = context_.window.editInformation(information_);
    const QStringList failures = fields ? information_.save(*fields) : QStringList();
    constexpr qsizetype mostShown = 5; // an alert has to hold them
    if (!failures.isEmpty())
        notices_.runErrorAlert(
            QCoreApplication::translate("RVMainController", "Not all songs could be changed."),
            failures.mid(0, mostShown).join(QLatin1Char('\n')));
}

void RVMainController::cleanUpBrokenLinks()
{
    const QString warning = QCoreApplication::translate(
        "RVMainController",
        "You are about to remove all songs with broken links from your music library and playlists.");
    if (notices_.runSuppressibleConfirmation(warning, settings::SupressDialogCleanUp) == 0)
        removal_.removeBrokenLinks();
}

/// How many songs are shown, and how long they play.
void RVMainController::updateURLField()
{
    if (sources_.categoryOfSelectedNode() == int(SourceType::NowPlaying))
        return;
    const QList<Record>& songs = context_.dataManager.items();
    qint64 seconds = 0;
    for (const Record& song : songs)
        seconds += song.integer(keys::Duration);
    QString text = QCoreApplication::translate("RVMainController", "%Ln songs", nullptr, int(songs.size()));
    if (seconds > 0)
        text += QStringLiteral(", ") + timeString(seconds);
    context_.window.setUrlFieldText(text);
}

void RVMainController::connectedToInternetNotification()
{
    search_.connectedToInternetNotification();
    Q_EMIT playback_.trackChanged(); // another song may be the next that can be played
}

void RVMainController::disconnectedFromInternetNotification()
{
    search_.disconnectedFromInternetNotification();
    Q_EMIT playback_.trackChanged();
}

} // namespace zib
