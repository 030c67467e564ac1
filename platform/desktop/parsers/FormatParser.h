// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioFileStream.h"

#include <optional>

namespace zib {

/// The bytes are of no audio file that is known here.
inline constexpr auto kUnsupportedFileType = static_cast<AudioStatus>(fourCharacters("typ?"));
/// The file is of a known type, but its audio is coded in a way that is not.
inline constexpr auto kUnsupportedDataFormat = static_cast<AudioStatus>(fourCharacters("fmt?"));
/// The file contradicts itself.
inline constexpr auto kInvalidFile = static_cast<AudioStatus>(fourCharacters("dta?"));
/// The file tells how its audio is to be taken apart only after more of it than can be held.
inline constexpr auto kIndexTooLate = static_cast<AudioStatus>(fourCharacters("optm"));
/// The property is not known, or not yet.
inline constexpr auto kUnknownProperty = static_cast<AudioStatus>(fourCharacters("pty?"));
/// No packet of that number can be found.
inline constexpr auto kIllegalPacket = static_cast<AudioStatus>(fourCharacters("pck?"));

/// What a format parser knows of its file; the meanings are those of AudioFileStream.
struct AudioFileProperties {
    std::optional<AudioStreamDescription> format;
    std::vector<AudioFormatListItem> formatList;
    std::optional<std::int64_t> dataOffset;
    std::optional<std::uint64_t> audioDataByteCount;
    std::optional<std::uint32_t> packetSizeUpperBound;
    std::optional<std::uint32_t> maximumPacketSize;
    std::vector<std::byte> magicCookie;
};

/// Takes what a format parser finds.
class ParserOutput {
  public:
    virtual ~ParserOutput() = default;
    /// Publishes the properties; called once, right before the first packets and in the same parse call.
    /// Readers mark the bytes after it as discontinuous until packets come, so a gap between the two would
    /// throw bytes away.
    virtual void announce(AudioFileProperties properties) = 0;
    virtual void packets(std::span<const std::byte> bytes, std::uint32_t packetCount,
                         std::span<const AudioPacketDescription> descriptions) = 0;
};

/// The framing of one file format, fed from where the file's leading tags end.
class FormatParser {
  public:
    virtual ~FormatParser() = default;
    /// As AudioFileStream::parseBytes. Readers repeat the discontinuity with each piece until packets come
    /// again, so a repeated one is still the same and keeps the bytes gathered since.
    virtual AudioStatus parse(std::span<const std::byte> bytes, bool discontinuous) = 0;
    /// As AudioFileStream::seek.
    virtual AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) = 0;
};

} // namespace zib
