// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Maths.h"

#include <cmath>
#include <numbers>

namespace zib::demo {

double sineOfTurns(double turns)
{
    double phase = turns - std::floor(turns); // 0…1
    const double sign = phase < 0.5 ? 1.0 : -1.0;
    if (phase >= 0.5)
        phase -= 0.5;
    if (phase > 0.25)
        phase = 0.5 - phase;
    const double x = phase * 2.0 * std::numbers::pi;
    const double square = x * x;
    double term = x;
    double sum = x;
    for (int n = 1; n <= 9; ++n) {
        term *= -square / static_cast<double>((2 * n) * (2 * n + 1));
        sum += term;
    }
    return sign * sum;
}

double powerOfTwo(double exponent)
{
    const double whole = std::floor(exponent);
    const double x = (exponent - whole) * std::numbers::ln2;
    double term = 1.0;
    double sum = 1.0;
    for (int n = 1; n <= 16; ++n) {
        term *= x / static_cast<double>(n);
        sum += term;
    }
    return std::ldexp(sum, static_cast<int>(whole));
}

double fromDecibels(double decibels)
{
    return powerOfTwo(decibels / 6.020599913279624);
}

double exponential(double exponent)
{
    return powerOfTwo(exponent * std::numbers::log2e);
}

} // namespace zib::demo
