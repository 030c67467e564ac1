// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FormatParser.h"

#include <array>

namespace zib {

/// Frames WAVE files of linear PCM: integers of 8 to 32 bits and floats. Packets come without descriptions.
class WaveParser : public FormatParser {
  public:
    /// @param startOffset the byte of the file that the first byte fed is: that of "RIFF".
    WaveParser(ParserOutput& output, std::int64_t startOffset);

    AudioStatus parse(std::span<const std::byte> bytes, bool discontinuous) override;
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) override;

  private:
    enum class State { FileHeader, ChunkHeader, Format, Data };

    AudioStatus readHeaders(std::span<const std::byte>& bytes);
    AudioStatus fieldGathered();
    AudioStatus chunkHeaderGathered();
    AudioStatus readFormat();
    void gather(State state, std::size_t bytes);
    void beginData(std::uint32_t size);
    void pushData(std::span<const std::byte> bytes);
    void emitPackets(std::span<const std::byte> bytes);
    void emitCarried();

    ParserOutput& output_;
    State state_ = State::FileHeader;
    std::int64_t offset_; ///< byte of the file that comes next while headers are read
    std::array<std::byte, 40> field_{};
    std::size_t fieldBytes_ = 0;
    std::size_t fieldWanted_ = 12;
    std::int64_t skip_ = 0; ///< bytes of the current chunk that say nothing to us

    std::int64_t formatExtra_ = 0; ///< bytes of the format chunk beyond what is read of it

    std::optional<AudioStreamDescription> format_;
    std::int64_t dataOffset_ = 0;
    std::optional<std::int64_t> dataBytes_; ///< none when the file does not tell
    std::int64_t remaining_ = 0;            ///< bytes of audio still expected
    std::optional<std::int64_t> seekOffset_;
    bool announced_ = false;
    bool deliveredSinceBreak_ = false;

    std::size_t pieceBytes_ = 0;   ///< what is handed on at once: whole packets
    std::vector<std::byte> carry_; ///< less than a piece
};

} // namespace zib
