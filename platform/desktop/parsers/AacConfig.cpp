// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/AacConfig.h"

#include "platform/desktop/parsers/BitReader.h"

#include <utility>

namespace zib {

namespace {

constexpr std::uint32_t kSpectralBandReplication = 5;
constexpr std::uint32_t kParametricStereo = 29;
constexpr std::uint32_t kHighestSampleRate = 192'000;

class BitWriter {
  public:
    void write(std::uint32_t value, unsigned bits)
    {
        for (; bits > 0; --bits, ++place_) {
            if (place_ % 8 == 0)
                bytes_.push_back(std::byte{0});
            bytes_.back() |= static_cast<std::byte>((value >> (bits - 1) & 1U) << (7 - place_ % 8));
        }
    }
    [[nodiscard]] std::vector<std::byte> bytes() && { return std::move(bytes_); }

  private:
    std::vector<std::byte> bytes_;
    std::size_t place_ = 0;
};

std::uint32_t readObjectType(BitReader& bits)
{
    constexpr std::uint32_t kEscape = 31;
    const std::uint32_t type = bits.read(5);
    return type == kEscape ? 32 + bits.read(6) : type;
}

/// 0 when it is no rate.
std::uint32_t readSampleRate(BitReader& bits)
{
    constexpr std::uint32_t kEscape = 15;
    const std::uint32_t index = bits.read(4);
    if (index == kEscape) {
        const std::uint32_t rate = bits.read(24);
        return rate <= kHighestSampleRate ? rate : 0;
    }
    return index < AacConfig::kSampleRates.size() ? AacConfig::kSampleRates.at(index) : 0;
}

/// Reads a program config element up to its comment; the number of channels in it.
std::uint32_t readProgramConfig(BitReader& bits)
{
    bits.skip(4 + 2 + 4);                                                    // tag, object type, sample rate
    const std::uint32_t placed = bits.read(4) + bits.read(4) + bits.read(4); // front, side, back
    const std::uint32_t lowFrequency = bits.read(2);
    const std::uint32_t associated = bits.read(3);
    const std::uint32_t coupling = bits.read(4);
    for (const unsigned mixdownBits : {4U, 4U, 3U}) {
        if (bits.flag())
            bits.skip(mixdownBits);
    }
    std::uint32_t channels = lowFrequency;
    for (std::uint32_t i = 0; i < placed; ++i) {
        channels += bits.flag() ? 2 : 1;
        bits.skip(4);
    }
    bits.skip(std::size_t{lowFrequency} * 4 + std::size_t{associated} * 4 + std::size_t{coupling} * 5);
    return channels;
}

/// Reads what follows the sample rate for the kinds of AAC that there are; whether it is one of them.
bool readGeneralConfig(BitReader& bits, std::uint32_t objectType, std::uint32_t channelConfiguration,
                       AacConfig& config)
{
    constexpr std::uint32_t kMain = 1;
    constexpr std::uint32_t kLongTermPrediction = 4;
    if (objectType < kMain || objectType > kLongTermPrediction)
        return false;
    config.framesPerPacket = bits.flag() ? 960 : 1024;
    if (bits.flag())
        bits.skip(14); // delay of the core coder
    bits.skip(1);      // extension, of error-resilient kinds only
    config.channels = AacConfig::kChannels.at(channelConfiguration);
    if (channelConfiguration == 0) {
        config.channels = readProgramConfig(bits);
        bits.align();
        bits.skip(std::size_t{bits.read(8)} * 8); // comment
    }
    return config.channels > 0 && !bits.overrun();
}

/// HE-AAC that decoders of plain AAC need not know of is told after all that they read.
void readExtension(BitReader& bits, AacConfig& config)
{
    constexpr std::uint32_t kSbrSync = 0x2b7;
    constexpr std::uint32_t kPsSync = 0x548;
    if (bits.left() < 16 || bits.read(11) != kSbrSync || readObjectType(bits) != kSpectralBandReplication ||
        !bits.flag())
        return;
    config.extendedRate = readSampleRate(bits);
    if (bits.left() >= 12 && bits.read(11) == kPsSync)
        config.parametricStereo = bits.flag();
}

} // namespace

std::optional<AacConfig> AacConfig::parse(std::span<const std::byte> config)
{
    BitReader bits(config);
    AacConfig parsed;
    std::uint32_t objectType = readObjectType(bits);
    parsed.sampleRate = readSampleRate(bits);
    const std::uint32_t channelConfiguration = bits.read(4);
    const bool extended = objectType == kSpectralBandReplication || objectType == kParametricStereo;
    if (extended) {
        parsed.parametricStereo = objectType == kParametricStereo;
        parsed.extendedRate = readSampleRate(bits);
        objectType = readObjectType(bits);
    }
    if (parsed.sampleRate == 0 || !readGeneralConfig(bits, objectType, channelConfiguration, parsed))
        return std::nullopt;
    if (!extended)
        readExtension(bits, parsed);
    return parsed;
}

AudioStreamDescription AacConfig::description() const
{
    AudioStreamDescription format;
    format.sampleRate = sampleRate;
    format.formatId = audioformat::Aac;
    format.framesPerPacket = framesPerPacket;
    format.channelsPerFrame = channels;
    return format;
}

AudioFileProperties AacConfig::properties() const
{
    AudioFileProperties properties;
    properties.format = description();
    if (extendedRate == 0)
        return properties;
    AudioStreamDescription extended = description();
    extended.formatId = audioformat::HeAac;
    extended.sampleRate = extendedRate;
    // As many milliseconds as the packet has in plain AAC: twice the samples, unless the rate is the same.
    extended.framesPerPacket = extendedRate > sampleRate ? 2 * framesPerPacket : framesPerPacket;
    if (parametricStereo)
        extended.channelsPerFrame = 2;
    properties.formatList = {{extended, 0, 0}, {description(), 0, 0}};
    return properties;
}

std::vector<std::byte> aacConfigOf(std::uint32_t objectType, std::uint32_t sampleRateIndex,
                                   std::uint32_t channelConfiguration, std::span<const std::byte> frame)
{
    constexpr std::uint32_t kProgramConfigElement = 5;
    BitWriter config;
    config.write(objectType, 5);
    config.write(sampleRateIndex, 4);
    config.write(channelConfiguration, 4);
    config.write(0, 3); // 1024 samples, no core coder, no extension
    if (channelConfiguration != 0)
        return std::move(config).bytes();

    BitReader element(frame);
    if (element.read(3) != kProgramConfigElement)
        return {};
    BitReader copied = element;
    readProgramConfig(element);
    if (element.overrun())
        return {};
    while (copied.place() < element.place())
        config.write(copied.read(1), 1);
    auto bytes = std::move(config).bytes();
    bytes.push_back(std::byte{0}); // no comment
    return bytes;
}

} // namespace zib
