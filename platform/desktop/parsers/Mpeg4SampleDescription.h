// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FormatParser.h"

namespace zib {

/// How the samples of an audio track are coded.
struct Mpeg4SampleDescription {
    /// The format, the format list and the magic cookie.
    AudioFileProperties properties;
    /// What a sample is not larger than when no table tells: by the standard or by the sound uncoded.
    std::uint32_t largestSample = 0;

    /// Reads the body of an "stsd" box: AAC, Apple Lossless, MPEG audio, FLAC or Opus. None when it is broken
    /// or another coding.
    /// @param sampleFrames the duration of the first sample, where the time scale is the sample rate; else 0.
    [[nodiscard]] static std::optional<Mpeg4SampleDescription> parse(std::span<const std::byte> body,
                                                                     std::uint32_t sampleFrames);
};

} // namespace zib
