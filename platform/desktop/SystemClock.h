// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Clock.h"

namespace zib {

/// The machine's clock.
class SystemClock : public Clock {
  public:
    [[nodiscard]] QDateTime now() const override { return QDateTime::currentDateTimeUtc(); }
};

} // namespace zib
