// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace zib::demo {

constexpr int sampleRate = 44100;

enum class Wave { Sine, Saw, Square, Pad, Strings, Choir, Organ, Flute, Clarinet, Brass, count };

constexpr std::size_t tableSize = 2048;

/// One period of the wave with no partial above half the sample rate when played at `frequency` Hz. It has
/// one value more than `tableSize`, equal to the first, for interpolation.
const float* periodOf(Wave wave, double frequency);

} // namespace zib::demo
