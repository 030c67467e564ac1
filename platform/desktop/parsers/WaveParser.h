// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/ConstantPackets.h"
#include "platform/desktop/parsers/FieldReader.h"

namespace zib {

/// Frames WAVE files of linear PCM (integers of 8 to 32 bits, floats), A-law and mu-law. Packets come without
/// descriptions.
class WaveParser : public FormatParser {
  public:
    /// @param startOffset the byte of the file that the first byte fed is: that of "RIFF".
    WaveParser(ParserOutput& output, std::int64_t startOffset);

    AudioStatus parse(std::span<const std::byte> bytes, bool discontinuous) override;
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) override;

  private:
    enum class State { FileHeader, ChunkHeader, Format, Data };

    AudioStatus fieldGathered();
    AudioStatus chunkHeaderGathered();
    AudioStatus readFormat();
    void beginData(std::uint32_t size);

    State state_ = State::FileHeader;
    FieldReader fields_;
    std::int64_t formatExtra_ = 0; ///< bytes of the format chunk beyond what is read of it
    std::optional<AudioStreamDescription> format_;
    ConstantPackets packets_;
};

} // namespace zib
