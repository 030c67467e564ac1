// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/AdtsHeader.h"

#include "platform/desktop/parsers/AacConfig.h"
#include "platform/desktop/parsers/BitReader.h"

namespace zib {

std::optional<AdtsHeader> AdtsHeader::parse(std::span<const std::byte> bytes)
{
    constexpr std::uint32_t kSync = 0xfff;
    BitReader bits(bytes);
    if (bytes.size() < kBytes || bytes[0] != std::byte{0xff} || bits.read(12) != kSync)
        return std::nullopt;
    bits.skip(1); // MPEG-2 or MPEG-4: it makes no difference here
    if (bits.read(2) != 0)
        return std::nullopt; // a layer: a frame of MPEG audio
    AdtsHeader header;
    header.checked = !bits.flag();
    header.objectType = bits.read(2) + 1;
    header.sampleRateIndex = bits.read(4);
    bits.skip(1);
    header.channelConfiguration = bits.read(3);
    bits.skip(4); // marks of origin and copyright
    header.frameBytes = bits.read(13);
    bits.skip(11); // the encoder's buffer
    header.blocks = bits.read(2) + 1;
    if (header.sampleRateIndex >= AacConfig::kSampleRates.size() || header.frameBytes <= header.headerBytes())
        return std::nullopt;
    return header;
}

std::size_t AdtsHeader::headerBytes() const
{
    return kBytes + (checked ? 2 * std::size_t{blocks} : 0); // two bytes for each later block's place
}

std::uint32_t AdtsHeader::streamCode() const
{
    return objectType << 8 | sampleRateIndex << 4 | channelConfiguration;
}

} // namespace zib
