// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/LeadingTag.h"

#include "platform/desktop/parsers/ByteReader.h"

namespace zib {

namespace {

std::optional<std::int64_t> id3v2TagBytes(std::span<const std::byte> bytes)
{
    constexpr std::size_t kHeaderBytes = 10;
    constexpr std::byte kHasFooter{0x10};
    constexpr std::byte kNever{0xff}; // in either byte of the version
    if (!startsWith(bytes, "ID3") || bytes[3] == kNever || bytes[4] == kNever)
        return std::nullopt;
    std::int64_t size = 0;
    for (std::size_t i = 6; i < kHeaderBytes; ++i) {
        if ((bytes[i] & std::byte{0x80}) != std::byte{0})
            return std::nullopt; // seven bits a byte, so that no length looks like a frame's sync word
        size = size << 7 | std::to_integer<std::int64_t>(bytes[i]);
    }
    const bool footer = (bytes[5] & kHasFooter) != std::byte{0};
    return static_cast<std::int64_t>(kHeaderBytes) * (footer ? 2 : 1) + size;
}

std::optional<std::int64_t> apeTagBytes(std::span<const std::byte> bytes)
{
    constexpr std::int64_t kHeaderBytes = 32;
    if (!startsWith(bytes, "APETAGEX"))
        return std::nullopt;
    return kHeaderBytes + littleEndian32(bytes.subspan(12)); // the footer counts among the items
}

} // namespace

std::optional<std::int64_t> leadingTagBytes(std::span<const std::byte> bytes)
{
    if (bytes.size() < kLeadingTagHeaderBytes)
        return std::nullopt;
    const auto id3v2 = id3v2TagBytes(bytes);
    return id3v2 ? id3v2 : apeTagBytes(bytes);
}

} // namespace zib
