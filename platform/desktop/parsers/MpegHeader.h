// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioTypes.h"

#include <optional>
#include <span>

namespace zib {

/// The four bytes that begin every frame of MPEG audio (ISO 11172-3 and 13818-3, and the unofficial version
/// 2.5 for low sample rates). Free-format frames are not taken: their length can't be known.
struct MpegHeader {
    static constexpr std::size_t kBytes = 4;

    int layer = 0;                ///< 1 to 3
    bool lowSampleRates = false;  ///< versions 2 and 2.5
    std::uint32_t sampleRate = 0; ///< frames (in the sense of samples) a second
    std::uint32_t bitRate = 0;    ///< bits a second
    std::uint32_t channels = 0;
    bool padded = false;

    /// None when these are not the first bytes of a frame.
    static std::optional<MpegHeader> parse(std::span<const std::byte> bytes);

    /// Samples of each channel in the frame.
    [[nodiscard]] std::uint32_t framesPerPacket() const;
    [[nodiscard]] std::uint32_t frameBytes() const { return frameBytes(bitRate, padded); }
    /// The largest frame of this bit rate.
    [[nodiscard]] std::uint32_t largestFrameOfRate() const { return frameBytes(bitRate, true); }
    /// The largest frame that a stream of this version, layer and sample rate can have.
    [[nodiscard]] std::uint32_t largestFrame() const;
    /// Where frame number index begins in a stream of this bit rate throughout, in bytes from its start.
    [[nodiscard]] std::int64_t constantRateOffset(std::int64_t index) const;
    /// Bytes after the header that an info frame leaves zero: the side information of layer III.
    [[nodiscard]] std::size_t sideInfoBytes() const;
    /// The same in all headers that can belong to one stream.
    [[nodiscard]] std::uint32_t streamCode() const;
    [[nodiscard]] AudioStreamDescription description() const;

  private:
    [[nodiscard]] std::uint32_t frameBytes(std::uint32_t rate, bool padding) const;
};

} // namespace zib
