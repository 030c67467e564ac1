// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Effects.h"

#include "catalogue/demo/Loudness.h"
#include "catalogue/demo/Maths.h"
#include "catalogue/demo/Random.h"
#include "catalogue/demo/Wavetables.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zib::demo {
namespace {

constexpr double wantedLoudness = -17.0; // LUFS
constexpr float ceiling = 0.8F;          // -1.9 dBFS: lossy coding may add a little to a peak
constexpr std::size_t stretch = 64;      // the limiter's gain moves once in so many frames

void takeAwayRumble(std::vector<float>& samples)
{
    const auto pole = static_cast<float>(1.0 - 6.283 * 22.0 / sampleRate);
    float in = 0;
    float out = 0;
    for (float& sample : samples) {
        out = pole * out + sample - in + 1.0e-18F;
        in = sample;
        sample = out;
    }
}

/// An old tape: soft highs, rounded peaks, a little dust.
void warm(Stereo& song, float warmth)
{
    Random random(7);
    const float open = 1.0F - 0.5F * warmth;
    std::array<float, 2> soft{};
    float dust = 0;
    for (std::size_t i = 0; i < song.frames(); ++i) {
        if (random.chance(0.00005F * warmth))
            dust = random.between(-0.02F, 0.02F);
        dust *= 0.8F;
        const float hiss = 0.0007F * warmth * random.between(-1, 1) + dust;
        soft[0] += open * (song.left[i] + hiss - soft[0]);
        soft[1] += open * (song.right[i] + hiss - soft[1]);
        song.left[i] = softClip(soft[0]);
        song.right[i] = softClip(soft[1]);
    }
}

/// Looks ahead, so that the gain is down before the peak comes; no sample ends above the ceiling.
void limit(Stereo& song, float gain)
{
    const std::size_t count = (song.frames() + stretch - 1) / stretch;
    std::vector<float> gains(count + 1, gain);
    for (std::size_t b = 0; b < count; ++b) {
        float peak = 0;
        for (std::size_t i = b * stretch; i < std::min(song.frames(), (b + 1) * stretch); ++i)
            peak = std::max({peak, std::abs(song.left[i]), std::abs(song.right[i])});
        if (peak * gain > ceiling)
            gains[b] = ceiling / peak;
    }
    gains[count] = count > 0 ? gains[count - 1] : gain;
    for (std::size_t b = 1; b <= count; ++b)
        gains[b] = std::min(gains[b], gains[b - 1] * 1.006F);
    for (std::size_t b = count; b-- > 0;)
        gains[b] = std::min(gains[b], gains[b + 1] * 1.18F);
    for (std::size_t b = 0; b < count; ++b) {
        const float from = b == 0 ? gains[0] : std::min(gains[b - 1], gains[b]);
        const float step = (std::min(gains[b], gains[b + 1]) - from) / static_cast<float>(stretch);
        float now = from;
        for (std::size_t i = b * stretch; i < std::min(song.frames(), (b + 1) * stretch); ++i) {
            song.left[i] *= now;
            song.right[i] *= now;
            now += step;
        }
    }
}

void fadeOut(std::vector<float>& samples)
{
    const std::size_t length = std::min<std::size_t>(samples.size(), sampleRate * 8 / 5);
    for (std::size_t i = 0; i < length; ++i) {
        const float rest = static_cast<float>(i) / static_cast<float>(length);
        samples[samples.size() - 1 - i] *= rest * (2.0F - rest);
    }
}

} // namespace

void master(Stereo& song, float warmth)
{
    takeAwayRumble(song.left);
    takeAwayRumble(song.right);
    if (warmth > 0)
        warm(song, warmth);
    fadeOut(song.left);
    fadeOut(song.right);
    limit(song, static_cast<float>(fromDecibels(wantedLoudness - loudnessOf(song))));
}

} // namespace zib::demo
