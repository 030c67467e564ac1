// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/ConstantPackets.h"
#include "platform/desktop/parsers/FieldReader.h"
#include "platform/desktop/parsers/HeldAudio.h"

namespace zib {

/// Frames AIFF files and AIFF-C files of samples, linear or on a curve, and of IMA 4:1. Packets come without
/// descriptions. Audio that comes before its format is held until that comes.
class AiffParser : public FormatParser {
  public:
    /// @param startOffset the byte of the file that the first byte fed is: that of "FORM".
    AiffParser(ParserOutput& output, std::int64_t startOffset);

    AudioStatus parse(std::span<const std::byte> bytes, bool discontinuous) override;
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) override;

  private:
    enum class State { FileHeader, ChunkHeader, Common, Sound, SoundGap, Held, Data };

    AudioStatus fieldGathered();
    AudioStatus chunkHeaderGathered();
    AudioStatus readCommon();
    AudioStatus readSound();
    AudioStatus beginSound();
    void nextChunk(std::int64_t skipBytes);
    AudioStatus hold(std::span<const std::byte>& bytes);
    void beginData();

    State state_ = State::FileHeader;
    FieldReader fields_;
    bool compressible_ = false;    ///< an AIFF-C file, which names its coding
    std::uint32_t chunkBytes_ = 0; ///< of the chunk that is being read

    std::optional<AudioStreamDescription> format_;
    std::int64_t packetCount_ = 0; ///< 0 when the file does not tell
    std::int64_t dataOffset_ = 0;
    std::optional<std::int64_t> dataBytes_; ///< none when the file does not tell
    HeldAudio held_;
    ConstantPackets packets_;
};

} // namespace zib
