// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Score.h"

#include <string_view>
#include <vector>

namespace zib::demo {

/// Chords in roman numerals; bars are parted by "|", chords of one bar by spaces.
struct Progression {
    Mode mode;
    std::string_view verse;  ///< 8 bars that close
    std::string_view bridge; ///< 8 bars that lead back
    std::string_view ending; ///< 4 bars
};

struct DrumLine {
    Drum drum;
    std::string_view steps; ///< one bar: X loud, x usual, o soft, . nothing
};

struct DrumPattern {
    std::vector<DrumLine> light;
    std::vector<DrumLine> full;
    std::vector<DrumLine> fill; ///< in place of the last bar of eight
};

/// What makes a kind of music: everything that the composer may choose from.
struct Style {
    std::string_view tag = {};
    int beatsPerBar = 4;
    int slowest = 80; ///< beats a minute
    int fastest = 100;
    float swing = 0.5F; ///< where the off-beat eighth lies within its beat
    bool human = true;  ///< small freedoms in time and strength, and a slower end
    float roominess = 0.3F;
    float warmth = 0;
    std::vector<Progression> progressions = {};
    std::vector<std::string_view> motifs = {};   ///< two bars: x a note, - held, . rest
    std::vector<std::string_view> cadences = {}; ///< two bars that come to rest
    /// Steps of one or more bars: a digit one voice of the chord, c the chord, t all but its lowest voice,
    /// - held, . rest. The first is for quiet sections, the second for the others.
    std::vector<std::string_view> chordPatterns = {};
    /// r root, f fifth, o octave, w a chord tone on the way, a approach of the next root.
    std::vector<std::string_view> bassPatterns = {};
    double strum = 0; ///< seconds between the strings of a chord
    int chordVoices = 4;
    std::vector<Instrument> leads = {};
    std::vector<Instrument> chordInstruments = {};
    std::vector<Instrument> pads = {}; ///< none when empty
    std::vector<Instrument> basses = {};
    std::vector<Instrument> counters = {};
    DrumKit kit = DrumKit::None;
    DrumPattern drums = {};
};

/// The style of that tag; the first one when there is none.
const Style& styleOf(std::string_view tag);

const std::vector<Style>& allStyles();

} // namespace zib::demo
