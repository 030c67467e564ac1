// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Random.h"
#include "catalogue/demo/Score.h"
#include "catalogue/demo/Styles.h"

namespace zib::demo {

/// Writes what stands under the tune: chords, pad, bass and drums, each by the patterns of the style.
class Accompanist {
  public:
    Accompanist(const Style& style, Score& score, Random& random);

    void chords(const Section& section);
    void pad(const Section& section);
    void bass(const Section& section);
    void drums(const Section& section);

    /// The chord that stays when the song is over.
    void lastChord();

  private:
    /// A step of a pattern, or the part of it that stands over one chord.
    struct Stroke {
        char sign;
        double beat;
        double length;
        bool first; ///< of its step
    };

    /// Goes through the section by the pattern, repeated.
    template <typename Play>
    void walk(std::string_view pattern, const Section& section, Play play);
    void playStep(char sign, double beat, double length, float velocity);
    int bassPitch(char sign, double beat, const ChordSpan& span);

    const Style& style_;
    Score& score_;
    Random& random_;
    std::vector<int> voicing_;
    std::vector<int> padVoicing_;
    const ChordSpan* voiced_ = nullptr;
    int lastBass_ = 40;
};

} // namespace zib::demo
