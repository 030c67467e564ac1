// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/MpegInfoFrame.h"

#include "platform/desktop/parsers/ByteReader.h"

#include <algorithm>
#include <cmath>

namespace zib {

namespace {

/// The packet before which the bytes of such an entry were counted. The common encoders count after every so
/// manieth packet only: they fill a table of 400 and, when it is full, keep every other entry.
double packetOfEntry(std::size_t entry, std::uint32_t packets)
{
    constexpr std::uint32_t kCounts = 400;
    std::uint32_t step = 1;
    while (packets / step >= kCounts)
        step *= 2;
    return (std::floor(static_cast<double>(entry * (packets / step)) / 100) + 1) * step;
}

/// A hundred places at even times, each in 256ths of the file and rounded down.
/// @param counted whether the times are those of packetOfEntry
PlaceCurve evenPlaces(std::span<const std::byte> table, std::uint32_t packets, double fileBytes, bool counted)
{
    constexpr double kUnits = 256;
    // Not even a last hundredth that is loud after silence takes half of the file: some programs leave zeros.
    constexpr std::byte kLeastLast{128};
    PlaceCurve places;
    if (!std::ranges::is_sorted(table) || table.back() < kLeastLast)
        return places;
    const auto packetOf = [&](std::size_t entry) {
        return counted ? packetOfEntry(entry, packets)
                       : static_cast<double>(entry) / static_cast<double>(table.size()) * packets;
    };
    places.add(0, 0);
    for (std::size_t i = 1; i < table.size(); ++i) {
        // Quiet music stays at one figure for long: only where it changes is it known well, which is half-way
        // between the two times, at the middle of what the two may have been before rounding.
        if (table[i] == table[i - 1])
            continue;
        const double units = std::to_integer<int>(table[i - 1]) + std::to_integer<int>(table[i]) + 1;
        const double before = i > 1 ? packetOf(i - 1) : 0;
        places.add((before + packetOf(i)) / 2, units / 2 / kUnits * fileBytes);
    }
    places.add(packets, fileBytes);
    return places;
}

std::optional<MpegInfoFrame> parseXing(std::span<const std::byte> tag)
{
    constexpr std::uint32_t kHasPackets = 1;
    constexpr std::uint32_t kHasBytes = 2;
    constexpr std::uint32_t kHasPlaces = 4;
    constexpr std::uint32_t kHasQuality = 8;
    constexpr std::size_t kPlaces = 100;
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
    if ((flags & kHasBytes) != 0) {
        info.fileBytes = bigEndian32(tag.subspan(place));
        place += 4;
    }
    if ((flags & kHasPlaces) == 0 || !info.packets || !info.fileBytes || tag.size() < place + kPlaces)
        return info;
    const auto encoder =
        tag.subspan(std::min(tag.size(), place + kPlaces + ((flags & kHasQuality) != 0 ? 4 : 0)));
    const bool counted = startsWith(encoder, "LAME") || startsWith(encoder, "Lav");
    info.places = evenPlaces(tag.subspan(place, kPlaces), *info.packets, *info.fileBytes, counted);
    return info;
}

/// The sizes of spans of so many packets each, which begins the places at the first.
PlaceCurve placesOfSpans(std::span<const std::byte> tag, double fileBytes)
{
    constexpr std::size_t kTable = 26;
    const std::size_t count = bigEndian16(tag.subspan(18));
    const double scale = bigEndian16(tag.subspan(20));
    const std::size_t entryBytes = bigEndian16(tag.subspan(22));
    const double spanPackets = bigEndian16(tag.subspan(24));
    PlaceCurve places;
    if (entryBytes < 1 || entryBytes > 4 || count > (tag.size() - kTable) / entryBytes)
        return places;
    double place = 0;
    places.add(0, 0);
    for (std::size_t i = 0; i < count; ++i) {
        place += scale * static_cast<double>(bigEndian(tag.subspan(kTable + i * entryBytes, entryBytes)));
        places.add(static_cast<double>(i + 1) * spanPackets, place);
    }
    // A table of another file, or of none.
    constexpr double kTolerance = 0.1;
    return std::abs(place - fileBytes) <= kTolerance * fileBytes ? places : PlaceCurve();
}

std::optional<MpegInfoFrame> parseVbri(std::span<const std::byte> tag)
{
    constexpr std::size_t kHeaderBytes = 26;
    if (!startsWith(tag, "VBRI") || tag.size() < kHeaderBytes)
        return std::nullopt;
    MpegInfoFrame info;
    info.fileBytes = bigEndian32(tag.subspan(10));
    info.packets = bigEndian32(tag.subspan(14));
    info.places = placesOfSpans(tag, *info.fileBytes);
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
