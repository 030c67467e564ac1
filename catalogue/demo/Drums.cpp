// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Maths.h"
#include "catalogue/demo/Random.h"
#include "catalogue/demo/Voices.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zib::demo {
namespace {

using Samples = std::vector<float>;

std::size_t frames(double seconds)
{
    return static_cast<std::size_t>(seconds * sampleRate);
}

double fallingTo60dB(double seconds)
{
    return powerOfTwo(-9.965784284662087 / (seconds * sampleRate));
}

/// A sine whose pitch falls from `high` to `low` Hz: the skin of a drum.
void addSkin(Samples& out, double high, double low, double bend, double decay, float level)
{
    double phase = 0;
    double frequency = high;
    double gain = level;
    const double bendFactor = fallingTo60dB(bend);
    const double gainFactor = fallingTo60dB(decay);
    for (float& sample : out) {
        sample += static_cast<float>(gain * sineOfTurns(phase));
        phase += frequency / sampleRate;
        frequency = low + (frequency - low) * bendFactor;
        gain *= gainFactor;
    }
}

/// Noise between two corner frequencies (Hz), dying away.
void addNoise(Samples& out, double lowCorner, double highCorner, double decay, float level, Random& random)
{
    const auto high = static_cast<float>(std::min(1.0, 6.28 * highCorner / sampleRate));
    const auto low = static_cast<float>(std::min(1.0, 6.28 * lowCorner / sampleRate));
    const auto factor = static_cast<float>(fallingTo60dB(decay));
    std::array<float, 2> smooth{};
    std::array<float, 2> base{};
    float gain = level;
    for (float& sample : out) {
        smooth[0] += high * (random.between(-1, 1) - smooth[0]);
        smooth[1] += high * (smooth[0] - smooth[1]);
        base[0] += low * (smooth[1] - base[0]);
        const float once = smooth[1] - base[0];
        base[1] += low * (once - base[1]);
        sample += gain * (once - base[1]);
        gain *= factor;
    }
}

/// Many inharmonic partials: metal.
void addMetal(Samples& out, double frequency, double decay, float level)
{
    constexpr std::array ratios = {1.0, 1.342, 1.533, 1.876, 2.231, 2.681, 3.147};
    double position = 0;
    for (const double ratio : ratios) {
        const double turns = frequency * ratio / sampleRate;
        // A rotating pointer is cheaper than a sine a sample.
        const double factor = fallingTo60dB(decay / (1 + 0.12 * position));
        const double cosine = factor * sineOfTurns(turns + 0.25);
        const double sine = factor * sineOfTurns(turns);
        double real = level;
        double imaginary = 0;
        for (float& sample : out) {
            const double turned = real * cosine - imaginary * sine;
            imaginary = real * sine + imaginary * cosine;
            real = turned;
            sample += static_cast<float>(imaginary);
        }
        position += 1;
    }
}

Samples kick(DrumKit kit)
{
    Samples out(frames(kit == DrumKit::Electronic ? 0.45 : 0.35));
    Random random(11);
    if (kit == DrumKit::Electronic)
        addSkin(out, 210, 47, 0.14, 0.42, 1);
    else
        addSkin(out, 150, 54, 0.10, kit == DrumKit::Brushes ? 0.22 : 0.3, 1);
    addNoise(out, 300, kit == DrumKit::Dusty ? 2000 : 5000, 0.03, 0.5F, random);
    return out;
}

Samples snare(DrumKit kit)
{
    Samples out(frames(0.32));
    Random random(12);
    addSkin(out, 240, 178, 0.05, 0.16, 0.55F);
    addNoise(out, 900, kit == DrumKit::Dusty ? 5000 : 9000, kit == DrumKit::Electronic ? 0.3 : 0.22, 1.1F,
             random);
    return out;
}

Samples clap()
{
    Samples out(frames(0.3));
    Random random(13);
    for (const double start : {0.0, 0.011, 0.023}) {
        Samples burst(out.size() - frames(start));
        addNoise(burst, 900, 3500, start > 0.02 ? 0.24 : 0.03, 1, random);
        for (std::size_t i = 0; i < burst.size(); ++i)
            out[i + frames(start)] += burst[i];
    }
    return out;
}

Samples cymbal(double seconds, double frequency, float metal, float noise, std::uint64_t seed)
{
    Samples out(frames(seconds));
    Random random(seed);
    addMetal(out, frequency, seconds, metal);
    addNoise(out, 5500, 15000, seconds * 0.8, noise, random);
    return out;
}

Samples wire(double seconds, double rise, double low, double high, std::uint64_t seed)
{
    Samples out(frames(seconds));
    Random random(seed);
    addNoise(out, low, high, seconds, 1, random);
    const std::size_t swell = frames(rise);
    for (std::size_t i = 0; i < swell; ++i)
        out[i] *= static_cast<float>(i) / static_cast<float>(swell);
    return out;
}

Samples rawDrum(Drum drum, DrumKit kit)
{
    switch (drum) {
    case Drum::Kick:
        return kick(kit);
    case Drum::Snare:
        return snare(kit);
    case Drum::Rim: {
        Samples out(frames(0.07));
        addMetal(out, 780, 0.06, 0.3F);
        return out;
    }
    case Drum::ClosedHat:
        return cymbal(kit == DrumKit::Dusty ? 0.05 : 0.075, 3900, 0.1F, 1, 14);
    case Drum::OpenHat:
        return cymbal(0.32, 3900, 0.1F, 1, 15);
    case Drum::Ride:
        return cymbal(0.9, 2900, 0.2F, 0.35F, 16);
    case Drum::Crash:
        return cymbal(2.2, 2300, 0.1F, 1, 17);
    case Drum::Shaker:
        return wire(0.09, 0.02, 4000, 11000, 18);
    case Drum::Clap:
        return clap();
    case Drum::Tom: {
        Samples out(frames(0.4));
        addSkin(out, 170, 98, 0.15, 0.38, 1);
        return out;
    }
    default: // Brush
        return wire(0.24, 0.06, 1500, 7000, 19);
    }
}

} // namespace

std::vector<float> strikeDrum(Drum drum, DrumKit kit)
{
    Samples out = rawDrum(drum, kit);
    float peak = 0;
    for (const float sample : out)
        peak = std::max(peak, std::abs(sample));
    const std::size_t fade = std::min<std::size_t>(out.size(), 200);
    for (std::size_t i = 0; i < fade; ++i)
        out[out.size() - 1 - i] *= static_cast<float>(i) / static_cast<float>(fade);
    for (float& sample : out)
        sample /= peak;
    return out;
}

} // namespace zib::demo
