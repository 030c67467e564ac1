// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SourceTypes.h"
#include "records/Record.h"

#include <QList>
#include <QObject>
#include <QString>

namespace zib {

struct LibraryContents;
class RecordTable;
class TableView;

/// Which source the song table shows, and the list of songs that it shows for it. Main thread.
class TrackBrowser : public QObject {
    Q_OBJECT

  public:
    static constexpr int NotFound = -1;

    /// The collections must outlive the browser; they are the library manager's.
    TrackBrowser(const LibraryContents& contents, const RecordTable& tophot, const RecordTable& recommended,
                 TableView& table);

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

    /// Whether the current collection is a table of records, browsed by artist and album.
    [[nodiscard]] bool hasBrowser() const { return table() != nullptr; }

    /// The shown records, each with its "Index" in the unsorted list. Those of a playlist are the library's
    /// own, all others are copies.
    [[nodiscard]] const QList<Record>& items() const { return items_; }

    void reloadData();
    /// Fills the items from the current table of records. A playlist or search is only shown anew.
    void updateTracksBrowser();
    /// Puts the replacement, numbered like the old record, into every row that shows one of the old versions,
    /// and shows the rows anew. row: where it is known to stand. Whether any row did.
    bool replaceItems(const QList<Record>& versions, const Record& replacement, int row = NotFound);
    /// Takes those rows, in ascending order, out of the items.
    void removeItems(const QList<int>& rows);
    /// The same as updateTracksBrowser() when all that happened since the items were filled is that the
    /// record was replaced in its place in the shown collection and, as inRow says, in its row. Filling
    /// 100,000 rows anew would be felt.
    void updateTracksBrowser(const Record& old, const Record& replacement, bool inRow);

  Q_SIGNALS:
    /// The items, or a record among them, have changed.
    void itemsChanged();
    void sourceChanged();

  private:
    [[nodiscard]] const RecordTable* table() const;
    [[nodiscard]] bool passesFilter(const Record& track) const;
    /// Tells the table which columns the shown source has.
    void showColumns();
    void show();

    const LibraryContents& contents_;
    const RecordTable& tophot_;
    const RecordTable& recommended_;
    TableView& tableView_;

    SourceType source_ = SourceType::NowPlaying;
    SourceType collection_ = SourceType::NowPlaying; // the last source that has one
    FilterType filter_ = FilterType::All;
    int playlistIndex_ = NotFound;
    qint64 uid_ = 0;
    QString name_;
    QList<Record> items_;
};

} // namespace zib
