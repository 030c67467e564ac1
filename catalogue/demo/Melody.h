// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Random.h"
#include "catalogue/demo/Score.h"
#include "catalogue/demo/Styles.h"

namespace zib::demo {

/// Writes the tune: motifs that return, are varied and come to rest, in the scale of the moment, with tones
/// of the chord wherever the ear dwells.
class Melodist {
  public:
    Melodist(const Style& style, const Score& score, Random& random);

    /// The tune of one section; the score's chords must stand.
    std::vector<Note> tuneOf(const Section& section);

    /// A second voice under the long notes of `tune`.
    std::vector<Note> voiceUnder(const std::vector<Note>& tune) const;

  private:
    struct Onset {
        double beat;
        double length;
    };
    struct Motif {
        std::vector<Onset> onsets;
        std::vector<int> moves; ///< scale steps from the note before
    };

    Motif motifFrom(std::string_view rhythm);
    std::vector<Note> sing(const Motif& motif, double start, int anchor) const;
    int nextPitch(int previous, int move, const Chord& chord, bool dwells) const;
    bool dwells(const Onset& onset, double start) const;
    int withinReach(int pitch, const Chord& chord) const;
    int restFrom(int pitch, double beat) const;
    void comeToRest(std::vector<Note>& notes) const;
    void vary(std::vector<Note>& notes);

    const Score& score_;
    Random& random_;
    int low_;
    int high_;
    int middle_;
    Motif theme_;
    Motif answer_;
    Motif close_;
    Motif bridge_;
    Motif bridgeClose_;
};

/// The beat and length, in beats, of the notes that a rhythm of `bars` bars stands for.
struct RhythmStep {
    double beat;
    double length;
    char sign;
};
std::vector<RhythmStep> stepsOf(std::string_view rhythm, int beatsPerBar);

} // namespace zib::demo
