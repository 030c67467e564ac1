// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/RVMainController.h"

#include "controller/MainWindowView.h"
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "platform/TableView.h"

#include <QCoreApplication>

#include <algorithm>
#include <set>

namespace zib {

namespace {

/// A source list that is shown anew as a whole whenever something in it changes.
class PlainSources : public SourceListing {
  public:
    explicit PlainSources(ControllerContext& context)
        : context_(context)
    {
    }
    int categoryOfSelectedNode() const override { return int(context_.dataManager.currentSourceType()); }
    bool isNodeEnabled(SourceType position) const override { return enabled_.contains(position); }
    void setNodeEnabled(SourceType position, bool enabled) override
    {
        if (enabled)
            enabled_.insert(position);
        else
            enabled_.erase(position);
    }
    void reloadRow(SourceType) override { reloadRows(); }
    void reloadRows() override { context_.window.reloadSources(); }
    void insertNode(SourceType, int, const QString&, const QString&) override { reloadRows(); }
    void removeNode(SourceType, int) override { reloadRows(); }
    void changeItemView() override {}

  private:
    ControllerContext& context_;
    std::set<SourceType> enabled_;
};

} // namespace

RVMainController::RVMainController(RVDataManager& dataManager, RVPlayer& player, const WebServices& services,
                                   UserDefaults& defaults, Alerts& alerts, Desktop& desktop, Trash& trash,
                                   TagAPIs& tags, MainWindowView& window)
    : player_(player)
    , notices_(defaults, alerts, desktop)
    , downloads_(dataManager, services, defaults, alerts)
    , removal_({dataManager, downloads_, defaults, trash, alerts, desktop})
    , information_(dataManager, tags, defaults)
    , editing_(dataManager, tags, defaults, alerts)
    , context_{.dataManager = dataManager,
               .downloads = downloads_,
               .defaults = defaults,
               .window = window,
               .notices = notices_}
    , playback_(context_, player, services)
    , sources_(std::make_unique<PlainSources>(context_))
    , search_(context_, playback_, *sources_, services)
    , downloading_(context_, playback_, downloads_)
{
    dataManager.setDelegate(this);
    player.setDelegate(&playback_);
    QObject::connect(&playback_, &PlaybackQueue::songInformationCompleted, &playback_, [this] {
        if (sources_->categoryOfSelectedNode() == int(SourceType::NowPlaying))
            sources_->changeItemView();
    });
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

void RVMainController::showPlaylist(int index)
{
    context_.dataManager.setSource(SourceType::Playlists);
    context_.dataManager.setCurrentPlaylistIndex(index);
    context_.window.reloadSources();
}

QList<Record> RVMainController::selectedSongs() const
{
    QList<Record> songs;
    for (const int row : context_.dataManager.playlistsTableView().selectedRows())
        if (const Record song = context_.dataManager.items().value(row))
            songs.append(song);
    return songs;
}

void RVMainController::addPlaylistFromSelectionAction()
{
    const QList<Record> songs = selectedSongs();
    if (songs.isEmpty())
        return;
    const QString artist = songs.first().string(keys::Artist);
    const bool oneArtist = !artist.isEmpty() && std::ranges::all_of(songs, [&artist](const Record& song) {
        return song.string(keys::Artist) == artist;
    });
    context_.dataManager.addPlaylistWithTitle(
        oneArtist ? artist : QCoreApplication::translate("RVMainController", "Untitled playlist"), songs, 0);
    context_.window.reloadSources();
}

void RVMainController::addSelectionToPlaylist(int index)
{
    RVDataManager& library = context_.dataManager;
    library.addObjects(selectedSongs(), index);
    if (library.currentSourceType() == SourceType::Playlists && library.currentPlaylistIndex() == index)
        library.setCurrentPlaylistIndex(index);
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
    const QList<Record> songs = selectedSongs();
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
    search_.connectedToInternetNotification();
    Q_EMIT playback_.trackChanged(); // another song may be the next that can be played
}

void RVMainController::disconnectedFromInternetNotification()
{
    search_.disconnectedFromInternetNotification();
    Q_EMIT playback_.trackChanged();
}

} // namespace zib
