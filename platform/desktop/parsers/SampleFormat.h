// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioTypes.h"

#include <optional>

namespace zib {

/// Shapes of audio whose packets all have one size. None when the figures are not those of any sound: a file
/// may hold anything.
namespace sampleformat {

/// Linear samples.
/// @param flags those of linear PCM, without IsPacked.
/// @param sampleBytes of one channel; 1 to 4 for integers, 4 or 8 for floats.
[[nodiscard]] std::optional<AudioStreamDescription> linear(double sampleRate, std::uint32_t channels,
                                                           std::uint32_t sampleBytes, std::uint32_t flags);
/// A byte a sample, on a curve.
/// @param formatId audioformat::MuLaw or audioformat::ALaw.
[[nodiscard]] std::optional<AudioStreamDescription> companded(double sampleRate, std::uint32_t channels,
                                                              std::uint32_t formatId);
[[nodiscard]] std::optional<AudioStreamDescription> ima4(double sampleRate, std::uint32_t channels);

/// Whether music may have these.
[[nodiscard]] bool plausible(double sampleRate, std::uint32_t channels);

} // namespace sampleformat
} // namespace zib
