// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Patches.h"

#include "catalogue/demo/Maths.h"

#include <algorithm>
#include <cmath>

namespace zib::demo {
namespace {

using I = Instrument;

/// Piano strings in pairs that beat slowly against each other, stiff, struck at an eighth of their length.
std::vector<Partial> pianoPartials(double falloff, double ring)
{
    std::vector<Partial> partials;
    for (int n = 1; n <= 8; ++n) {
        const double stiff = n * std::sqrt(1.0 + 0.0004 * n * n);
        const double hammer = 0.25 + std::abs(sineOfTurns(n / 16.0 + 0.03));
        const double level = hammer * powerOfTwo(-falloff * (n - 1));
        const double decay = ring / (1.0 + 0.35 * (n - 1));
        partials.push_back({stiff * 0.9998, level, decay});
        partials.push_back({stiff * 1.0005, level * 0.6, decay * 0.55});
    }
    return partials;
}

Patch struck(std::vector<Partial> partials, float level, float release, float noise, float reverb)
{
    Patch patch;
    patch.engine = Engine::Modal;
    patch.partials = std::move(partials);
    patch.level = level;
    patch.attack = 0.002F;
    patch.release = release;
    patch.noise = noise;
    patch.reverb = reverb;
    return patch;
}

Patch plucked(float level, float bright, float ring, float release, float reverb)
{
    Patch patch;
    patch.engine = Engine::String;
    patch.level = level;
    patch.bright = bright;
    patch.ring = ring;
    patch.release = release;
    patch.reverb = reverb;
    return patch;
}

Patch struckPatch(Instrument instrument)
{
    switch (instrument) {
    case I::FeltPiano:
        return struck(pianoPartials(1.25, 7.0), 1.0F, 0.35F, 0.05F, 0.4F);
    case I::GrandPiano:
        return struck(pianoPartials(0.75, 8.0), 1.0F, 0.25F, 0.03F, 0.3F);
    case I::ElectricPiano: {
        Patch patch = struck({{1, 1, 5},
                              {2.001, 0.3, 3},
                              {3.002, 0.1, 2},
                              {1.001, 0.3, 3},
                              {7.03, 0.14, 0.5},
                              {13.9, 0.05, 0.25}},
                             1.0F, 0.22F, 0.01F, 0.28F);
        patch.tremolo = 0.3F;
        patch.chorus = 0.35F;
        return patch;
    }
    case I::Vibraphone: {
        Patch patch = struck({{1, 1, 6}, {4.0, 0.22, 2.2}, {9.9, 0.06, 0.6}}, 0.9F, 0.5F, 0.02F, 0.4F);
        patch.tremolo = 0.22F;
        return patch;
    }
    case I::UprightBass:
        return struck(
            {{1, 1, 0.9}, {2, 0.75, 0.6}, {3, 0.4, 0.4}, {4, 0.22, 0.26}, {5, 0.12, 0.18}, {6, 0.07, 0.12}},
            1.35F, 0.09F, 0.12F, 0.1F);
    case I::FingerBass:
        return struck({{1, 1, 1.6},
                       {2, 0.8, 1.2},
                       {3, 0.5, 0.8},
                       {4, 0.3, 0.5},
                       {5, 0.2, 0.36},
                       {6, 0.13, 0.26},
                       {7, 0.08, 0.18},
                       {8, 0.05, 0.14}},
                      1.15F, 0.08F, 0.05F, 0.06F);
    case I::Kalimba:
        return struck({{1, 1, 2.4}, {2.0, 0.12, 1.2}, {5.4, 0.2, 0.35}, {9.6, 0.08, 0.16}}, 0.95F, 0.6F,
                      0.04F, 0.4F);
    case I::Celesta:
        return struck({{1, 1, 3.0}, {2.0, 0.1, 1.6}, {4.02, 0.25, 1.1}, {8.3, 0.06, 0.4}}, 0.75F, 0.6F, 0.02F,
                      0.45F);
    default: {
        Patch patch = struck({{1, 1, 6},
                              {2.003, 0.4, 4},
                              {2.76, 0.16, 2.6},
                              {4.07, 0.14, 2},
                              {5.4, 0.08, 1.2},
                              {8.93, 0.03, 0.6}},
                             0.65F, 1.2F, 0.0F, 0.6F);
        patch.echo = 0.3F;
        return patch;
    }
    }
}

Patch pluckedPatch(Instrument instrument)
{
    Patch patch;
    switch (instrument) {
    case I::NylonGuitar:
        return plucked(1.0F, 0.35F, 3.0F, 0.15F, 0.28F);
    case I::SteelGuitar:
        return plucked(0.9F, 0.62F, 4.0F, 0.15F, 0.25F);
    case I::Harp:
        return plucked(0.95F, 0.45F, 4.5F, 0.7F, 0.5F);
    case I::CleanGuitar:
        patch = plucked(0.9F, 0.5F, 5.0F, 0.3F, 0.45F);
        patch.chorus = 0.5F;
        patch.echo = 0.3F;
        return patch;
    default:
        patch = plucked(0.7F, 0.55F, 8.0F, 0.25F, 0.45F);
        patch.drive = 1.0F;
        patch.echo = 0.25F;
        return patch;
    }
}

Patch blownPatch(Instrument instrument)
{
    Patch patch;
    patch.vibrato = 14;
    switch (instrument) {
    case I::Flute:
        patch.wave = Wave::Flute;
        patch.level = 0.68F;
        patch.attack = 0.06F;
        patch.noise = 0.05F;
        patch.release = 0.12F;
        break;
    case I::Clarinet:
        patch.wave = Wave::Clarinet;
        patch.level = 0.66F;
        patch.attack = 0.045F;
        patch.noise = 0.01F;
        patch.cutoff = 9;
        patch.vibrato = 7;
        patch.release = 0.1F;
        break;
    case I::Violin:
    case I::Cello:
        patch.wave = Wave::Strings;
        patch.level = instrument == I::Violin ? 0.56F : 0.85F;
        patch.attack = 0.09F;
        patch.cutoff = 7;
        patch.noise = 0.012F;
        patch.vibrato = 18;
        patch.release = 0.18F;
        break;
    case I::MutedTrumpet:
        patch.wave = Wave::Brass;
        patch.level = 0.65F;
        patch.attack = 0.035F;
        patch.cutoff = 4;
        patch.sweep = 0.8F;
        patch.sweepTime = 0.15F;
        patch.release = 0.09F;
        break;
    default: // Whistle
        patch.wave = Wave::Sine;
        patch.level = 0.6F;
        patch.attack = 0.07F;
        patch.noise = 0.025F;
        patch.release = 0.2F;
        break;
    }
    patch.decay = 0.4F;
    patch.sustain = 0.85F;
    patch.reverb = 0.4F;
    return patch;
}

Patch choralPatch(Instrument instrument)
{
    Patch patch;
    patch.attack = 0.5F;
    patch.decay = 1.0F;
    patch.sustain = 0.9F;
    patch.release = 0.9F;
    patch.detune = 9;
    patch.reverb = 0.55F;
    patch.chorus = 0.6F;
    patch.vibrato = 4;
    switch (instrument) {
    case I::WarmPad:
        patch.wave = Wave::Pad;
        break;
    case I::StringSection:
        patch.wave = Wave::Strings;
        patch.cutoff = 5;
        patch.attack = 0.35F;
        patch.level = 0.8F;
        break;
    case I::Choir:
        patch.wave = Wave::Choir;
        patch.noise = 0.015F;
        patch.vibrato = 9;
        patch.attack = 0.3F;
        break;
    default: // Organ
        patch.wave = Wave::Organ;
        patch.attack = 0.015F;
        patch.release = 0.12F;
        patch.detune = 3;
        patch.reverb = 0.25F;
        patch.level = 0.7F;
        break;
    }
    return patch;
}

Patch electronicPatch(Instrument instrument)
{
    Patch patch;
    patch.wave = Wave::Saw;
    switch (instrument) {
    case I::SawLead:
        patch = {.level = 0.6F,
                 .attack = 0.02F,
                 .decay = 0.5F,
                 .sustain = 0.75F,
                 .release = 0.22F,
                 .detune = 12,
                 .cutoff = 5,
                 .sweep = 1.2F,
                 .sweepTime = 0.35F,
                 .resonance = 0.25F,
                 .vibrato = 9,
                 .reverb = 0.35F,
                 .echo = 0.4F,
                 .chorus = 0.3F};
        break;
    case I::SquareLead:
        patch = {.level = 0.6F,
                 .attack = 0.03F,
                 .decay = 0.6F,
                 .sustain = 0.7F,
                 .release = 0.3F,
                 .wave = Wave::Square,
                 .detune = 6,
                 .cutoff = 3.5F,
                 .sweep = 0.7F,
                 .sweepTime = 0.4F,
                 .vibrato = 10,
                 .reverb = 0.45F,
                 .echo = 0.4F,
                 .chorus = 0.3F};
        break;
    case I::AnalogPluck:
        patch = {.level = 0.8F,
                 .attack = 0.003F,
                 .decay = 0.28F,
                 .sustain = 0.12F,
                 .release = 0.2F,
                 .detune = 10,
                 .cutoff = 1.8F,
                 .sweep = 3.0F,
                 .sweepTime = 0.07F,
                 .resonance = 0.35F,
                 .reverb = 0.35F,
                 .echo = 0.35F,
                 .chorus = 0.25F};
        break;
    case I::SubBass:
        patch = {.level = 1.0F,
                 .attack = 0.012F,
                 .decay = 0.5F,
                 .sustain = 0.8F,
                 .release = 0.1F,
                 .wave = Wave::Clarinet,
                 .cutoff = 3,
                 .sweep = 0.6F,
                 .sweepTime = 0.1F,
                 .resonance = 0.1F,
                 .reverb = 0.03F};
        break;
    default: // SawBass
        patch = {.level = 0.85F,
                 .attack = 0.004F,
                 .decay = 0.25F,
                 .sustain = 0.5F,
                 .release = 0.06F,
                 .detune = 7,
                 .cutoff = 3,
                 .sweep = 2.2F,
                 .sweepTime = 0.09F,
                 .resonance = 0.3F,
                 .reverb = 0.05F};
        break;
    }
    return patch;
}

Patch build(Instrument instrument)
{
    if (instrument <= I::GlassBell || instrument == I::UprightBass || instrument == I::FingerBass)
        return struckPatch(instrument);
    if (instrument <= I::DriveGuitar)
        return pluckedPatch(instrument);
    if (instrument <= I::Organ)
        return choralPatch(instrument);
    if (instrument <= I::Whistle)
        return blownPatch(instrument);
    return electronicPatch(instrument);
}

} // namespace

const Patch& patchOf(Instrument instrument)
{
    static const std::vector<Patch> patches = [] {
        std::vector<Patch> list;
        list.reserve(static_cast<std::size_t>(I::count));
        for (int i = 0; i < static_cast<int>(I::count); ++i)
            list.push_back(build(static_cast<Instrument>(i)));
        return list;
    }();
    return patches.at(static_cast<std::size_t>(instrument));
}

} // namespace zib::demo
