// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>
#include <vector>

namespace zib::demo {

enum class Mode { Major, Minor, Dorian, Mixolydian, Lydian };

/// The semitones of the mode's seven degrees above the tonic.
const std::array<int, 7>& scaleOf(Mode mode);

struct Chord {
    int root = 0;           ///< pitch class, 0 is C
    std::vector<int> tones; ///< semitones above the root, rising, beginning with 0

    bool contains(int pitch) const;
    bool operator==(const Chord&) const = default;
};

/// Reads a roman numeral: "IV", "bVII", "ii7", "V7sus4", "Imaj9", "iih7" (half diminished), "viio", "vadd9".
/// Upper case is a major third, lower case a minor one; degrees are those of `mode`.
Chord chordFromNumeral(std::string_view numeral, int tonic, Mode mode);

/// The key's seven pitch classes, rising from the tonic, bent where the chord asks for it (the leading tone
/// of a dominant in minor, the flat sixth of a borrowed subdominant).
std::array<int, 7> scaleUnder(const Chord& chord, int tonic, Mode mode);

/// The pitch `steps` scale steps from `pitch`, which is first moved to the scale where it lies outside.
int stepInScale(int pitch, int steps, const std::array<int, 7>& scale);

/// The chord tone closest to `pitch`; `direction` (-1, 0, 1) breaks ties and forbids the other side.
int nearestChordTone(int pitch, const Chord& chord, int direction = 0);

/// A close voicing of `count` voices between `low` and `high` that moves as little as it can from `previous`.
std::vector<int> voiceLead(const Chord& chord, const std::vector<int>& previous, int low, int high,
                           int count);

} // namespace zib::demo
