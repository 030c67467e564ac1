// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/LibraryFile.h"
#include "library/LibraryLoading.h"
#include "library/RVDataManagerDelegate.h"
#include "library/SourceTypes.h"
#include "library/TrackBrowser.h"
#include "platform/LibraryView.h"
#include "records/Record.h"
#include "records/RecordTable.h"

#include <QList>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace zib {

class Alerts;
class Clock;
class ITunesImporter;
class LibrarySaver;
class TableView;
class UserDefaults;

/// The library manager: owns every collection of songs, loads them from the library file when it is made and
/// writes them back after every change. Main thread.
class RVDataManager : public QObject {
    Q_OBJECT

  public:
    /// No playlist, no search: the value of currentPlaylistIndex() that shows nothing.
    static constexpr int NotFound = TrackBrowser::NotFound;

    using Change = std::function<void(Record&)>;

    /// Takes the loaded library, or loads the one at that path. A missing file gives an empty library, an
    /// unreadable one too, after an alert; both are written at once.
    RVDataManager(UserDefaults& defaults, Alerts& alerts, const Clock& clock, LibraryView& view,
                  LibraryLoading loading);
    /// Waits for a save under way.
    ~RVDataManager() override;

    void setDelegate(RVDataManagerDelegate* delegate);
    [[nodiscard]] RVDataManagerDelegate& delegate() const { return *delegate_; }

    /// The collections. Whoever changes one calls saveLibrary(), and reloadData() when it is shown.
    /// @{
    [[nodiscard]] RecordTable& library() { return contents_.library; }
    [[nodiscard]] const RecordTable& library() const { return contents_.library; }
    [[nodiscard]] QList<Record>& playlists() { return contents_.playlists; }
    [[nodiscard]] const QList<Record>& playlists() const { return contents_.playlists; }
    /// Newest first.
    [[nodiscard]] QList<Record>& searches() { return contents_.searches; }
    [[nodiscard]] const QList<Record>& searches() const { return contents_.searches; }
    [[nodiscard]] Record userInfo() const { return contents_.userInfo; }
    /// Not kept from run to run.
    [[nodiscard]] RecordTable& tophot() { return tophot_; }
    [[nodiscard]] RecordTable& recommended() { return recommended_; }
    /// @}

    /// The songs listed now, in the table's order.
    [[nodiscard]] const QList<Record>& items() const { return browser_.items(); }
    [[nodiscard]] const QStringList& allArtists() const { return browser_.allArtists(); }
    [[nodiscard]] const QStringList& allAlbums() const { return browser_.allAlbums(); }
    /// The three tables: what the user selects and sorts in them is told to the browser.
    /// @{
    [[nodiscard]] TableView& artistsTableView() { return view_.artistsTableView(); }
    [[nodiscard]] TableView& albumsTableView() { return view_.albumsTableView(); }
    [[nodiscard]] TableView& playlistsTableView() { return view_.playlistsTableView(); }
    [[nodiscard]] TrackBrowser& browser() { return browser_; }
    [[nodiscard]] const TrackBrowser& browser() const { return browser_; }
    /// @}
    [[nodiscard]] IndexPath currentIndexPath() const { return browser_.indexPath(); }

    /// Freezes all collections and writes them in the background. Costs little whatever their size.
    void saveLibrary();
    /// Returns once the newest saved state is on disk or has failed.
    void waitForSaves();

    /// kind 0: a new playlist of those tracks at the end, and the tracks into the library. Any other kind: a
    /// new search at the front.
    void addPlaylistWithTitle(const QString& title, const QList<Record>& tracks, int kind);
    /// The same with a playlist's place; a search goes to the front all the same.
    void insertPlaylistAtIndex(int index, const QString& title, const QList<Record>& tracks, int kind);
    /// The given record and every other record of that song that is kept, shown or playing. For transient
    /// keys: what lasts is changed by replacing records.
    [[nodiscard]] QList<Record> holdersOf(const Record& track) const;
    [[nodiscard]] bool isNowplaying(const Record& track) const;

    /// Adds those tracks to the library that it has not. Does not save.
    void addUnknownToLibrary(const QList<Record>& tracks);
    /// Appends the tracks to the playlist of that index; a song may stand in it twice.
    void addObjects(const QList<Record>& tracks, int toPlaylist);

    /// The loved songs of the library, in its order.
    [[nodiscard]] QList<Record> favorites() const;
    /// Loves the song in that row of items(), or loves it no more.
    void markFavoriteAtIndex(int row);
    /// The same for the song now playing: leaves "Recommended" and the now-playing snapshot as they are.
    void addFavorite(const Record& track);

