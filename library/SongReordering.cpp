// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/SongReordering.h"

#include "library/RVDataManager.h"
#include "platform/TableView.h"
#include "records/PropertyValue.h"

#include <QMimeData>
#include <QStringList>

#include <algorithm>
#include <numeric>

namespace zib {

const QString SongReordering::tableViewDataType = QStringLiteral("TableViewDataType");

void SongReordering::writeRowsWithIndexes(const QList<int>& rows, QMimeData& toPasteboard)
{
    QByteArrayList numbers;
    for (const int row : rows)
        numbers.append(QByteArray::number(row));
    toPasteboard.setData(tableViewDataType, numbers.join(','));
}

QList<int> SongReordering::rows(const QMimeData& pasteboard) const
{
    QList<int> result;
    const QByteArrayList numbers = pasteboard.data(tableViewDataType).split(',');
    for (const QByteArray& number : numbers) {
        bool isNumber = false;
        const int row = number.toInt(&isNumber);
        if (isNumber && row >= 0 && row < library_.items().size())
            result.append(row);
    }
    std::ranges::sort(result);
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

std::optional<int> SongReordering::validateDrop(const QMimeData& pasteboard, int proposedRow) const
{
    const QList<SortDescriptor> order = library_.playlistsTableView().sortDescriptors();
    const bool inPlaylistOrder =
        !order.isEmpty() && order.first() == SortDescriptor{identifierOf(SongColumn::Index), true};
    const bool allShown = library_.browser().filterText().isEmpty();
    if (library_.currentSourceType() != SourceType::Playlists || !inPlaylistOrder || !allShown ||
        !pasteboard.hasFormat(tableViewDataType) || proposedRow < 0 || proposedRow > library_.items().size())
        return std::nullopt;
    return proposedRow;
}

bool SongReordering::isNowplayingPlaylist() const
{
    const RVDataManagerDelegate& delegate = library_.browser().delegate();
    return delegate.nowplayingTrack() && delegate.nowplayingSourceType() == int(SourceType::Playlists) &&
           delegate.nowplayingPlaylistUID() == library_.currentUID();
}

bool SongReordering::acceptDrop(const QMimeData& pasteboard, int row)
{
    const QList<int> moved = rows(pasteboard);
    Record playlist = library_.currentPlaylist();
    if (moved.isEmpty() || !playlist || !validateDrop(pasteboard, row))
        return false;
    QList<Record> order = library_.items();
    QList<Record> dragged;
    for (const int from : moved)
        dragged.append(order[from]);
    library_.addUnknownToLibrary(dragged);
    for (const int from : moved)
        order[from] = Record();
    order.removeIf([](const Record& track) { return track.isNull(); });
    const auto above = std::ranges::count_if(moved, [row](int from) { return from < row; });
    const qsizetype place = row - above;
    for (qsizetype number = 0; number < dragged.size(); ++number)
        order.insert(place + number, dragged[number]);

    RVDataManagerDelegate& delegate = library_.browser().delegate();
    Record playing;
    if (isNowplayingPlaylist()) {
        const qint64 index = delegate.nowplayingTrack().integer(keys::Index);
        for (const Record& track : order)
            if (track.integer(keys::Index) == index)
                playing = track;
    }
    QStringList ids;
    for (Record& track : order) {
        track.set(keys::Index, ids.size());
        ids.append(track.string(keys::Id));
    }
    playlist.set(keys::Tracks, ids);
    library_.browser().setItems(order);
    QList<int> selection(moved.size());
    std::iota(selection.begin(), selection.end(), int(place));
    library_.playlistsTableView().selectRows(selection);
    if (playing)
        delegate.nowplayingPlaylistReordered(playing);
    library_.saveLibrary();
    return true;
}

} // namespace zib
