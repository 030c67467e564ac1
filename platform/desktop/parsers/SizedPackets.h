// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FormatParser.h"

namespace zib {

/// Frames audio whose packets follow each other without gaps and whose sizes a table of the file tells.
class SizedPackets {
  public:
    /// Readers make buffers that hold the largest packet; a file may claim any.
    static constexpr std::uint32_t kLargestPacket = 1024 * 1024;

    explicit SizedPackets(ParserOutput& output)
        : output_(output)
    {
    }

    /// The audio comes from now on.
    /// @param properties all but those of the packets' sizes.
    /// @param sizes none of them above kLargestPacket.
    void begin(AudioFileProperties properties, std::vector<std::uint32_t> sizes);
    /// As FormatParser::parse; what follows the last packet is left alone.
    void parse(std::span<const std::byte> bytes, bool discontinuous);
    /// As AudioFileStream::seek, always exact. A packet beyond the last one is the last one: a listener who
    /// drags to the very end hears it.
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated);

  private:
    void emitWhole(std::span<const std::byte>& bytes);
    void emitBatch(std::span<const std::byte> bytes);

    ParserOutput& output_;
    AudioFileProperties properties_;
    std::vector<std::uint32_t> sizes_;
    std::size_t next_ = 0; ///< the packet that the coming bytes are of
    bool announced_ = false;
    bool deliveredSinceBreak_ = false;
    std::vector<std::byte> carry_; ///< the beginning of the next packet
    std::vector<AudioPacketDescription> batch_;
};

} // namespace zib
