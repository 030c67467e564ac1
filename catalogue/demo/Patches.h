// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Score.h"
#include "catalogue/demo/Wavetables.h"

#include <vector>

namespace zib::demo {

enum class Engine {
    Modal,    ///< a sum of dying partials: what is struck
    String,   ///< a delay line that feeds itself: what is plucked
    Sustained ///< a periodic wave through a filter: what is blown, bowed or electronic
};

struct Partial {
    double ratio; ///< to the fundamental
    double level;
    double decay; ///< seconds to fall by 60 dB, at middle C
};

/// How an instrument sounds.
struct Patch {
    Engine engine = Engine::Sustained;
    float level = 1; ///< against the other instruments, for equal loudness 1
    float attack = 0.005F;
    float decay = 0.3F;
    float sustain = 0.8F;
    float release = 0.2F; ///< seconds; the dampers of a struck or plucked instrument
    // Modal
    std::vector<Partial> partials = {};
    float noise = 0; ///< hammer, finger or breath
    // String
    float bright = 0.5F; ///< 0 dull, 1 bright
    float ring = 3;      ///< seconds
    // Sustained
    Wave wave = Wave::Saw;
    float detune = 0;       ///< cents between two oscillators; 0 for one
    float cutoff = 0;       ///< times the fundamental; 0 for no filter
    float sweep = 0;        ///< how many octaves the filter opens on the attack
    float sweepTime = 0.3F; ///< seconds until half of that is gone
    float resonance = 0.2F;
    float vibrato = 0; ///< cents
    // In the mix
    float reverb = 0.3F;
    float echo = 0;
    float chorus = 0;
    float tremolo = 0;
    float drive = 0;
};

const Patch& patchOf(Instrument instrument);

} // namespace zib::demo
