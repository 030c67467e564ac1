// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/PowerEvents.h"

namespace zib {

/// A machine that sleeps and wakes when the test says so.
class FakePowerEvents : public PowerEvents {
  public:
    void sleep() { Q_EMIT machineWillSleep(); }
    void wake() { Q_EMIT machineDidWake(); }
};

} // namespace zib
