// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FormatParser.h"

namespace zib {

/// Hands on audio whose packets all have the size that its format tells, without descriptions, in pieces that
/// fill a reader's buffers well; and knows where its packets are.
class ConstantPackets {
  public:
    /// A larger packet does not fit into a reader's buffer.
    static constexpr std::uint32_t kLargestPacket = 2048;

    explicit ConstantPackets(ParserOutput& output);

    /// The audio comes from now on.
    /// @param format its packets are of 1 to kLargestPacket bytes.
    /// @param dataOffset the byte of the file that it begins at.
    /// @param dataBytes its length; none, or beyond the file's end, when the file does not tell.
    void begin(const AudioStreamDescription& format, std::int64_t dataOffset,
               std::optional<std::int64_t> dataBytes);
    /// As FormatParser::parse; what follows the audio is left alone.
    void parse(std::span<const std::byte> bytes, bool discontinuous);
    /// As AudioFileStream::seek, always exact. A packet beyond the last one is the last one: refused, a
    /// reader would go to a place of its own reckoning, and samples cut in the wrong place are noise.
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated);

  private:
    void emitPackets(std::span<const std::byte> bytes);
    void emitCarried();

    ParserOutput& output_;
    std::optional<AudioStreamDescription> format_; ///< none before the audio begins
    std::int64_t dataOffset_ = 0;
    std::optional<std::int64_t> dataBytes_; ///< whole packets
    std::int64_t remaining_ = 0;            ///< bytes of audio still expected
    bool announced_ = false;
    bool deliveredSinceBreak_ = false;

    std::size_t pieceBytes_ = 0;   ///< what is handed on at once: whole packets
    std::vector<std::byte> carry_; ///< less than a piece
};

} // namespace zib
