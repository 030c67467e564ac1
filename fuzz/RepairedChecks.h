// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/ByteReader.h"
#include "platform/desktop/parsers/Crc.h"
#include "platform/desktop/parsers/FlacFrame.h"

#include <vector>

// Mutated bytes have wrong checks, and what is behind a check would never be reached. These make them right.
namespace zib {

inline void repairOggChecks(std::span<std::byte> file)
{
    constexpr std::size_t kHeader = 27;
    constexpr std::size_t kCrc = 22;
    for (std::size_t at = 0; at + kHeader <= file.size(); ++at) {
        const auto rest = file.subspan(at);
        if (!startsWith(rest, "OggS"))
            continue;
        std::size_t size = kHeader + std::to_integer<std::size_t>(rest[kHeader - 1]);
        for (std::size_t i = kHeader, end = std::min(size, rest.size()); i < end; ++i)
            size += std::to_integer<std::size_t>(rest[i]);
        if (size > rest.size())
            continue;
        std::fill_n(rest.begin() + kCrc, 4, std::byte{0});
        const std::uint32_t crc = OggPageCrc::of(rest.first(size));
        for (std::size_t i = 0; i < 4; ++i)
            rest[kCrc + i] = static_cast<std::byte>(crc >> 8 * i);
        at += size - 1;
    }
}

inline void repairFlacChecks(std::span<std::byte> file)
{
    constexpr std::size_t kInfo = 8;
    const auto info = startsWith(file, "fLaC") && file.size() >= kInfo + FlacStreamInfo::kBytes
                          ? FlacStreamInfo::parse(file.subspan(kInfo))
                          : std::nullopt;
    for (std::size_t at = kInfo; info && at + FlacFrameHeader::kMostBytes < file.size(); ++at) {
        const auto rest = file.subspan(at);
        if (rest[0] != std::byte{0xff} || (rest[1] | std::byte{1}) != std::byte{0xf9})
            continue;
        for (std::size_t crc = 5; crc < FlacFrameHeader::kMostBytes; ++crc) {
            const std::byte before = rest[crc];
            rest[crc] = std::byte{FlacHeaderCrc::of(rest.first(crc))};
            const auto header = FlacFrameHeader::parse(rest, *info);
            if (!header || header->bytes != crc + 1) {
                rest[crc] = before;
                continue;
            }
            if (const auto size = flacFrameBytes(rest, *header, *info)) {
                const std::uint16_t check = FlacFrameCrc::of(rest.first(*size - 2));
                rest[*size - 2] = static_cast<std::byte>(check >> 8);
                rest[*size - 1] = static_cast<std::byte>(check & 0xff);
                at += *size - 1;
            }
            break;
        }
    }
}

} // namespace zib
