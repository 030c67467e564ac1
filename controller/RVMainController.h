// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/ControllerContext.h"
#include "controller/DownloadActions.h"
#include "controller/LoveActions.h"
#include "controller/Notices.h"
#include "controller/PlaybackQueue.h"
#include "controller/SearchFlow.h"
#include "controller/SharingFlow.h"
#include "controller/SourceList.h"
#include "library/FileViewController.h"
#include "library/RVDataManagerDelegate.h"
#include "library/SongDownloads.h"
#include "library/SongEditing.h"
#include "library/SongRemoval.h"
#include "library/UndoStack.h"
#include "pages/RVWebViewController.h"
#include "services/PKNetwork.h"

namespace zib {

class Alerts;
class Desktop;
class TagAPIs;
class Trash;

/// The main window's controller: what a control of the window does is one call here. Its parts do the work.
/// It is the delegate of the library manager and the player from its construction on; the connectivity
/// monitor is made with it as delegate. Main thread.
class RVMainController : public RVDataManagerDelegate,
                         public PKNetworkDelegate,
                         private RVWebViewControllerDelegate {
  public:
    /// All of them outlive the controller.
    /// @param pageResources address of the folder of the pages' pictures and scripts, with a slash at its end
    RVMainController(RVDataManager& dataManager, RVPlayer& player, const WebServices& services,
                     UserDefaults& defaults, Alerts& alerts, Desktop& desktop, Trash& trash, TagAPIs& tags,
                     MainWindowView& window, const QString& pageResources, const SharingPorts& sharing);
    ~RVMainController() override;

    /// Fills the window: search type, idle banner, the sources.
    void windowDidLoad();

    [[nodiscard]] RVDataManager& dataManager() { return context_.dataManager; }
    [[nodiscard]] PlaybackQueue& playback() { return playback_; }
    [[nodiscard]] const PlaybackQueue& playback() const { return playback_; }
    [[nodiscard]] LoveActions& loving() { return loving_; }
    [[nodiscard]] SearchFlow& search() { return search_; }
    [[nodiscard]] SourceList& sources() { return sources_; }
    [[nodiscard]] DownloadActions& downloading() { return downloading_; }
    [[nodiscard]] SongEditing& editing() { return editing_; }
    [[nodiscard]] SharingFlow& sharing() { return sharing_; }
    [[nodiscard]] RVWebViewController& webController() { return webController_; }
    [[nodiscard]] Notices& notices() { return notices_; }
    /// What the user can take back.
    [[nodiscard]] UndoStack& undo() { return undo_; }

    /// Shows the library's songs that pass the filter.
    void showLibrary(FilterType filter) { sources_.select({int(SourceType::Library), int(filter)}); }
    /// Shows a recent search; 0 is the newest.
    void showSearch(int index) { sources_.select({int(SourceType::RecentSearches), index}); }
    /// Shows a playlist.
    void showPlaylist(int index) { sources_.select({int(SourceType::Playlists), index}); }

    /// Imports the user's iTunes library, once the user has agreed to it.
    void importITunesLibrary();
    /// Takes the songs that came from it out again.
    void removeITunesItems();

    /// Writes a playlist to a file; its extension tells the format.
    void exportPlaylist(const Record& playlist, const QString& path);

    /// Lets the user edit what is known of the selected songs.
    void editInformation();
    /// Makes a playlist of the selected songs.
    void addPlaylistFromSelectionAction() { sources_.addPlaylistFromSelectionAction(); }
    /// Appends the selected songs to that playlist.
    void addSelectionToPlaylist(int index) { sources_.addSongs(sources_.selectedSongs(), index); }
    /// Adds a playlist that somebody has published, of that identifier, to the user's.
    void openSharedPlaylist(const QString& identifier) override { sharing_.openSharedPlaylist(identifier); }
    /// Removes the selected songs, from the library or the shown playlist.
    void deleteSelectedItems() { removal_.deleteSelectedItems(); }
    /// Removes the songs that could not be opened, once the user has agreed to it.
    void cleanUpBrokenLinks();

    // For the library manager
    [[nodiscard]] Record nowplayingTrack() const override { return playback_.nowplayingTrack(); }
    void setNowplayingTrack(const Record& track) override { playback_.setNowplayingTrack(track); }
    void updateNowplayingTrack(const Record& track) override { playback_.updateNowplayingTrack(track); }
    [[nodiscard]] int nowplayingSourceType() const override { return playback_.nowplayingSourceType(); }
    [[nodiscard]] qint64 nowplayingPlaylistUID() const override { return playback_.nowplayingPlaylistUID(); }
    void setNowplayingPlaylistItems(const QList<Record>& items) override
    {
        playback_.setNowplayingPlaylistItems(items);
    }
    void stop() override { playback_.stop(); }
    void nowplayingPlaylistReordered(const Record& track) override
    {
        playback_.nowplayingPlaylistReordered(track);
    }
    [[nodiscard]] bool connectedToInternet() const override { return context_.connectedToInternet; }
    void updateURLField() override;

    // From the connectivity monitor
    void connectedToInternetNotification() override;
    void disconnectedFromInternetNotification() override;
    void pause() override { playback_.pause(); }

  private:
    // From the pages
    void beginSearchForArtists(const QStringList& artists) override
    {
        search_.beginSearchForArtists(artists);
    }
    void beginSearchForTags(const QStringList& tags) override { search_.beginSearchForTags(tags); }
    void setUrlField(const QString& text) override;

    void songInformationCompleted();
    void playbackStopped();

    RVPlayer& player_;
    Notices notices_;
    UndoStack undo_;
    SongDownloads downloads_;
    SongRemoval removal_;
    FileViewController information_;
    SongEditing editing_;
    RVWebViewController webController_;
    ControllerContext context_;
    PlaybackQueue playback_;
    LoveActions loving_;
    SourceList sources_;
    SearchFlow search_;
    DownloadActions downloading_;
    SharingFlow sharing_;
};

} // namespace zib
