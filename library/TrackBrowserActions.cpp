// SPDX-License-Identifier: GPL-3.0-or-later
// What the user chooses and sorts.
#include "library/TrackBrowser.h"
#include "platform/TableView.h"

#include <QSet>

#include <algorithm>

namespace zib {
namespace {

void selectAndShow(TableView& table, int row)
{
    table.selectRows({row});
    table.scrollRowToVisible(row);
}

} // namespace

void TrackBrowser::selectionDidChange(const TableView& table)
{
    const bool artistChosen = &table == &artistsTableView_;
    if (!artistChosen && &table != &albumsTableView_)
        return;
    tableView_.deselectAll();
    if (artistChosen) {
        selectAndShow(albumsTableView_, 0);
        updateAlbumsBrowser();
    } else {
        updateTracksBrowser();
    }
    tableView_.scrollRowToVisible(0);
}

void TrackBrowser::selectArtist(const QString& name)
{
    const auto row = int(allArtists_.indexOf(name, 1));
    if (row < 0)
        return;
    selectAndShow(artistsTableView_, row);
    selectionDidChange(artistsTableView_);
}

void TrackBrowser::selectAlbum(const QString& name)
{
    const auto row = int(allAlbums_.indexOf(name, 1));
    if (row < 0)
        return;
    selectAndShow(albumsTableView_, row);
    selectionDidChange(albumsTableView_);
}

void TrackBrowser::selectSong(std::string_view id)
{
    const auto found =
        std::ranges::find(items_, id, [](const Record& track) { return track.utf8(keys::Id); });
    if (found != items_.end())
        selectAndShow(tableView_, int(found - items_.begin()));
}

void TrackBrowser::sortDescriptorsDidChange()
{
    // By their "Index", which no two rows share.
    QSet<qint64> selected;
    for (const int row : tableView_.selectedRows())
        selected.insert(items_.value(row).integer(keys::Index));
    textFilter_.clear();
    sortItems();
    const bool plays = delegate_->nowplayingTrack() &&
                       delegate_->nowplayingSourceType() != int(SourceType::Library) &&
                       delegate_->nowplayingPlaylistUID() == uid_;
    if (plays)
        delegate_->setNowplayingPlaylistItems(items_);
    show();
    if (selected.isEmpty())
        return;
    QList<int> rows;
    for (int row = 0; row < items_.size(); ++row)
        if (selected.contains(items_[row].integer(keys::Index)))
            rows.append(row);
    tableView_.selectRows(rows);
}

} // namespace zib
