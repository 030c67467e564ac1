// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Patches.h"

#include <vector>

namespace zib::demo {

/// One note of an instrument, from its attack to the end of its release, of about the same loudness for every
/// instrument and pitch but for the patch's level.
/// @param seconds how long the key is held
/// @param force 0 to 1: a stronger touch sounds brighter; the caller sets the loudness
std::vector<float> playNote(const Patch& patch, int pitch, double seconds, float force);

/// One stroke of a drum, peaking at 1.
std::vector<float> strikeDrum(Drum drum, DrumKit kit);

} // namespace zib::demo
