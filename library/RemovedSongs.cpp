// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/RemovedSongs.h"

#include "library/RVDataManager.h"
#include "library/SongDownloads.h"
#include "platform/Alerts.h"
#include "platform/TableView.h"
#include "platform/Trash.h"
#include "records/PropertyValue.h"
#include "services/utilities/PathUtilities.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace zib {
namespace {

QByteArray idOf(const Record& song)
{
    const std::string_view id = song.utf8(keys::Id);
    return {id.data(), qsizetype(id.size())};
}

/// Into the playlists as they are now, each place as near to its number as there are songs.
void putBack(const QList<PlaylistPlace>& places)
{
    auto place = places.begin();
    while (place != places.end()) {
        Record playlist = place->playlist;
        const QStringList before = playlist.strings(keys::Tracks);
        QStringList after;
        const auto isNext = [&](bool atEnd) {
            return place != places.end() && place->playlist.isSame(playlist) &&
                   (atEnd || place->index <= after.size());
        };
        for (const QString& id : before) {
            for (; isNext(false); ++place)
                after.append(place->id);
            after.append(id);
        }
        for (; isNext(true); ++place)
            after.append(place->id);
        playlist.set(keys::Tracks, after);
    }
}

bool plays(const RVDataManager& library, const Record& playlist)
{
    const RVDataManagerDelegate& controller = library.delegate();
    return controller.nowplayingSourceType() == int(SourceType::Playlists) &&
           controller.nowplayingPlaylistUID() == playlist.integer(keys::Id);
}

/// What plays next follows the shown playlist, whose songs are numbered anew.
void followPlayingPlaylist(RVDataManager& library)
{
    const Record playing = library.delegate().nowplayingTrack();
    if (!playing || library.currentSourceType() != SourceType::Playlists ||
        !plays(library, library.currentPlaylist()))
        return;
    const QList<Record>& items = library.items();
    const auto isPlaying = [&](const Record& item) { return library.isNowplaying(item); };
    auto found = std::ranges::find_if(items, [&](const Record& item) {
        return isPlaying(item) && item.value(keys::Index) == playing.value(keys::Index);
    });
    if (found == items.end())
        found = std::ranges::find_if(items, isPlaying);
    if (found != items.end())
        library.delegate().nowplayingPlaylistReordered(*found);
}

template <typename Predicate>
void selectItems(RVDataManager& library, Predicate isWanted)
{
    QList<int> rows;
    for (int row = 0; row < library.items().size(); ++row)
        if (isWanted(library.items()[row]))
            rows.append(row);
    if (rows.isEmpty())
        return;
    library.playlistsTableView().selectRows(rows);
    library.playlistsTableView().scrollRowToVisible(rows.first());
}

} // namespace

SongsRemovedFromLibrary::SongsRemovedFromLibrary(const SongRemoval::Needs& needs, const QList<Record>& songs,
                                                 bool withFiles)
    : needs_(needs)
    , withFiles_(withFiles)
{
    for (const Record& song : songs)
        ids_.insert(idOf(song));
}

UndoCommand::Texts SongsRemovedFromLibrary::texts() const
{
    const int count = int(ids_.size());
    return {.done = tr("%Ln songs removed from the library. Press Ctrl+Z to undo.", nullptr, count),
            .undo = tr("Undo remove %Ln songs", nullptr, count),
            .redo = tr("Redo remove %Ln songs", nullptr, count)};
}

void SongsRemovedFromLibrary::redo()
{
    const Record playing = needs_.library.delegate().nowplayingTrack();
    if (withFiles_ && playing && ids_.contains(idOf(playing)))
        needs_.library.delegate().stop();
    takeOutOfLibrary();
    takeOutOfPlaylists();
    if (withFiles_)
        files_ = filesLeft();
    for (const QString& path : std::as_const(files_))
        needs_.trash.moveToTrash(path);
    show(false);
}

void SongsRemovedFromLibrary::undo()
{
    putIntoLibrary();
    putBack(places_);
    show(true);
    bringFilesBack();
}

void SongsRemovedFromLibrary::takeOutOfLibrary()
{
    RecordTable& library = needs_.library.library();
    songs_.clear();
    std::string_view previous;
    library.forEach([&](std::string_view id, const Record& song) {
        const QByteArray bytes(id.data(), qsizetype(id.size()));
        if (ids_.contains(bytes))
            songs_.push_back({bytes, QByteArray(previous.data(), qsizetype(previous.size())), song});
        previous = id;
    });
    for (const Song& song : songs_) {
        needs_.downloads.cancel(song.record);
        library.remove(song.record.utf8(keys::Id));
    }
}

void SongsRemovedFromLibrary::takeOutOfPlaylists()
{
    places_.clear();
    for (Record& playlist : needs_.library.playlists()) {
        const QStringList before = playlist.strings(keys::Tracks);
        QStringList after;
        for (int index = 0; index < before.size(); ++index) {
            if (ids_.contains(before[index].toUtf8()))
                places_.append({playlist, index, before[index]});
            else
                after.append(before[index]);
        }
        if (after.size() < before.size())
            playlist.set(keys::Tracks, after);
    }
}

