// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Styles.h"

#include <string_view>
#include <vector>

/// The rhythms that the styles choose from.
namespace zib::demo::patterns {

using Words = std::vector<std::string_view>;

// Two bars of a melody: x a note, - held, . rest.
Words lyrical();
Words flowing();
Words sparse();
Words syncopated();
Words swung();
Words pulsing();
Words turning();
Words resting();
Words turningRest();

// One bar of each drum: X loud, x usual, o soft.
DrumPattern ballad();
DrumPattern boomBap();
DrumPattern fourOnTheFloor();
DrumPattern neon();
DrumPattern brushes();
DrumPattern bossaBeat();
DrumPattern shuffle();
DrumPattern marching();
DrumPattern waltzBeat();

} // namespace zib::demo::patterns
