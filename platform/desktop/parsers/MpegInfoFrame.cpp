// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/MpegInfoFrame.h"

#include "platform/desktop/parsers/ByteReader.h"

namespace zib {

namespace {

std::optional<MpegInfoFrame> parseXing(std::span<const std::byte> tag)
{
    constexpr std::uint32_t kHasPackets = 1;
    constexpr std::uint32_t kHasBytes = 2;
    const bool constantRate = startsWith(tag, "Info");
    if (!(constantRate || startsWith(tag, "Xing")) || tag.size() < 16)
        return std::nullopt;
    MpegInfoFrame info;
    info.constantRate = constantRate;
    const std::uint32_t flags = bigEndian32(tag.subspan(4));
    std::size_t place = 8;
    if ((flags & kHasPackets) != 0) {
        info.packets = bigEndian32(tag.subspan(place));
        place += 4;
    }
    if ((flags & kHasBytes) != 0)
        info.fileBytes = bigEndian32(tag.subspan(place));
    return info;
}

std::optional<MpegInfoFrame> parseVbri(std::span<const std::byte> tag)
{
    if (!startsWith(tag, "VBRI") || tag.size() < 18)
        return std::nullopt;
    MpegInfoFrame info;
    info.fileBytes = bigEndian32(tag.subspan(10));
    info.packets = bigEndian32(tag.subspan(14));
    return info;
}

} // namespace

std::optional<MpegInfoFrame> MpegInfoFrame::parse(const MpegHeader& header, std::span<const std::byte> frame)
{
    constexpr std::size_t kVbriPlace = MpegHeader::kBytes + 32; // whatever the number of channels
    const std::size_t xingPlace = MpegHeader::kBytes + header.sideInfoBytes();
    if (header.layer != 3)
        return std::nullopt;
    if (frame.size() > xingPlace) {
        if (auto info = parseXing(frame.subspan(xingPlace)))
            return info;
    }
    return frame.size() > kVbriPlace ? parseVbri(frame.subspan(kVbriPlace)) : std::nullopt;
}

} // namespace zib
