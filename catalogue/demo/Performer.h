// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Score.h"

#include <atomic>
#include <cstdint>
#include <vector>

namespace zib::demo {

/// Plays the score: 44.1 kHz, two channels interleaved, exactly as long as the score says, the same samples
/// for the same score on every machine. Empty when `stop` became true on the way.
std::vector<std::int16_t> perform(const Score& score, const std::atomic<bool>& stop);

} // namespace zib::demo
