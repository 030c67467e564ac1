// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Voices.h"

#include "catalogue/demo/Maths.h"
#include "catalogue/demo/Random.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zib::demo {
namespace {

using Samples = std::vector<float>;

// Four floats that are computed at once, in the same order everywhere.
using Four = float __attribute__((vector_size(16)));

constexpr std::size_t blockSize = 32; // filters and vibrato move once a block
constexpr double silence = 1.0e-3;    // where a dying tone is no longer heard, -60 dB

double frequencyOf(int pitch)
{
    return 440.0 * powerOfTwo((pitch - 69) / 12.0);
}

std::size_t frames(double seconds)
{
    return static_cast<std::size_t>(std::max(0.0, seconds) * sampleRate);
}

/// The factor by which a tone is multiplied per sample to fall by 60 dB in `seconds`.
double decayFactor(double seconds)
{
    return powerOfTwo(-9.965784284662087 / (seconds * sampleRate));
}

/// Attack as a smooth curve, dampers at the end of the held time.
void shapeStruck(Samples& out, const Patch& patch, double held)
{
    const std::size_t rise = std::min(out.size(), std::max<std::size_t>(8, frames(patch.attack)));
    for (std::size_t i = 0; i < rise; ++i)
        out[i] *= static_cast<float>(i) / static_cast<float>(rise);
    auto factor = static_cast<float>(decayFactor(patch.release));
    float gain = 1;
    for (std::size_t i = frames(held); i < out.size(); ++i) {
        gain *= factor;
        out[i] *= gain;
    }
    const std::size_t fade = std::min<std::size_t>(out.size(), 256);
    for (std::size_t i = 0; i < fade; ++i)
        out[out.size() - 1 - i] *= static_cast<float>(i) / static_cast<float>(fade);
}

void addThump(Samples& out, float amount, double frequency, Random& random)
{
    const double corner = std::min(0.9, frequency * 5.0 / sampleRate);
    auto low = static_cast<float>(corner);
    float state = 0;
    float gain = amount * 4.0F;
    for (std::size_t i = 0; i < std::min<std::size_t>(out.size(), frames(0.06)); ++i) {
        state += low * (random.between(-1, 1) - state);
        out[i] += gain * state;
        gain *= 0.9985F;
    }
}

Samples playModal(const Patch& patch, int pitch, double held, float force, Random& random)
{
    constexpr std::size_t most = 16;
    std::array<Four, most / 4> real{};
    std::array<Four, most / 4> imaginary{};
    std::array<Four, most / 4> cosine{};
    std::array<Four, most / 4> sine{};
    const double frequency = frequencyOf(pitch);
    const double higher = (pitch - 60) / 12.0;
    const double shorter = powerOfTwo(-0.75 * higher); // high strings and bars ring less
    double longest = 0;
    for (std::size_t i = 0; i < std::min(most, patch.partials.size()); ++i) {
        const Partial& partial = patch.partials[i];
        const double turns = frequency * partial.ratio / sampleRate;
        if (turns > 0.45)
            continue;
        const double decay = std::clamp(partial.decay * shorter, 0.08, 12.0);
        longest = std::max(longest, decay);
        const double factor = decayFactor(decay);
        const double touch =
            partial.ratio > 1.5 ? powerOfTwo((force - 0.75) * std::min(4.0, 0.5 * partial.ratio)) : 1.0;
        cosine.at(i / 4)[i % 4] = static_cast<float>(factor * sineOfTurns(turns + 0.25));
        sine.at(i / 4)[i % 4] = static_cast<float>(factor * sineOfTurns(turns));
        real.at(i / 4)[i % 4] = static_cast<float>(partial.level * touch);
    }
    const std::size_t used = (std::min(most, patch.partials.size()) + 3) / 4;
    Samples out(frames(std::min(held + patch.release, longest)));
    for (float& sample : out) {
        Four sum{};
        for (std::size_t v = 0; v < used; ++v) {
            const Four turned = real[v] * cosine[v] - imaginary[v] * sine[v];
            imaginary[v] = real[v] * sine[v] + imaginary[v] * cosine[v];
            real[v] = turned;
            sum += imaginary[v];
        }
        sample = (sum[0] + sum[1]) + (sum[2] + sum[3]);
    }
    if (patch.noise > 0)
        addThump(out, patch.noise, frequency, random);
    shapeStruck(out, patch, held);
    return out;
}

/// Noise, smoothed as the finger is soft, plucked at a sixth of the string.
Samples pluckShape(std::size_t length, float bright, Random& random)
{
    Samples line(length);
    float state = 0;
    for (float& sample : line) {
        state += bright * (random.between(-1, 1) - state);
        sample = state;
    }
    const std::size_t position = std::max<std::size_t>(1, length / 6);
    Samples combed(length);
    float mean = 0;
    for (std::size_t i = 0; i < length; ++i) {
        combed[i] = line[i] - line[(i + length - position) % length];
        mean += combed[i] / static_cast<float>(length);
    }
    for (float& sample : combed)
        sample -= mean;
    return combed;
}

Samples playString(const Patch& patch, int pitch, double held, float force, Random& random)
{
    const double frequency = frequencyOf(pitch);
    const double period = sampleRate / frequency;
    const float smooth = 0.5F - 0.42F * patch.bright; // share of the sample before in the loop's low pass
    const double whole = std::floor(period - smooth - 0.2);
    const double fraction = period - smooth - whole;
    const auto allPass = static_cast<float>((1.0 - fraction) / (1.0 + fraction));
    const double ring = patch.ring * powerOfTwo(-0.6 * (pitch - 52) / 12.0);
    const auto loss = static_cast<float>(powerOfTwo(-9.965784284662087 / (ring * frequency)));
    const float bright = std::clamp(patch.bright * (0.5F + 0.9F * force), 0.08F, 0.95F);
    Samples line = pluckShape(static_cast<std::size_t>(whole), bright, random);
    Samples out(frames(std::min(held + patch.release, ring)));
    std::size_t position = 0;
    float before = 0;
    float passIn = 0;
    float passOut = 0;
    for (float& sample : out) {
        const float value = line[position];
        const float smoothed = loss * ((1.0F - smooth) * value + smooth * before);
        before = value;
        passOut = allPass * (smoothed - passOut) + passIn;
        passIn = smoothed;
        line[position] = passOut;
        position = position + 1 == line.size() ? 0 : position + 1;
        sample = value;
    }
    if (patch.noise > 0)
        addThump(out, patch.noise, frequency, random);
    shapeStruck(out, patch, held);
    return out;
}

/// A state variable filter's low pass, set once a block.
struct LowPass {
    float first = 0;
    float second = 0;
    float a1 = 0;
    float a2 = 0;
    float a3 = 0;