    /// The song can be opened again; returns its new record.
    Record fileRefound(const Record& track);
    /// The song could not be opened. While the machine is offline that says nothing about a web song.
    void fileNotFound(const Record& track);
    /// The song was edited: its new record replaces the old one wherever that is held, and stands in the
    /// library from now on. The browsers are not filled anew, and nothing is saved.
    void storeEdited(const Record& track, const Change& change);
    /// The song's download is complete.
    void exportedFile(const Record& track);

    /// The name under which playlists are shared.
    [[nodiscard]] QString userName() const;
    void setUserName(const QString& name);

    /// Imports the songs of the user's iTunes library, or takes them out again: see ITunesImporter.
    /// @{
    [[nodiscard]] QString iTunesLibraryPath() const;
    void mergeLibraryWithITunesLibrary();
    void removeITunesItemsFromLibrary();
    /// To follow an import, and to stop it.
    [[nodiscard]] ITunesImporter& iTunesImporter() { return *iTunesImporter_; }
    /// @}

    /// Removes every setting whose name ends with that text: a search's or playlist's column layout.
    void removeAutosaveForTableColumnWithUID(const QString& uid);

    /// The bundled song service has moved: addresses that begin with oldBase begin with newBase from now on,
    /// in the library and in the searches, and the library is written if there were any.
    void relocate(const QString& oldBase, const QString& newBase);

    /// Shows a source. For playlists and searches, setCurrentPlaylistIndex() then chooses which.
    void setSource(SourceType source) { browser_.setSource(source); }
    [[nodiscard]] SourceType currentSourceType() const { return browser_.sourceType(); }
    [[nodiscard]] FilterType currentFilterType() const { return browser_.filterType(); }
    /// Takes effect at the next reload.
    void setCurrentFilterType(FilterType filter) { browser_.setFilterType(filter); }
    [[nodiscard]] int currentPlaylistIndex() const { return browser_.playlistIndex(); }
    /// Shows the playlist or search of that index, also when it is the one shown already.
    void setCurrentPlaylistIndex(int index) { browser_.setPlaylistIndex(index); }
    [[nodiscard]] qint64 currentUID() const { return browser_.uid(); }
    void setCurrentUID(qint64 uid) { browser_.setUid(uid); }
    [[nodiscard]] QString currentName() const { return browser_.name(); }
    void setCurrentName(const QString& name) { browser_.setName(name); }
    /// The shown playlist or search, or none.
    [[nodiscard]] Record currentPlaylist() const { return browser_.currentPlaylist(); }
    /// Whether the shown source is browsed by artist and album.
    [[nodiscard]] bool sourceHasBrowser() const { return browser_.hasBrowser(); }
    /// Whether the next song follows by itself in a source of that type.
    [[nodiscard]] static bool sourceIsContinuos(SourceType source)
    {
        return source == SourceType::Library || source == SourceType::Playlists;
    }

    void reloadData() { browser_.reloadData(); }
    void updateArtistsBrowser() { browser_.updateArtistsBrowser(); }
    void updateAlbumsBrowser() { browser_.updateAlbumsBrowser(); }
    void updateTracksBrowser() { browser_.updateTracksBrowser(); }
    /// Takes rows out of what is shown. Their songs stay where they are.
    void removeItems(const QList<int>& rows) { browser_.removeItems(rows); }

  Q_SIGNALS:
    /// items() was filled anew, or a record in it was replaced.
    void itemsChanged();
    /// What is shown has changed: source, playlist or search.
    void sourceChanged();

  private:
    /// A changed record, and the versions of it that are to give way.
    struct Replacement {
        QList<Record> versions;
        Record record;
    };

    void takeLibrary(LibraryLoading& loading);
    Record makePlaylist(const QString& title, int kind) const;
    [[nodiscard]] Replacement changed(const Record& track, const Change& change) const;
    [[nodiscard]] Replacement favoriteToggled(const Record& track) const;
    /// The record with the change, replacing the given one wherever it is held.
    Record replaceRecord(const Record& track, const Change& change);
    void replaceInSearches(const Replacement& replacement);
    /// Whether the table held a record of that id.
    static bool replaceIn(RecordTable& table, const Record& record);
    void updateNowplaying(const Record& replacement);

    UserDefaults& defaults_;
    Alerts& alerts_;
    const Clock& clock_;
    LibraryView& view_;
    RVDataManagerDelegate* delegate_;
    std::unique_ptr<LibrarySaver> saver_;
    LibraryContents contents_;
    RecordTable tophot_;
    RecordTable recommended_;
    TrackBrowser browser_;
    std::unique_ptr<ITunesImporter> iTunesImporter_;
};

} // namespace zib
