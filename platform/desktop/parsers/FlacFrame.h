// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioTypes.h"

#include <cstdint>
#include <optional>
#include <span>

namespace zib {

/// What the STREAMINFO block of a FLAC stream tells; the zeros of the optional fields mean unknown.
struct FlacStreamInfo {
    static constexpr std::size_t kBytes = 34;

    std::uint32_t leastBlock = 0; ///< frames (samples of each channel) of any but the last packet
    std::uint32_t mostBlock = 0;
    std::uint32_t leastFrameBytes = 0;
    std::uint32_t mostFrameBytes = 0;
    std::uint32_t sampleRate = 0;
    std::uint32_t channels = 0;
    std::uint32_t bits = 0;  ///< of a sample
    std::int64_t frames = 0; ///< of the whole stream

    /// None when the block can't be true. kBytes are needed.
    static std::optional<FlacStreamInfo> parse(std::span<const std::byte> block);

    /// The format, whose packets have so many frames.
    [[nodiscard]] AudioStreamDescription description(std::uint32_t framesPerPacket) const;
    /// What a packet without any compression has, which no encoder goes beyond.
    [[nodiscard]] std::uint32_t largestFrameBytes() const;
    /// A size that no packet reaches: the one that the stream claims, unless its first packet denies that.
    [[nodiscard]] std::uint32_t packetBound(std::size_t firstPacketBytes) const;
};

/// The beginning of a frame as FLAC has it: a packet.
struct FlacFrameHeader {
    static constexpr std::size_t kMostBytes = 16;

    std::size_t bytes = 0; ///< of the header itself
    bool variableBlocks = false;
    std::uint32_t blockFrames = 0; ///< frames (samples of each channel) of this packet
    std::uint32_t assignment = 0;  ///< how channels are coded
    std::uint64_t number = 0;      ///< of the packet, or of its first sample where blocks vary

    /// None when no frame of that stream begins there, or when bytes are missing; kMostBytes always do.
    static std::optional<FlacFrameHeader> parse(std::span<const std::byte> bytes, const FlacStreamInfo& info);

    /// The number that the next frame's header has.
    [[nodiscard]] std::uint64_t nextNumber() const { return number + (variableBlocks ? blockFrames : 1); }
    /// The frame's first sample.
    [[nodiscard]] std::int64_t firstFrame(const FlacStreamInfo& info) const;
};

/// Where the frame that begins these bytes ends by its contents, in bytes from its beginning; none when they
/// break a rule or go beyond the bytes.
[[nodiscard]] std::optional<std::size_t>
flacFrameBytes(std::span<const std::byte> frame, const FlacFrameHeader& header, const FlacStreamInfo& info);

} // namespace zib