    void tune(double frequency, double resonance)
    {
        const double turns = std::min(frequency, 0.42 * sampleRate) / sampleRate / 2.0;
        const double g = sineOfTurns(turns) / sineOfTurns(turns + 0.25);
        const double k = 2.0 - 1.8 * resonance;
        a1 = static_cast<float>(1.0 / (1.0 + g * (g + k)));
        a2 = static_cast<float>(g) * a1;
        a3 = static_cast<float>(g) * a2;
    }

    float operator()(float in)
    {
        const float v3 = in - second;
        const float v1 = a1 * first + a2 * v3;
        const float v2 = second + a2 * first + a3 * v3;
        first = 2.0F * v1 - first;
        second = 2.0F * v2 - second;
        return v2;
    }
};

/// The loudness of a held tone over time.
class Envelope {
  public:
    Envelope(const Patch& patch, double held)
        : held_(frames(held))
        , rise_(1.0F / std::max(1.0F, patch.attack * sampleRate))
        , fall_(1.0F - static_cast<float>(decayFactor(patch.decay * 2.0)))
        , sustain_(patch.sustain)
        , release_(static_cast<float>(decayFactor(patch.release * 1.3)))
    {
    }

    float next()
    {
        if (position_++ >= held_)
            return level_ *= release_;
        if (rising_) {
            linear_ += rise_;
            rising_ = linear_ < 1.0F;
            linear_ = std::min(linear_, 1.0F);
            return level_ = linear_ * linear_ * (3.0F - 2.0F * linear_);
        }
        return level_ += fall_ * (sustain_ - level_);
    }

