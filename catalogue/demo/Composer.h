// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Score.h"
#include "catalogue/demo/Styles.h"

#include <cstdint>

namespace zib::demo {

/// What a song is made from.
struct Commission {
    std::string_view tag;         ///< the style
    int seconds = 60;             ///< how long the song shall be, exactly
    std::uint64_t artistSeed = 0; ///< chooses the instruments: an artist keeps to a sound
    std::uint64_t songSeed = 0;   ///< chooses everything else
};

/// Writes the song; the same for the same commission, always.
Score compose(const Commission& commission);

} // namespace zib::demo
