// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/SongRemoval.h"

#include "library/RVDataManager.h"
#include "library/RemovedSongs.h"
#include "library/UndoStack.h"
#include "platform/Alerts.h"
#include "platform/Desktop.h"
#include "platform/SettingsKeys.h"
#include "platform/TableView.h"
#include "platform/Trash.h"
#include "platform/UserDefaults.h"
#include "records/PropertyValue.h"

#include <QFileInfo>
#include <QHash>
#include <QLoggingCategory>
#include <QSet>

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
        removeFromLibrary(songs, true);
}

void SongRemoval::removeFromLibrary(const QList<Record>& songs, bool withFiles)
{
    auto removal = std::make_unique<SongsRemovedFromLibrary>(needs_, songs, withFiles);
    removal->redo();
    needs_.undo.push(std::move(removal));
}

void SongRemoval::removeFromPlaylist(const QList<int>& rows)
{
    RVDataManager& library = needs_.library;
    RVDataManagerDelegate& controller = library.delegate();
    const Record playlist = library.currentPlaylist();
    // A song can stand several times in a playlist: which of its places are to go?
    const QSet<int> selected(rows.begin(), rows.end());
    QSet<std::pair<QString, int>> gone;
    QHash<QString, int> places;
    for (int row = 0; row < library.items().size(); ++row) {
        const QString id = library.items()[row].string(keys::Id);
        const int place = places[id]++;
        if (selected.contains(row))
            gone.insert({id, place});
    }
    places.clear();
    QList<int> indexes;
    const QStringList tracks = playlist.strings(keys::Tracks);
    for (int index = 0; index < tracks.size(); ++index)
        if (gone.contains({tracks[index], places[tracks[index]]++}) ||
            !library.library().contains(tracks[index]))
            indexes.append(index);
    auto removal = std::make_unique<SongsRemovedFromPlaylist>(library, playlist, indexes);
    removal->takeOut();
    library.removeItems(rows);
    library.playlistsTableView().selectRows({std::min(rows.first(), int(library.items().size()) - 1)});
    if (controller.nowplayingSourceType() == int(SourceType::Playlists) &&
        controller.nowplayingPlaylistUID() == library.currentUID())
        controller.setNowplayingPlaylistItems(library.items());
    library.saveLibrary();
    needs_.undo.push(std::move(removal));
}

void SongRemoval::removeBrokenLinks()
{
    QList<Record> broken;
    needs_.library.library().forEach([&broken](std::string_view, const Record& track) {
        if (track.boolean(keys::BrokenLink))
            broken.append(track);
    });
    if (!broken.isEmpty())
        removeFromLibrary(broken, false);
}

} // namespace zib
