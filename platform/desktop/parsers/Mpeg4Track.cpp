// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/Mpeg4Track.h"

#include "platform/desktop/parsers/ByteReader.h"

namespace zib {

namespace {

// The sizes of eight million samples: two days of AAC.
constexpr std::size_t kLargestTable = std::size_t{32} << 20;
constexpr std::size_t kLargestDescription = std::size_t{64} << 10;

} // namespace

Mpeg4BoxReader::Treatment Mpeg4Track::treatmentOf(std::uint32_t type, std::uint32_t parent) const
{
    using Handling = Mpeg4BoxReader::Handling;
    struct Known {
        std::uint32_t parent;
        std::uint32_t type;
        Mpeg4BoxReader::Treatment treatment;
    };
    constexpr auto kTable = fourCharacters("stbl");
    constexpr Known kKnown[] = {
        {fourCharacters("trak"), fourCharacters("tkhd"), {Handling::Gather, 24}},
        {fourCharacters("trak"), fourCharacters("mdia"), {Handling::Enter}},
        {fourCharacters("mdia"), fourCharacters("mdhd"), {Handling::Gather, 24}},
        {fourCharacters("mdia"), fourCharacters("hdlr"), {Handling::Gather, 12}},
        {fourCharacters("mdia"), fourCharacters("minf"), {Handling::Enter}},
        {fourCharacters("minf"), kTable, {Handling::Enter}},
        {kTable, fourCharacters("stsd"), {Handling::Gather, kLargestDescription}},
        {kTable, fourCharacters("stts"), {Handling::Gather, 16}},
        {kTable, fourCharacters("stsz"), {Handling::Gather, kLargestTable}},
        {kTable, fourCharacters("stz2"), {Handling::Gather, kLargestTable}},
        {kTable, fourCharacters("stsc"), {Handling::Gather, kLargestTable}},
        {kTable, fourCharacters("stco"), {Handling::Gather, kLargestTable}},
        {kTable, fourCharacters("co64"), {Handling::Gather, kLargestTable}},
    };
    if (parent == fourCharacters("minf") && !sound_.value_or(true))
        return {}; // the tables of a film are large
    for (const Known& known : kKnown) {
        if (known.parent == parent && known.type == type)
            return known.treatment;
    }
    return {};
}

void Mpeg4Track::read(std::uint32_t type, std::span<const std::byte> body)
{
    switch (type) {
    case fourCharacters("tkhd"):
        if (body.size() == 24) {
            enabled_ = (body[3] & std::byte{1}) != std::byte{0};
            id_ = bigEndian32(body.subspan(body[0] == std::byte{0} ? 12 : 20));
        }
        break;
    case fourCharacters("mdhd"):
        if (body.size() == 24)
            timeScale_ = bigEndian32(body.subspan(body[0] == std::byte{0} ? 12 : 20));
        break;
    case fourCharacters("hdlr"):
        sound_ = body.size() == 12 && startsWith(body.subspan(8), "soun");
        break;
    case fourCharacters("stsd"):
        descriptionBody_.assign(body.begin(), body.end());
        break;
    case fourCharacters("stts"):
        if (body.size() == 16)
            firstDuration_ = bigEndian32(body.subspan(12));
        break;
    case fourCharacters("stsz"):
        table_.readSizes(body);
        break;
    case fourCharacters("stz2"):
        table_.readCompactSizes(body);
        break;
    case fourCharacters("stsc"):
        table_.readChunkLengths(body);
        break;
    case fourCharacters("stco"):
        table_.readChunkOffsets(body, 4);
        break;
    case fourCharacters("co64"):
        table_.readChunkOffsets(body, 8);
        break;
    default:
        break;
    }
}

bool Mpeg4Track::isPlayable()
{
    description_ = Mpeg4SampleDescription::parse(descriptionBody_, firstDuration_);
    return isSound() && description_.has_value();
}

} // namespace zib
