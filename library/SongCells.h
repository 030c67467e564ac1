// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SongColumns.h"

#include <QVariant>

namespace zib {

class Record;
class TableView;
class TrackBrowser;

/// What the cells of the three tables hold, asked for each visible cell each time it is drawn. Main thread.
class SongCells {
  public:
    /// The browser outlives this object.
    explicit SongCells(const TrackBrowser& browser)
        : browser_(browser)
    {
    }

    /// The rows of the song table.
    [[nodiscard]] int numberOfRows() const;
    /// A text for people where the column has a form of its own, else the record's value as it is: a text, a
    /// number, or a date (UTC). Invalid where there is none.
    [[nodiscard]] QVariant objectValueForTableColumn(SongColumn column, int row) const;
    [[nodiscard]] CellDecoration willDisplayCell(SongColumn column, int row) const;

    /// The names in the rows of the browsers.
    /// @{
    [[nodiscard]] QString artist(int row) const;
    [[nodiscard]] QString album(int row) const;
    /// @}

  private:
    [[nodiscard]] bool isPlaying(const Record& track) const;
    [[nodiscard]] bool isUnavailable(const Record& track) const;
    [[nodiscard]] CellDecoration::DownloadButton downloadButton(const Record& track) const;

    const TrackBrowser& browser_;
};

} // namespace zib
