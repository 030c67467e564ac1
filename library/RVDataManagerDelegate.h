// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SourceTypes.h"
#include "records/Record.h"

#include <QList>

namespace zib {

/// What the library manager asks of the main controller. Main thread.
class RVDataManagerDelegate {
  public:
    virtual ~RVDataManagerDelegate() = default;

    /// The song now playing ("Track" of the now-playing snapshot), or none.
    [[nodiscard]] virtual Record nowplayingTrack() const { return {}; }
    /// The record of the song now playing was replaced by this one: it is the snapshot's "Track" from now on.
    virtual void setNowplayingTrack(const Record& /*track*/) {}

    /// The same after an edit of its names, which are shown.
    virtual void updateNowplayingTrack(const Record& /*track*/) {}
    /// The list that the song now playing was started from; -1 without one.
    /// @{
    [[nodiscard]] virtual int nowplayingSourceType() const { return -1; }
    [[nodiscard]] virtual qint64 nowplayingPlaylistUID() const { return -1; }
    /// @}
    /// That list has changed where it is shown: its next song is now the one that follows there.
    virtual void setNowplayingPlaylistItems(const QList<Record>& /*items*/) {}
    /// The song now playing is no longer there: nothing plays.
    virtual void stop() {}
    /// The playlist that plays was reordered and is shown: the snapshot is to be as if the song had been
    /// chosen there now.
    virtual void nowplayingPlaylistReordered(const Record& /*track*/) {}

    /// Whether the machine is online.
    [[nodiscard]] virtual bool connectedToInternet() const { return true; }

    /// The shown songs have changed: the address field is to show its text anew.
    virtual void updateURLField() {}
};

} // namespace zib
