// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zib::demo {

// The C library's functions differ in the last bit between processors, and a song must be the same
// everywhere: these use nothing but additions and multiplications of IEEE doubles.

/// The sine of `turns` whole turns.
double sineOfTurns(double turns);

/// Two to the power of `exponent`.
double powerOfTwo(double exponent);

/// The factor that `decibels` stand for.
double fromDecibels(double decibels);

/// e to the power of `exponent`.
double exponential(double exponent);

/// A smooth odd curve through the origin with slope 1 that never leaves -1…1.
inline float softClip(float value)
{
    if (value > 3.0F)
        return 1.0F;
    if (value < -3.0F)
        return -1.0F;
    const float square = value * value;
    return value * (27.0F + square) / (27.0F + 9.0F * square);
}

} // namespace zib::demo
