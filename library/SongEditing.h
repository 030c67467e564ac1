// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SongColumns.h"
#include "library/SongFiles.h"
#include "records/Record.h"

#include <QCoreApplication>
#include <QString>

namespace zib {

class Alerts;
class RVDataManager;
class TagAPIs;
class UserDefaults;

/// Editing a song in its cell of the song table: the record, the tags of its file, and the file's place,
/// which follows from the names. An edit that the file cannot follow is refused with an alert, and then
/// nothing has changed. Main thread.
class SongEditing {
    Q_DECLARE_TR_FUNCTIONS(SongEditing)

  public:
    /// All of them outlive this object.
    SongEditing(RVDataManager& library, TagAPIs& tags, const UserDefaults& defaults, Alerts& alerts);

    /// Whatever the window lets people edit may be edited.
    [[nodiscard]] static bool shouldEditTableColumn(SongColumn /*column*/, int /*row*/) { return true; }
    /// The cell was edited. Only a text that is not empty, in a column of texts, is a change.
    void setObjectValue(const QString& value, SongColumn column, int row);

  private:
    [[nodiscard]] SongFiles::Result change(const Record& track, Record edited, RecordKey key);
    [[nodiscard]] SongFiles::Result checkPlaces(const Record& track, const Record& edited) const;
    void writeTag(const Record& track, RecordKey key, const QString& text);
    void showEdited(const Record& edited, RecordKey key, int row);

    RVDataManager& library_;
    TagAPIs& tags_;
    Alerts& alerts_;
    SongFiles files_;
};

} // namespace zib
