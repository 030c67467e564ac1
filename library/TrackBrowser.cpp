// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/TrackBrowser.h"

#include "library/LibraryFile.h"
#include "library/SongColumns.h"
#include "platform/TableView.h"
#include "records/PropertyValue.h"

#include <algorithm>

namespace zib {
namespace {

Record numbered(const Record& track, qsizetype index)
{
    Record copy = track.copy();
    copy.set(keys::Index, index);
    return copy;
}

} // namespace

TrackBrowser::TrackBrowser(const LibraryContents& contents, const RecordTable& tophot,
                           const RecordTable& recommended, TableView& table)
    : contents_(contents)
    , tophot_(tophot)
    , recommended_(recommended)
    , tableView_(table)
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
    if (hasBrowser()) {
        uid_ = static_cast<int>(source);
        tableView_.setAutosaveName(QString::number(uid_));
        updateTracksBrowser();
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
    items_.clear();
    if (collection_ == SourceType::Playlists) {
        const QStringList ids = playlist.strings(keys::Tracks);
        for (const QString& id : ids) {
            if (Record track = contents_.library.find(id)) {
                track.set(keys::Index, items_.size());
                items_.append(track);
            }
        }
    } else {
        const QList<Record> tracks = playlist.records(keys::Tracks);
        for (const Record& track : tracks)
            items_.append(numbered(track, items_.size()));
    }
    tableView_.setAutosaveName(QString::number(uid_));
    tableView_.reloadData();
    tableView_.scrollRowToVisible(0);
    tableView_.deselectAll();
    Q_EMIT itemsChanged();
    Q_EMIT sourceChanged();
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

void TrackBrowser::reloadData()
{
    if (hasBrowser())
        updateTracksBrowser();
    else
        tableView_.reloadData();
}

void TrackBrowser::updateTracksBrowser()
{
    if (const RecordTable* records = table()) {
        items_.clear();
        records->forEach([this](std::string_view, const Record& track) {
            if (passesFilter(track))
                items_.append(numbered(track, items_.size()));
        });
    }
    show();
}

void TrackBrowser::show()
{
    tableView_.reloadData();
    Q_EMIT itemsChanged();
}

bool TrackBrowser::replaceItems(const QList<Record>& versions, const Record& replacement, int row)
{
    const auto replace = [&](Record& item) {
        const auto isItem = [&item](const Record& version) { return item.equalsButIndex(version); };
        if (std::ranges::none_of(versions, isItem))
            return false;
        Record shown = replacement.copy();
        shown.set(keys::Index, item.value(keys::Index));
        item = shown;
        return true;
    };
    bool replaced = false;
    if (hasBrowser() && row >= 0 && row < items_.size()) // a song stands once in it
        replaced = replace(items_[row]);
    if (!replaced)
        for (Record& item : items_)
            replaced = replace(item) || replaced;
    if (replaced)
        show();
    return replaced;
}

void TrackBrowser::removeItems(const QList<int>& rows)
{
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
