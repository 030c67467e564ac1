// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/SongRemoval.h"

#include "library/RVDataManager.h"
#include "library/SongDownloads.h"
#include "platform/Alerts.h"
#include "platform/Desktop.h"
#include "platform/SettingsKeys.h"
#include "platform/TableView.h"
#include "platform/Trash.h"
#include "platform/UserDefaults.h"
#include "records/PropertyValue.h"
#include "services/utilities/PathUtilities.h"

#include <QFileInfo>
#include <QHash>
#include <QLoggingCategory>

#include <algorithm>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.library")

} // namespace

SongRemoval::SongRemoval(const Needs& needs)
    : needs_(needs)
{
    connect(&needs_.trash, &Trash::failed, this, [this](const QString& path) {
        qCWarning(log, "Could not be moved to the trash: %s", qUtf8Printable(path));
        needs_.defaults.setValue(settings::BriefStatusMessage,
                                 tr("%1 could not be moved to the trash").arg(QFileInfo(path).fileName()));
    });
}

void SongRemoval::deleteSelectedItems()
{
    RVDataManager& library = needs_.library;
    const QList<int> rows = library.playlistsTableView().selectedRows();
    QList<Record> songs;
    for (const int row : rows)
        if (const Record track = library.items().value(row))
            songs.append(track);
    const SourceType source = library.currentSourceType();
    if (songs.isEmpty() || (source != SourceType::Library && source != SourceType::Playlists)) {
        needs_.desktop.beep();
        return;
    }
    if (source == SourceType::Playlists) {
        removeFromPlaylist(rows);
        return;
    }
    Alert question;
    question.messageText = tr("Are you sure you want to remove the selected songs from your music library?");
    question.informativeText = tr("Any local files will be moved to the trash.");
    question.buttons = {tr("Remove"), tr("Cancel")};
    if (needs_.alerts.runModal(question).button == 0)
        removeFromLibrary(songs);
}

void SongRemoval::removeFromLibrary(const QList<Record>& songs)
{
    RVDataManager& library = needs_.library;
    if (std::ranges::any_of(songs, [&library](const Record& song) { return library.isNowplaying(song); }))
        library.delegate().stop();
    forget(songs);
    for (const QString& path : filesOf(songs))
        needs_.trash.moveToTrash(path);
    library.playlistsTableView().deselectAll();
    library.reloadData();
    library.saveLibrary();
}

void SongRemoval::forget(const QList<Record>& songs)
{
    QSet<QString> ids;
    for (const Record& song : songs) {
        ids.insert(song.string(keys::Id));
        needs_.downloads.cancel(song);
        needs_.library.library().remove(song.string(keys::Id));
    }
    for (Record& playlist : needs_.library.playlists()) {
        QStringList tracks = playlist.strings(keys::Tracks);
        if (tracks.removeIf([&ids](const QString& id) { return ids.contains(id); }) > 0)
            playlist.set(keys::Tracks, tracks);
    }
}

QStringList SongRemoval::filesOf(const QList<Record>& songs) const
{
    QSet<QString> locations;
    for (const Record& song : songs)
        if (song.utf8(keys::Location).starts_with("file://"))
            locations.insert(song.string(keys::Location));
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

void SongRemoval::removeFromPlaylist(const QList<int>& rows)
{
    RVDataManager& library = needs_.library;
    RVDataManagerDelegate& controller = library.delegate();
    Record playlist = library.currentPlaylist();
    const bool plays = controller.nowplayingSourceType() == int(SourceType::Playlists) &&
                       controller.nowplayingPlaylistUID() == library.currentUID();
    // A song can stand several times in a playlist: which of its places are to go?
    const QSet<int> selected(rows.begin(), rows.end());
    QSet<std::pair<QString, int>> gone;
    QHash<QString, int> places;
    for (int row = 0; row < library.items().size(); ++row) {
        const Record& track = library.items()[row];
        const int place = places[track.string(keys::Id)]++;
        if (!selected.contains(row))
            continue;
        gone.insert({track.string(keys::Id), place});
        if (plays && library.isNowplaying(track))
            controller.stop();
    }
    places.clear();
    QStringList tracks;
    for (const QString& id : playlist.strings(keys::Tracks))
        if (!gone.contains({id, places[id]++}) && library.library().contains(id))
            tracks.append(id);
    playlist.set(keys::Tracks, tracks);
    library.removeItems(rows);
    library.playlistsTableView().selectRows({std::min(rows.first(), int(library.items().size()) - 1)});
    if (plays)
        controller.setNowplayingPlaylistItems(library.items());
    library.saveLibrary();
}

void SongRemoval::removeBrokenLinks()
{
    QList<Record> broken;
    needs_.library.library().forEach([&broken](std::string_view, const Record& track) {
        if (track.boolean(keys::BrokenLink))
            broken.append(track);
    });
    if (broken.isEmpty())
        return;
    forget(broken);
    if (needs_.library.currentSourceType() == SourceType::Playlists)
        needs_.library.setCurrentPlaylistIndex(needs_.library.currentPlaylistIndex());
    else
        needs_.library.reloadData();
    needs_.library.saveLibrary();
}

} // namespace zib
