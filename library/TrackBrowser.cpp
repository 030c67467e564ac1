// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/TrackBrowser.h"

#include "library/LibraryFile.h"
#include "platform/LibraryView.h"
#include "platform/TableView.h"
#include "records/PropertyValue.h"

#include <algorithm>

namespace zib {
namespace {

/// The name in the table's selected row; none for the row that stands for all.
std::optional<QString> chosenName(const TableView& table, const QStringList& rows)
{
    const int row = table.selectedRow();
    return row > 0 && row < rows.size() ? std::optional(rows[row]) : std::nullopt;
}

Record numbered(const Record& track, qsizetype index)
{
    Record copy = track.copy();
    copy.set(keys::Index, index);
    return copy;
}

/// Empties a long list faster than its destructor would.
void releaseRows(QList<Record>& rows)
{
    constexpr qsizetype ahead = 16;
    if (rows.isDetached())
        for (qsizetype row = 0; row < rows.size(); ++row) {
            if (row + ahead < rows.size())
                rows[row + ahead].content().prefetch();
            rows[row] = Record();
        }
    rows.clear();
}

/// Something is always chosen, if only all.
void reloadBrowser(TableView& table)
{
    table.reloadData();
    if (table.selectedRow() < 0)
        table.selectRows({0});
}

} // namespace

TrackBrowser::TrackBrowser(const LibraryContents& contents, const RecordTable& tophot,
                           const RecordTable& recommended, LibraryView& view)
    : contents_(contents)
    , tophot_(tophot)
    , recommended_(recommended)
    , view_(view)
    , artistsTableView_(view.artistsTableView())
    , albumsTableView_(view.albumsTableView())
    , tableView_(view.playlistsTableView())
    , libraryIndex_(contents.library, collation_)
    , tophotIndex_(tophot, collation_)
    , recommendedIndex_(recommended, collation_)
    , sorting_(collation_, contents.library, libraryIndex_)
{
}

const RecordTable* TrackBrowser::table() const
{
    switch (collection_) {
    case SourceType::TopHot:
        return &tophot_;
    case SourceType::Recommended:
        return &recommended_;
    case SourceType::Library:
        return &contents_.library;
    default:
        return nullptr;
    }
}

BrowserIndex& TrackBrowser::index()
{
    switch (collection_) {
    case SourceType::TopHot:
        return tophotIndex_;
    case SourceType::Recommended:
        return recommendedIndex_;
    default:
        return libraryIndex_;
    }
}

void TrackBrowser::setSource(SourceType source)
{
    switch (source) {
    case SourceType::Playlists:
    case SourceType::RecentSearches:
    case SourceType::TopHot:
    case SourceType::Recommended:
    case SourceType::Library:
        collection_ = source;
        break;
    case SourceType::NowPlaying:
        break; // shows pages; the song list stays as it was
    }
    source_ = source;
    filterText_.clear();
    view_.setBrowsersShown(hasBrowser());
    if (hasBrowser()) {
        uid_ = static_cast<int>(source);
        tableView_.setAutosaveName(QString::number(uid_));
        updateArtistsBrowser();
    }
    showColumns();
    Q_EMIT sourceChanged();
}

void TrackBrowser::showColumns()
{
    const bool ownSongs = source_ == SourceType::Library || source_ == SourceType::Playlists;
    for (const SongColumn column : {SongColumn::PlayCount, SongColumn::PlayDate})
        tableView_.setColumnAvailable(identifierOf(column), ownSongs);
    for (const SongColumn column : {SongColumn::Hotness, SongColumn::Familiarity, SongColumn::FoundDate})
        tableView_.setColumnAvailable(identifierOf(column), !ownSongs);
    tableView_.setColumnAvailable(identifierOf(SongColumn::Index), !hasBrowser());
}

Record TrackBrowser::currentPlaylist() const
{
    const QList<Record>* lists = nullptr;
    if (collection_ == SourceType::Playlists)
        lists = &contents_.playlists;
    else if (collection_ == SourceType::RecentSearches)
        lists = &contents_.searches;
    return lists != nullptr ? lists->value(playlistIndex_) : Record();
}

void TrackBrowser::setPlaylistIndex(int index)
{
    playlistIndex_ = index;
    const Record playlist = currentPlaylist();
    if (playlist.isNull())
        return;
    uid_ = playlist.integer(keys::Id);
    name_ = playlist.string(keys::Name);
    filterText_.clear();
    textFilter_.clear();
    fillItems();
    tableView_.setAutosaveName(QString::number(uid_));
    if (tableView_.sortDescriptors().isEmpty())
        tableView_.setSortDescriptors({{identifierOf(SongColumn::Index), true}});
    sortItems();
    tableView_.removeSubviews();
    tableView_.reloadData();
    tableView_.scrollRowToVisible(0);
    tableView_.deselectAll();
    Q_EMIT itemsChanged();
    Q_EMIT sourceChanged();
}

void TrackBrowser::fillFromPlaylist(const Record& playlist)
{
    items_.clear();
    const QStringList ids = playlist.strings(keys::Tracks);
    for (const QString& id : ids) {
        Record track = contents_.library.find(id);
        if (!track)
            continue;
        const qsizetype before = track.contains(keys::Index) ? track.integer(keys::Index) : NotFound;
        const bool again = before >= 0 && before < items_.size() && items_[before].isSame(track);
        if (again)
            track = track.copy();
        track.set(keys::Index, items_.size());
        items_.append(track);
    }
}

void TrackBrowser::fillFromSearch(const Record& search)
{
    items_.clear();
    const QList<Record> tracks = search.records(keys::Tracks);
    for (const Record& track : tracks)
        items_.append(numbered(track, items_.size()));
}

bool TrackBrowser::passesFilter(const Record& track) const
{
    switch (filter_) {
    case FilterType::All:
        return true;
    case FilterType::Downloads:
        return track.boolean(keys::Downloaded);
    case FilterType::Imported:
        return track.utf8(keys::Location).starts_with("file://");
    case FilterType::Favorites:
        return track.boolean(keys::Favorite);
    }
    return true;
}

std::optional<QString> TrackBrowser::chosenArtist() const
{
    return chosenName(artistsTableView_, allArtists_);
}

std::optional<QString> TrackBrowser::chosenAlbum() const
{
    return chosenName(albumsTableView_, allAlbums_);
}

IndexPath TrackBrowser::indexPath() const
{
    return {artistsTableView_.selectedRow(), albumsTableView_.selectedRow(), tableView_.selectedRow()};
}

void TrackBrowser::reloadData()
{
    if (hasBrowser())
        updateArtistsBrowser();
    else
        tableView_.reloadData();
}

void TrackBrowser::updateArtistsBrowser()
{
    if (hasBrowser()) {
        index().refresh();
        fillArtists();
        fillAlbums();
        fillTracks();
    }
    show();
}

void TrackBrowser::updateAlbumsBrowser()
{
    if (hasBrowser()) {
        index().refresh();
        fillAlbums();
        fillTracks();
    }
    show();
}

void TrackBrowser::updateTracksBrowser()
{
    if (hasBrowser()) {
        index().refresh();
        fillTracks();
    }
    show();
}

void TrackBrowser::fillArtists()
{
    allArtists_ = index().artists(filter_);
    allArtists_.prepend(
        tr("All (%1 %2)").arg(allArtists_.size()).arg(tr("Artists", nullptr, int(allArtists_.size()))));
    reloadBrowser(artistsTableView_);
}

void TrackBrowser::fillAlbums()
{
    allAlbums_ = index().albums(filter_, chosenArtist());
    allAlbums_.prepend(
        tr("All (%1 %2)").arg(allAlbums_.size()).arg(tr("Albums", nullptr, int(allAlbums_.size()))));
    reloadBrowser(albumsTableView_);
}

void TrackBrowser::fillTracks()
{
    textFilter_.clear();
    fillItems();
    sortItems();
    keepMatching();
}

void TrackBrowser::fillItems()
{
    if (hasBrowser()) {
        releaseRows(items_);
        places_.clear();
        placing_ = index().placing();
        items_ = index().tracks({filter_, chosenArtist(), chosenAlbum()}, &places_);
    } else if (collection_ == SourceType::Playlists) {
        fillFromPlaylist(currentPlaylist());
    } else {
        fillFromSearch(currentPlaylist());
    }
}

void TrackBrowser::keepMatching()
{
    if (filterText_.isEmpty())
        return;
    textFilter_.setSongs(items_);
    items_ = textFilter_.matching(filterText_);
}

void TrackBrowser::prepareFilterText()
{
    if (filterText_.isEmpty() && textFilter_.songs().isEmpty())
        textFilter_.setSongs(items_);
}

void TrackBrowser::setFilterText(const QString& text)
{
    if (text == filterText_)
        return;
    prepareFilterText();
    if (textFilter_.songs().isEmpty()) {
        fillItems();
        sortItems();
        textFilter_.setSongs(items_);
    }
    filterText_ = text;
    items_ = textFilter_.matching(text);
    tableView_.deselectAll();
    show();
    tableView_.scrollRowToVisible(0);
}

void TrackBrowser::sortItems()
{
    SongSorting::Origin origin;
    origin.library = collection_ == SourceType::Library || collection_ == SourceType::Playlists;
    if (collection_ == SourceType::Library) {
        origin.places = &places_;
        origin.placing = placing_;
    }
    sorting_.sort(items_, tableView_.sortDescriptors(), origin);
}

void TrackBrowser::setItems(const QList<Record>& items)
{
    textFilter_.clear();
    items_ = items;
    show();
}

void TrackBrowser::show()
{
    tableView_.reloadData();
    Q_EMIT itemsChanged();
}

bool TrackBrowser::replaceItems(const QList<Record>& versions, const Record& replacement, int row)
{
    textFilter_.clear();
    const auto replace = [&](Record& item) {
        const auto isItem = [&item](const Record& version) { return item.equalsButIndex(version); };
        if (std::ranges::none_of(versions, isItem))
            return false;
        Record shown = replacement.copy();
        shown.set(keys::Index, item.value(keys::Index));
        item = shown;
        return true;
    };
    QList<int> rows;
    const auto replaceAt = [&](int place) {
        if (replace(items_[place]))
            rows.append(place);
    };
    if (hasBrowser() && row >= 0 && row < items_.size()) // a song stands once in it
        replaceAt(row);
    if (rows.isEmpty())
        for (int place = 0; place < items_.size(); ++place)
            replaceAt(place);
    for (const int place : rows)
        for (int column = 0; column < songColumnCount; ++column)
            tableView_.reloadCell(place, identifierOf(SongColumn(column)));
    if (!rows.isEmpty())
        Q_EMIT itemsChanged();
    return !rows.isEmpty();
}

void TrackBrowser::removeItems(const QList<int>& rows)
{
    textFilter_.clear();
    QList<Record> left;
    left.reserve(items_.size());
    auto row = rows.begin();
    for (int place = 0; place < items_.size(); ++place) {
        if (row != rows.end() && *row == place)
            ++row;
        else
            left.append(items_[place]);
    }
    items_ = left;
    show();
}

void TrackBrowser::updateTracksBrowser(const Record& old, const Record& replacement, bool inRow)
{
    const bool stays = hasBrowser() && inRow && passesFilter(old) && passesFilter(replacement);
    if (!stays)
        updateTracksBrowser();
}

} // namespace zib
