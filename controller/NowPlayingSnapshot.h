// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SongColumns.h"
#include "library/SourceTypes.h"
#include "records/Record.h"

#include <QList>
#include <QString>

namespace zib {

/// The list that a song was started from, as it was then: what is shown later changes nothing about what
/// plays next.
struct NowPlayingSnapshot {
    int playlistIndex;
    SourceType sourceType;
    QList<Record> playlistItems; ///< in the order shown
    IndexPath indexPath;         ///< what was selected in the browsers and the list
    qint64 playlistUid;
    FilterType filterType;
    Record track; ///< the song now playing

    /// The place of the song now playing in the items, or -1.
    [[nodiscard]] int indexOfTrack() const;
    /// The first item from that place on, in steps of 1 or -1, that can be played now; no record when there
    /// is none.
    [[nodiscard]] Record playableFrom(int index, int step, bool connectedToInternet) const;
    /// The artists and names of the items, one a line.
    [[nodiscard]] QString itemNames() const;
};

/// "artist - name" of a song, as it is shown.
[[nodiscard]] QString artistAndName(const Record& track);

/// The replacement of a playing record. What the library stores has no place in the list; what plays needs
/// it.
[[nodiscard]] Record withIndex(const Record& replacement, const Record& old);

} // namespace zib
