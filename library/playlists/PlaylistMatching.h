// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/playlists/PlaylistFile.h"
#include "records/Record.h"
#include "records/RecordTable.h"

#include <QList>
#include <QString>

namespace zib {

class UserDefaults;

/// What a song of a playlist file is here: a song of the library or of the web, else a file that is to be
/// imported, else nothing.
struct PlaylistMatch {
    Record song;
    QString file;
    QString label; ///< what people call it
};

/// Finds the entries in the library: by their place, by their id, and by artist and name in whatever case and
/// with or without accents. Others become new songs when they are on the web, or files when they are there.
/// Asks the disk. Any thread.
QList<PlaylistMatch> matchedPlaylist(const QList<PlaylistEntry>& entries,
                                     const RecordTable::Snapshot& library, const UserDefaults& defaults);

/// The song as a playlist file names it: a downloaded one by its file. Any thread.
PlaylistEntry playlistEntryOf(const Record& track, const UserDefaults& defaults);

} // namespace zib
