// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zib {

/// Keeps the machine from going to sleep by itself. The screen may go dark, and the user can still put the
/// machine to sleep. Main thread. On a desktop that cannot be asked nothing happens.
class SleepInhibitor {
  public:
    virtual ~SleepInhibitor() = default;
    /// Whether the machine is to stay awake; not at first. It may sleep again when this object or the program
    /// ends.
    virtual void setAwake(bool awake) = 0;
};

} // namespace zib
