// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

#include <QList>
#include <QObject>

namespace zib {

class Alerts;
class Desktop;
class RVDataManager;
class SongDownloads;
class Trash;
class UndoStack;
class UserDefaults;

/// Takes songs out of the library, with their files into the trash, or out of a playlist; all of it can be
/// undone. Main thread.
class SongRemoval : public QObject {
    Q_OBJECT

  public:
    /// What it works with; all of them outlive it.
    struct Needs {
        RVDataManager& library;
        SongDownloads& downloads;
        UserDefaults& defaults;
        Trash& trash;
        Alerts& alerts;
        Desktop& desktop;
        UndoStack& undo;
    };
    explicit SongRemoval(const Needs& needs);

    /// Removes the songs selected in the table: in the library after a question, in a playlist at once.
    /// Anywhere else, and with nothing selected, the system beeps.
    void deleteSelectedItems();
    /// Removes all songs that could not be opened from library and playlists. Files stay.
    void removeBrokenLinks();

  private:
    void removeFromLibrary(const QList<Record>& songs, bool withFiles);
    void removeFromPlaylist(const QList<int>& rows);

    Needs needs_;
};

} // namespace zib
