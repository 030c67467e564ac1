// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/Id3v2.h"

#include <cstring>

namespace zib {

std::optional<std::int64_t> id3v2TagBytes(std::span<const std::byte> bytes)
{
    constexpr std::byte kHasFooter{0x10};
    constexpr std::byte kNever{0xff}; // in either byte of the version
    if (bytes.size() < kId3v2HeaderBytes || std::memcmp(bytes.data(), "ID3", 3) != 0 || bytes[3] == kNever ||
        bytes[4] == kNever)
        return std::nullopt;
    std::int64_t size = 0;
    for (std::size_t i = 6; i < kId3v2HeaderBytes; ++i) {
        if ((bytes[i] & std::byte{0x80}) != std::byte{0})
            return std::nullopt; // seven bits a byte, so that no length looks like a frame's sync word
        size = size << 7 | std::to_integer<std::int64_t>(bytes[i]);
    }
    const bool footer = (bytes[5] & kHasFooter) != std::byte{0};
    return static_cast<std::int64_t>(kId3v2HeaderBytes) * (footer ? 2 : 1) + size;
}

} // namespace zib
