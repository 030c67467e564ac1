// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/MpegHeader.h"

#include <array>

namespace zib {

namespace {

using RateTable = std::array<std::uint16_t, 16>;

// kbit/s by the header's index; 0 marks free format and the forbidden index.
constexpr RateTable kVersion1Layer1{0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448, 0};
constexpr RateTable kVersion1Layer2{0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, 0};
constexpr RateTable kVersion1Layer3{0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0};
constexpr RateTable kVersion2Layer1{0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256, 0};
constexpr RateTable kVersion2Layer23{0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0};

constexpr std::uint32_t kLargestRateIndex = 14;

const RateTable& bitRates(int layer, bool lowSampleRates)
{
    if (lowSampleRates)
        return layer == 1 ? kVersion2Layer1 : kVersion2Layer23;
    return layer == 1 ? kVersion1Layer1 : layer == 2 ? kVersion1Layer2 : kVersion1Layer3;
}

} // namespace

std::optional<MpegHeader> MpegHeader::parse(std::span<const std::byte> bytes)
{
    if (bytes.size() < kBytes || bytes[0] != std::byte{0xff})
        return std::nullopt;
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < kBytes; ++i)
        word = word << 8 | std::to_integer<std::uint32_t>(bytes[i]);

    const std::uint32_t version = word >> 19 & 3; // 0: 2.5, 1: reserved, 2: 2, 3: 1
    const std::uint32_t layerCode = word >> 17 & 3;
    const std::uint32_t rateIndex = word >> 12 & 15;
    const std::uint32_t sampleRateIndex = word >> 10 & 3;
    const std::uint32_t mode = word >> 6 & 3;
    constexpr std::uint32_t kMono = 3;
    constexpr std::uint32_t kReservedEmphasis = 2;
    if (word >> 21 != 0x7ff || version == 1 || layerCode == 0 || sampleRateIndex == 3 ||
        (word & 3) == kReservedEmphasis)
        return std::nullopt;

    MpegHeader header;
    header.layer = 4 - static_cast<int>(layerCode);
    header.lowSampleRates = version != 3;
    header.bitRate = bitRates(header.layer, header.lowSampleRates).at(rateIndex) * 1000U;
    if (header.bitRate == 0)
        return std::nullopt;
    constexpr std::array<std::uint32_t, 3> kSampleRates{44100, 48000, 32000};
    header.sampleRate = kSampleRates.at(sampleRateIndex) >> (version == 3 ? 0 : version == 2 ? 1 : 2);
    header.channels = mode == kMono ? 1 : 2;
    header.padded = (word >> 9 & 1) != 0;
    return header;
}

std::uint32_t MpegHeader::framesPerPacket() const
{
    if (layer == 1)
        return 384;
    return layer == 3 && lowSampleRates ? 576 : 1152;
}

std::uint32_t MpegHeader::frameBytes(std::uint32_t rate, bool padding) const
{
    const std::uint32_t slotBytes = layer == 1 ? 4 : 1;
    const std::uint32_t slots = framesPerPacket() / 8 / slotBytes * rate / sampleRate + (padding ? 1 : 0);
    return slots * slotBytes;
}

std::uint32_t MpegHeader::largestFrame() const
{
    return frameBytes(bitRates(layer, lowSampleRates).at(kLargestRateIndex) * 1000U, true);
}

std::int64_t MpegHeader::constantRateOffset(std::int64_t index) const
{
    // Encoders pad just enough frames to keep the running total at the exact rate.
    const std::int64_t slotBytes = layer == 1 ? 4 : 1;
    const std::int64_t slotsTimesSampleRate = framesPerPacket() / 8 / slotBytes * std::int64_t{bitRate};
    return index * slotsTimesSampleRate / sampleRate * slotBytes;
}

std::size_t MpegHeader::sideInfoBytes() const
{
    if (lowSampleRates)
        return channels == 1 ? 9 : 17;
    return channels == 1 ? 17 : 32;
}

std::uint32_t MpegHeader::streamCode() const
{
    return sampleRate << 4 | channels << 2 | static_cast<std::uint32_t>(layer - 1);
}

AudioStreamDescription MpegHeader::description() const
{
    AudioStreamDescription format;
    format.sampleRate = sampleRate;
    format.formatId = layer == 1   ? audioformat::MpegLayer1
                      : layer == 2 ? audioformat::MpegLayer2
                                   : audioformat::MpegLayer3;
    format.framesPerPacket = framesPerPacket();
    format.channelsPerFrame = channels;
    return format;
}

} // namespace zib
