// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

#include <QList>
#include <QString>

#include <optional>

class QMimeData;

namespace zib {

class RVDataManager;

/// Songs that are dragged out of the song table, and inside it to another place of their playlist. Main
/// thread.
class SongReordering {
  public:
    /// The type under which rows of the song table travel.
    static const QString tableViewDataType;

    /// The library outlives this object.
    explicit SongReordering(RVDataManager& library)
        : library_(library)
    {
    }

    static void writeRowsWithIndexes(const QList<int>& rows, QMimeData& toPasteboard);
    /// The rows that were written, in ascending order; of those only that the table has now. None when no
    /// rows were written there.
    [[nodiscard]] QList<int> rows(const QMimeData& pasteboard) const;

    /// The row above which a drop on or above that row is accepted; none when it is refused.
    [[nodiscard]] std::optional<int> validateDrop(const QMimeData& pasteboard, int proposedRow) const;
    /// Moves the rows above that one. False when there is nothing to move.
    bool acceptDrop(const QMimeData& pasteboard, int row);

  private:
    [[nodiscard]] bool isNowplayingPlaylist() const;

    RVDataManager& library_;
};

} // namespace zib
