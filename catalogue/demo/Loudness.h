// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Effects.h"

namespace zib::demo {

/// How loud the song is to the ear, in LUFS: highs count more, lows less, silence does not count.
double loudnessOf(const Stereo& song);

} // namespace zib::demo
