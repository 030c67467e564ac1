// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Loudness.h"

#include "catalogue/demo/Maths.h"
#include "catalogue/demo/Wavetables.h"

#include <algorithm>

namespace zib::demo {
namespace {

struct Biquad {
    float b0, b1, b2, a1, a2;
    float z1 = 0, z2 = 0;

    float operator()(float in)
    {
        const float out = b0 * in + z1;
        z1 = b1 * in - a1 * out + z2;
        z2 = b2 * in - a2 * out;
        return out;
    }
};

/// Adds the weighted power of each hop of a tenth of a second.
void addPower(const std::vector<float>& samples, std::size_t hop, std::vector<double>& power)
{
    // The ear's weighting of ITU-R BS.1770 at 44.1 kHz: a shelf for the head, a high pass for the lows.
    Biquad shelf{1.5308412F, -2.6509800F, 1.1690790F, -1.6636551F, 0.7125954F};
    Biquad high{1.0F, -2.0F, 1.0F, -1.9891696F, 0.9891990F};
    for (std::size_t i = 0; i < power.size(); ++i) {
        float sum = 0;
        for (std::size_t n = i * hop; n < (i + 1) * hop; ++n) {
            const float weighted = high(shelf(samples[n] + 1.0e-18F));
            sum += weighted * weighted;
        }
        power[i] += sum / static_cast<float>(hop);
    }
}

double mean(const std::vector<double>& power, double gate)
{
    double sum = 0;
    int count = 0;
    for (const double value : power)
        if (value > gate) {
            sum += value;
            ++count;
        }
    return count > 0 ? sum / count : 0;
}

/// Ten times the decimal logarithm without the C library's rounding: bisection against a series of powers.
double decibelsOf(double power)
{
    double decibels = 0;
    double low = -100;
    double high = 20;
    for (int i = 0; i < 50; ++i) {
        decibels = (low + high) / 2;
        const double amplitude = fromDecibels(decibels);
        (amplitude * amplitude > power ? high : low) = decibels;
    }
    return decibels;
}

} // namespace

double loudnessOf(const Stereo& song)
{
    const std::size_t hop = sampleRate / 10;
    std::vector<double> power(song.frames() / hop);
    addPower(song.left, hop, power);
    addPower(song.right, hop, power);
    const double all = mean(power, 1.0e-7);
    const double loud = mean(power, all * 0.1);
    return loud > 0 ? -0.691 + decibelsOf(loud) : -100;
}

} // namespace zib::demo
