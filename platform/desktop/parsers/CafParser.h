// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/CafPacketTable.h"
#include "platform/desktop/parsers/ConstantPackets.h"
#include "platform/desktop/parsers/FieldReader.h"
#include "platform/desktop/parsers/HeldAudio.h"
#include "platform/desktop/parsers/SizedPackets.h"

namespace zib {

/// Frames Core Audio files: samples, linear or on a curve, and IMA 4:1 come without descriptions; AAC, Apple
/// Lossless, Opus and MPEG audio with them. Where the table of the packets' sizes stands behind the audio,
/// the audio is held until it comes.
class CafParser : public FormatParser {
  public:
    /// @param startOffset the byte of the file that the first byte fed is: that of "caff".
    CafParser(ParserOutput& output, std::int64_t startOffset);

    AudioStatus parse(std::span<const std::byte> bytes, bool discontinuous) override;
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) override;

  private:
    enum class State {
        FileHeader,
        ChunkHeader,
        Description,
        Cookie,
        TableHeader,
        Table,
        EditCount,
        Held,
        Data
    };

    AudioStatus fieldGathered();
    AudioStatus chunkHeaderGathered();
    AudioStatus readDescription();
    AudioStatus readCookie();
    AudioStatus beginAudio();
    void nextChunk(std::int64_t skipBytes);
    AudioStatus readTable(std::span<const std::byte>& bytes);
    AudioStatus hold(std::span<const std::byte>& bytes);
    [[nodiscard]] bool constantPackets() const { return format_->bytesPerPacket > 0; }
    [[nodiscard]] bool complete() const;
    void beginSizedPackets();

    State state_ = State::FileHeader;
    FieldReader fields_;
    std::int64_t chunkLeft_ = 0; ///< bytes of the chunk that is being read still to come
    bool toEnd_ = false;         ///< the audio ends with the file

    std::optional<AudioStreamDescription> format_;
    std::vector<std::byte> cookie_;
    CafPacketTable table_;
    bool tableRead_ = false;
    std::optional<std::int64_t> dataOffset_; ///< none before the audio came
    std::optional<std::int64_t> dataBytes_;  ///< none when the file does not tell
    HeldAudio held_;
    ConstantPackets constant_;
    SizedPackets sized_;
};

} // namespace zib