QStringList SongsRemovedFromLibrary::filesLeft() const
{
    QSet<QString> locations;
    for (const Song& song : songs_)
        if (song.record.utf8(keys::Location).starts_with("file://"))
            locations.insert(song.record.string(keys::Location));
    if (!locations.isEmpty())
        needs_.library.library().forEach([&locations](std::string_view, const Record& kept) {
            if (kept.utf8(keys::Location).starts_with("file://"))
                locations.remove(kept.string(keys::Location));
        });
    QStringList paths;
    for (const QString& location : std::as_const(locations)) {
        const QString path = pathOfFileUrl(location);
        // A record from the web may name anything: a folder, and all that is in it, is no song.
        if (QFileInfo(path).isFile())
            paths.append(path);
    }
    return paths;
}

/// A table takes new entries at its end only, so it is made anew, with each song behind the one that it stood
/// behind. A song that has come in again meanwhile stays as it is.
void SongsRemovedFromLibrary::putIntoLibrary()
{
    RecordTable& library = needs_.library.library();
    QHash<QByteArray, const Song*> followers;
    for (const Song& song : songs_)
        followers.insert(song.after, &song);
    RecordTable restored;
    const auto insertFollowers = [&](QByteArray id) {
        while (const Song* song = followers.take(id)) {
            id = song->id;
            if (!library.contains(song->record.utf8(keys::Id)))
                restored.insert(song->record.utf8(keys::Id), song->record);
        }
    };
    insertFollowers({});
    library.forEach([&](std::string_view id, const Record& song) {
        restored.insert(id, song);
        insertFollowers(QByteArray(id.data(), qsizetype(id.size())));
    });
    for (const Song& song : songs_) // the one before it is gone
        if (!restored.contains(song.record.utf8(keys::Id)))
            restored.insert(song.record.utf8(keys::Id), song.record);
    library = std::move(restored);
}

void SongsRemovedFromLibrary::bringFilesBack()
{
    QStringList lost;
    for (const QString& path : std::as_const(files_))
        if (!needs_.trash.restore(path))
            lost.append(path);
    if (lost.isEmpty())
        return;
    constexpr qsizetype mostShown = 5; // an alert has to hold them
    Alert alert;
    alert.style = Alert::Style::Warning;
    alert.messageText = tr("%Ln files could not be brought back from the trash.", nullptr, int(lost.size()));
    alert.informativeText = lost.mid(0, mostShown).join(QLatin1Char('\n'));
    if (lost.size() > mostShown)
        alert.informativeText += QStringLiteral("\n…");
    alert.buttons = {tr("OK")};
    needs_.alerts.runModal(alert);
}

void SongsRemovedFromLibrary::show(bool back)
{
    RVDataManager& library = needs_.library;
    library.playlistsTableView().deselectAll();
    if (library.currentSourceType() == SourceType::Playlists) {
        library.setCurrentPlaylistIndex(library.currentPlaylistIndex());
        followPlayingPlaylist(library);
    } else {
        library.reloadData();
    }
    if (back)
        selectItems(library, [this](const Record& item) { return ids_.contains(idOf(item)); });
    library.saveLibrary();
}

SongsRemovedFromPlaylist::SongsRemovedFromPlaylist(RVDataManager& library, const Record& playlist,
                                                   const QList<int>& indexes)
    : library_(library)
    , playlist_(playlist)
{
    const QStringList tracks = playlist.strings(keys::Tracks);
    for (const int index : indexes)
        places_.append({playlist, index, tracks[index]});
}

UndoCommand::Texts SongsRemovedFromPlaylist::texts() const
{
    const int count = int(places_.size());
    return {.done = tr("%Ln songs removed from the playlist. Press Ctrl+Z to undo.", nullptr, count),
            .undo = tr("Undo remove %Ln songs from the playlist", nullptr, count),
            .redo = tr("Redo remove %Ln songs from the playlist", nullptr, count)};
}

void SongsRemovedFromPlaylist::takeOut()
{
    if (plays(library_, playlist_) &&
        std::ranges::any_of(places_, [playing = library_.delegate().nowplayingTrack()](const auto& place) {
            return playing.string(keys::Id) == place.id;
        }))
        library_.delegate().stop();
    const QStringList before = playlist_.strings(keys::Tracks);
    QStringList after;
    auto place = places_.cbegin();
    for (int index = 0; index < before.size(); ++index) {
        const bool isPlace = place != places_.cend() && place->index == index;
        if (!isPlace || place->id != before[index])
            after.append(before[index]);
        if (isPlace)
            ++place;
    }
    playlist_.set(keys::Tracks, after);
}

void SongsRemovedFromPlaylist::redo()
{
    takeOut();
    showAnew();
}

void SongsRemovedFromPlaylist::undo()
{
    putBack(places_);
    showAnew();
    if (!isShown())
        return;
    QSet<std::pair<qint64, QString>> places;
    for (const PlaylistPlace& place : std::as_const(places_))
        places.insert({place.index, place.id});
    selectItems(library_, [&places](const Record& item) {
        return places.contains({item.integer(keys::Index), item.string(keys::Id)});
    });
}

bool SongsRemovedFromPlaylist::isShown() const
{
    return library_.currentSourceType() == SourceType::Playlists &&
           library_.currentPlaylist().isSame(playlist_);
}

void SongsRemovedFromPlaylist::showAnew()
{
    if (isShown()) {
        library_.setCurrentPlaylistIndex(library_.currentPlaylistIndex());
        followPlayingPlaylist(library_);
    }
    library_.saveLibrary();
}

} // namespace zib
