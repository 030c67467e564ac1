// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioTypes.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace zib {

/// What one kind of audio puts into the packets of an Ogg file.
class OggCodec {
  public:
    virtual ~OggCodec() = default;
    /// The codec that the first packet of a stream announces; null for what is not known or not audio.
    static std::unique_ptr<OggCodec> identify(std::span<const std::byte> packet);

    /// Whether the headers are complete, and packets are audio.
    [[nodiscard]] virtual bool ready() const = 0;
    /// As many bytes of the next header packet as are looked at; the rest needs not be kept.
    [[nodiscard]] virtual std::size_t headerBytesWanted() const { return 0; }
    /// Takes the next header packet. False when it can't be one.
    virtual bool takeHeader(std::span<const std::byte> /*bytes*/, std::size_t /*packetBytes*/)
    {
        return false;
    }

    /// The format but for the frames of a packet, once ready.
    [[nodiscard]] virtual AudioStreamDescription format() const = 0;
    /// As AudioFileStream::magicCookie has it.
    [[nodiscard]] virtual std::vector<std::byte> cookie() const = 0;
    /// What of its headers a decoder depends on: the packets of a stream where it is the same can follow.
    [[nodiscard]] virtual std::vector<std::byte> signature() const = 0;

    /// The frames (samples of each channel) that the packet adds to the audio; 0 when it is not audio.
    [[nodiscard]] virtual std::uint32_t frames(std::span<const std::byte> packet) = 0;
    /// The next packet does not follow the previous one.
    virtual void forgetPrevious() {}
    /// What packets can be at most, to bound what is kept of them.
    [[nodiscard]] virtual std::size_t mostPacketBytes() const = 0;
    /// A size that no packet of a real encoder reaches, given the largest of the first second or so.
    [[nodiscard]] virtual std::uint32_t packetBound(std::size_t largestSoFar) const = 0;
};

} // namespace zib
