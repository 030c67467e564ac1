// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/BrowserIndex.h"
#include "library/RVDataManagerDelegate.h"
#include "library/SongColumns.h"
#include "library/SongSorting.h"
#include "library/SongTextFilter.h"
#include "library/SourceTypes.h"
#include "records/Record.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>
#include <string_view>
#include <vector>

namespace zib {

class LibraryView;
struct LibraryContents;
class RecordTable;
class TableView;

/// Which source the song table shows, the artists and albums beside it, and the list of songs that they
/// choose. Main thread.
class TrackBrowser : public QObject {
    Q_OBJECT

  public:
    static constexpr int NotFound = -1;

    /// The collections must outlive the browser; they are the library manager's.
    TrackBrowser(const LibraryContents& contents, const RecordTable& tophot, const RecordTable& recommended,
                 LibraryView& view);

    void setDelegate(RVDataManagerDelegate& delegate) { delegate_ = &delegate; }
    [[nodiscard]] RVDataManagerDelegate& delegate() const { return *delegate_; }

    void setSource(SourceType source);
    [[nodiscard]] SourceType sourceType() const { return source_; }
    [[nodiscard]] FilterType filterType() const { return filter_; }
    void setFilterType(FilterType filter) { filter_ = filter; }

    [[nodiscard]] int playlistIndex() const { return playlistIndex_; }
    /// Shows the playlist or search of that index; does nothing when there is none.
    void setPlaylistIndex(int index);
    /// The playlist or search at playlistIndex() in the current collection, or none.
    [[nodiscard]] Record currentPlaylist() const;

    [[nodiscard]] qint64 uid() const { return uid_; }
    void setUid(qint64 uid) { uid_ = uid; }
    [[nodiscard]] QString name() const { return name_; }
    void setName(const QString& name) { name_ = name; }

    /// Shows of the source's songs only those that hold these words, until another source is shown.
    /// @{
    void setFilterText(const QString& text);
    [[nodiscard]] const QString& filterText() const { return filterText_; }
    /// Something is about to be typed: what that needs is made now, so that no letter has to wait for it.
    void prepareFilterText();
    /// @}

    /// Whether the current collection is a table of records, browsed by artist and album.
    [[nodiscard]] bool hasBrowser() const { return table() != nullptr; }

    /// The browsers' rows; the first stands for all.
    /// @{
    [[nodiscard]] const QStringList& allArtists() const { return allArtists_; }
    [[nodiscard]] const QStringList& allAlbums() const { return allAlbums_; }
    /// @}
    /// The shown records in the table's order, each with its "Index" in the unsorted list. Those of a
    /// playlist are the library's own - but a song that stands there again is a copy, with its own "Index" -
    /// all others are copies.
    [[nodiscard]] const QList<Record>& items() const { return items_; }
    /// Shows these instead.
    void setItems(const QList<Record>& items);
    [[nodiscard]] IndexPath indexPath() const;

    void reloadData();
    /// Fill the artists, the albums, the songs and what depends on them. A playlist or search is only shown
    /// anew.
    /// @{
    void updateArtistsBrowser();
    void updateAlbumsBrowser();
    void updateTracksBrowser();
    /// @}
    /// Puts the replacement, numbered like the old record, into every row that shows one of the old versions,
    /// and shows the rows anew. row: where it is known to stand. Whether any row did.
    bool replaceItems(const QList<Record>& versions, const Record& replacement, int row = NotFound);
    /// Takes those rows, in ascending order, out of the items.
    void removeItems(const QList<int>& rows);
    /// The same as updateTracksBrowser() when all that happened since the items were filled is that the
    /// record was replaced in its place in the shown collection and, as inRow says, in its row. Filling
    /// 100,000 rows anew would be felt.
    void updateTracksBrowser(const Record& old, const Record& replacement, bool inRow);

    /// Selects the name in the artists or the albums, and shows what it chooses. Does nothing when it is not
    /// among them.
    void selectArtist(const QString& name);
    void selectAlbum(const QString& name);
    /// Selects the row that shows the song of that id and scrolls to it.
    void selectSong(std::string_view id);

    void selectionDidChange(const TableView& table);
    void sortDescriptorsDidChange();

  Q_SIGNALS:
    /// The items, or a record among them, have changed.
    void itemsChanged();
    void sourceChanged();

  private:
    [[nodiscard]] const RecordTable* table() const;
    [[nodiscard]] BrowserIndex& index();
    [[nodiscard]] bool passesFilter(const Record& track) const;
    [[nodiscard]] std::optional<QString> chosenArtist() const;
    [[nodiscard]] std::optional<QString> chosenAlbum() const;
    void fillArtists();
    void fillAlbums();
    void fillTracks();
    void fillFromPlaylist(const Record& playlist);
    void fillFromSearch(const Record& search);
    /// Fills the items from the shown source, all of them.
    void fillItems();
    /// Keeps of them those that hold the filter's words.
    void keepMatching();
    void sortItems();
    /// Tells the table which columns the shown source has.
    void showColumns();
    void show();

    const LibraryContents& contents_;
    const RecordTable& tophot_;
    const RecordTable& recommended_;
    LibraryView& view_;
    TableView& artistsTableView_;
    TableView& albumsTableView_;
    TableView& tableView_;
    RVDataManagerDelegate* delegate_ = nullptr;

    TextCollation collation_;
    BrowserIndex libraryIndex_;
    BrowserIndex tophotIndex_;
    BrowserIndex recommendedIndex_;
    SongSorting sorting_;

    SourceType source_ = SourceType::NowPlaying;
    SourceType collection_ = SourceType::NowPlaying; // the last source that has one
    FilterType filter_ = FilterType::All;
    int playlistIndex_ = NotFound;
    qint64 uid_ = 0;
    QString name_;
    QStringList allArtists_;
    QStringList allAlbums_;
    QList<Record> items_;
    QString filterText_;
    SongTextFilter textFilter_; // over the source's songs in the table's order; empty when those have changed
    std::vector<std::uint32_t> places_; // in the library by "Index", while it has not moved them
    std::uint64_t placing_ = 0;
};

} // namespace zib
