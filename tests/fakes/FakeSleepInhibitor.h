// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/SleepInhibitor.h"

namespace zib {

class FakeSleepInhibitor : public SleepInhibitor {
  public:
    void setAwake(bool on) override { awake = on; }

    bool awake = false;
};

} // namespace zib
