// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace zib {

/// The bytes that begin every frame of AAC in an audio data transport stream (ISO 13818-7, 14496-3).
struct AdtsHeader {
    static constexpr std::size_t kBytes = 7; ///< without the checksum
    static constexpr std::size_t kLargestFrame = 0x1fff;

    bool checked = false;         ///< a checksum stands before the audio
    std::uint32_t objectType = 0; ///< as in an AudioSpecificConfig: 1 to 4
    std::uint32_t sampleRateIndex = 0;
    std::uint32_t channelConfiguration = 0; ///< 0: a program config element in the audio tells
    std::uint32_t frameBytes = 0;           ///< this header included
    std::uint32_t blocks = 1;               ///< raw data blocks in the frame, 1 to 4

    /// None when these are not the first bytes of a frame.
    static std::optional<AdtsHeader> parse(std::span<const std::byte> bytes);

    /// The header, the places of the blocks and the checksum.
    [[nodiscard]] std::size_t headerBytes() const;
    /// The same in all headers that can belong to one stream.
    [[nodiscard]] std::uint32_t streamCode() const;
};

} // namespace zib
