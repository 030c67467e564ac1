// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FormatParser.h"

#include <array>
#include <optional>

namespace zib {

/// How a stream of AAC is coded, as its AudioSpecificConfig (ISO 14496-3) tells.
struct AacConfig {
    /// By their index in headers.
    static constexpr std::array<std::uint32_t, 13> kSampleRates{
        96000, 88200, 64000, 48000, 44100, 32000, 24000, 22050, 16000, 12000, 11025, 8000, 7350};
    /// By the channel configuration; 0 where none is told.
    static constexpr std::array<std::uint32_t, 16> kChannels{0, 1, 2, 3, 4, 5, 6, 8, 0, 0, 0, 7, 8, 24, 8, 0};

    std::uint32_t sampleRate = 0; ///< of the AAC itself
    std::uint32_t channels = 0;
    std::uint32_t framesPerPacket = 1024;
    std::uint32_t extendedRate = 0; ///< of HE-AAC, where it is told that the stream is such; else 0
    bool parametricStereo = false;  ///< HE-AAC v2: one coded channel is heard as two

    /// None when it is broken or of a kind that is not AAC.
    static std::optional<AacConfig> parse(std::span<const std::byte> config);

    /// As plain AAC.
    [[nodiscard]] AudioStreamDescription description() const;
    /// The format, the format list with HE-AAC first, and no cookie.
    [[nodiscard]] AudioFileProperties properties() const;
    /// The largest packet that the standard allows: 6144 bits a channel.
    [[nodiscard]] std::uint32_t largestPacket() const { return 6144 / 8 * channels; }
};

/// An AudioSpecificConfig for the fields of an ADTS header. Its channels are told by the program config
/// element that begins the frame where channelConfiguration is 0; empty when it has none.
[[nodiscard]] std::vector<std::byte> aacConfigOf(std::uint32_t objectType, std::uint32_t sampleRateIndex,
                                                 std::uint32_t channelConfiguration,
                                                 std::span<const std::byte> frame);

} // namespace zib
