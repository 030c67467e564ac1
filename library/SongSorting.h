// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SongColumns.h"
#include "library/TextOrder.h"
#include "platform/TableView.h"
#include "records/Record.h"

#include <QList>

#include <vector>

namespace zib {

class BrowserIndex;
class RecordTable;

/// Sorts songs by the columns of the song table: texts as people sort them, numbers and dates by their value.
/// Equal songs keep their order. Songs without a value come last in both directions, for they are what nobody
/// looks for; a song that was never played, loved or downloaded counts as 0 there. Main thread.
class SongSorting {
  public:
    /// All of them outlive this object. The library's index remembers the order of its texts.
    SongSorting(const TextCollation& collation, const RecordTable& library, BrowserIndex& libraryIndex);

    /// Where the songs are from; of the library's own more is known.
    struct Origin {
        bool library = false;
        /// The songs' places in the library by "Index", as long as its placing is this one.
        const std::vector<std::uint32_t>* places = nullptr;
        std::uint64_t placing = 0;
    };
    void sort(QList<Record>& songs, const QList<SortDescriptor>& descriptors, Origin origin) const;

  private:
    using Labels = std::vector<TextOrder::Label>; // by song

    [[nodiscard]] Labels labels(const QList<Record>& songs, SongColumn column, Origin origin) const;
    [[nodiscard]] Labels textLabels(const QList<Record>& songs, RecordKey key, Origin origin) const;

    const TextCollation& collation_;
    const RecordTable& library_;
    BrowserIndex& libraryIndex_;
};

} // namespace zib
