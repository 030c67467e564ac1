// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/RVMainController.h"

#include "controller/MainWindowView.h"
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "platform/TableView.h"

#include <QCoreApplication>

namespace zib {

RVMainController::RVMainController(RVDataManager& dataManager, RVPlayer& player, const WebServices& services,
                                   UserDefaults& defaults, Alerts& alerts, Desktop& desktop, Trash& trash,
                                   TagAPIs& tags, MainWindowView& window)
    : player_(player)
    , notices_(defaults, alerts, desktop)
    , downloads_(dataManager, services, defaults, alerts)
    , removal_({dataManager, downloads_, defaults, trash, alerts, desktop})
    , information_(dataManager, tags, defaults)
    , context_{.dataManager = dataManager,
               .downloads = downloads_,
               .defaults = defaults,
               .window = window,
               .notices = notices_}
    , playback_(context_, player, services.clock)
    , search_(context_, playback_, services)
    , downloading_(context_, playback_, downloads_)
{
    dataManager.setDelegate(this);
    player.setDelegate(&playback_);
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
    if (context_.dataManager.searches().isEmpty())
        showLibrary(FilterType::All);
    else
        showSearch(0);
}

void RVMainController::showLibrary(FilterType filter)
{
    context_.dataManager.setCurrentFilterType(filter);
    context_.dataManager.setSource(SourceType::Library);
    context_.window.reloadSources();
}

void RVMainController::showSearch(int index)
{
    context_.dataManager.setSource(SourceType::RecentSearches);
    context_.dataManager.setCurrentPlaylistIndex(index);
    context_.window.reloadSources();
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

void RVMainController::editInformation()
{
    RVDataManager& library = context_.dataManager;
    QList<Record> songs;
    for (const int row : library.playlistsTableView().selectedRows())
        if (const Record song = library.items().value(row))
            songs.append(song);
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

void RVMainController::connectedToInternetNotification()
{
    connectivityChanged(true);
}

void RVMainController::disconnectedFromInternetNotification()
{
    connectivityChanged(false);
}

void RVMainController::connectivityChanged(bool connected)
{
    context_.connectedToInternet = connected;
    context_.window.setConnected(connected);
    Q_EMIT playback_.trackChanged(); // another song may be the next that can be played
    // Which songs can be played now shows in the rows.
    context_.dataManager.playlistsTableView().reloadData();
}

} // namespace zib