  private:
    std::size_t position_ = 0;
    std::size_t held_;
    float rise_;
    float fall_;
    float sustain_;
    float release_;
    float linear_ = 0;
    float level_ = 0;
    bool rising_ = true;
};

struct Oscillator {
    const float* table;
    float phase;

    void add(std::array<float, blockSize>& out, std::size_t count, float step, float gain)
    {
        for (std::size_t i = 0; i < count; ++i) {
            const auto index = static_cast<std::size_t>(phase);
            const float within = phase - static_cast<float>(index);
            out[i] += gain * (table[index] + within * (table[index + 1] - table[index]));
            phase += step;
            if (phase >= static_cast<float>(tableSize))
                phase -= static_cast<float>(tableSize);
        }
    }
};

Samples playSustained(const Patch& patch, int pitch, double held, float force, Random& random)
{
    const double frequency = frequencyOf(pitch);
    const float* table = periodOf(patch.wave, frequency * 1.02);
    Oscillator first{table, tableSize * random.unit() * 0.999F};
    Oscillator second{table, tableSize * random.unit() * 0.999F};
    const double spread = powerOfTwo(patch.detune / 2400.0);
    const auto rate = 4.6 + 0.8 * random.unit();
    Envelope envelope(patch, held);
    LowPass filter;
    float breath = 0;
    Samples out(frames(held + patch.release * 1.3));
    for (std::size_t start = 0; start < out.size(); start += blockSize) {
        const std::size_t count = std::min(blockSize, out.size() - start);
        const double time = static_cast<double>(start) / sampleRate;
        const double depth =
            patch.vibrato * std::clamp((time - 0.18) * 3.0, 0.0, 1.0); // comes in late, as a player's
        const double bend = powerOfTwo(depth * sineOfTurns(time * rate) / 1200.0);
        const double step = frequency * bend * tableSize / sampleRate;
        std::array<float, blockSize> block{};
        first.add(block, count, static_cast<float>(step * spread), patch.detune > 0 ? 0.6F : 1.0F);
        if (patch.detune > 0)
            second.add(block, count, static_cast<float>(step / spread), 0.6F);
        if (patch.cutoff > 0) {
            const double open = patch.sweep * (0.5 + force) * patch.sweepTime / (patch.sweepTime + time);
            filter.tune(frequency * patch.cutoff * (0.6 + 0.5 * force) * powerOfTwo(open), patch.resonance);
            for (std::size_t i = 0; i < count; ++i)
                block[i] = filter(block[i]);
        }
        for (std::size_t i = 0; i < count; ++i) {
            if (patch.noise > 0) {
                breath += 0.25F * (random.between(-1, 1) - breath);
                block[i] += patch.noise * breath;
            }
            out[start + i] = block[i] * envelope.next();
        }
    }
    const std::size_t fade = std::min<std::size_t>(out.size(), 512);
    for (std::size_t i = 0; i < fade; ++i)
        out[out.size() - 1 - i] *= static_cast<float>(i) / static_cast<float>(fade);
    return out;
}

/// The strength of the loudest twentieth of a second.
float strongest(const Samples& samples)
{
    const std::size_t window = sampleRate / 20;
    float best = 0;
    for (std::size_t start = 0; start < samples.size(); start += window) {
        float sum = 0;
        for (std::size_t i = start; i < std::min(samples.size(), start + window); ++i)
            sum += samples[i] * samples[i];
        best = std::max(best, sum / static_cast<float>(window));
    }
    return std::sqrt(best);
}

} // namespace

std::vector<float> playNote(const Patch& patch, int pitch, double seconds, float force)
{
    Random random(static_cast<std::uint64_t>(pitch) * 977 + static_cast<std::uint64_t>(seconds * 1000));
    Samples out;
    switch (patch.engine) {
    case Engine::Modal:
        out = playModal(patch, pitch, seconds, force, random);
        break;
    case Engine::String:
        out = playString(patch, pitch, seconds, force, random);
        break;
    case Engine::Sustained:
        out = playSustained(patch, pitch, seconds, force, random);
        break;
    }
    const float strength = strongest(out);
    const float gain = strength > static_cast<float>(silence) ? patch.level / strength : 0.0F;
    for (float& sample : out)
        sample *= gain;
    return out;
}

} // namespace zib::demo
