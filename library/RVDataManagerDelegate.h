// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

namespace zib {

/// What the library manager asks of the main controller. Main thread.
class RVDataManagerDelegate {
  public:
    virtual ~RVDataManagerDelegate() = default;

    /// The song now playing ("Track" of the now-playing snapshot), or none.
    [[nodiscard]] virtual Record nowplayingTrack() const { return {}; }
    /// The record of the song now playing was replaced by this one: it is the snapshot's "Track" from now on.
    virtual void setNowplayingTrack(const Record& /*track*/) {}

    /// Whether the machine is online.
    [[nodiscard]] virtual bool connectedToInternet() const { return true; }

    /// The shown songs have changed: the address field is to show its text anew.
    virtual void updateURLField() {}
};

} // namespace zib
