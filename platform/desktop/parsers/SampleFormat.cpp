// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/SampleFormat.h"

namespace zib::sampleformat {

bool plausible(double sampleRate, std::uint32_t channels)
{
    constexpr std::uint32_t kMostChannels = 32;
    constexpr double kLowestSampleRate = 1;
    constexpr double kHighestSampleRate = 768'000;
    return channels >= 1 && channels <= kMostChannels && sampleRate >= kLowestSampleRate &&
           sampleRate <= kHighestSampleRate;
}

std::optional<AudioStreamDescription> linear(double sampleRate, std::uint32_t channels,
                                             std::uint32_t sampleBytes, std::uint32_t flags)
{
    const bool isFloat = (flags & audioformat::IsFloat) != 0;
    if (!plausible(sampleRate, channels) ||
        (isFloat ? sampleBytes != 4 && sampleBytes != 8 : sampleBytes < 1 || sampleBytes > 4))
        return std::nullopt;
    AudioStreamDescription format;
    format.sampleRate = sampleRate;
    format.formatId = audioformat::LinearPcm;
    format.formatFlags = audioformat::IsPacked | flags;
    format.bytesPerPacket = channels * sampleBytes;
    format.framesPerPacket = 1;
    format.bytesPerFrame = channels * sampleBytes;
    format.channelsPerFrame = channels;
    format.bitsPerChannel = sampleBytes * 8;
    return format;
}

std::optional<AudioStreamDescription> companded(double sampleRate, std::uint32_t channels,
                                                std::uint32_t formatId)
{
    if (!plausible(sampleRate, channels))
        return std::nullopt;
    AudioStreamDescription format;
    format.sampleRate = sampleRate;
    format.formatId = formatId;
    format.bytesPerPacket = channels;
    format.framesPerPacket = 1;
    format.channelsPerFrame = channels;
    return format;
}

std::optional<AudioStreamDescription> ima4(double sampleRate, std::uint32_t channels)
{
    constexpr std::uint32_t kChannelBytes = 34;
    constexpr std::uint32_t kFrames = 64;
    if (!plausible(sampleRate, channels))
        return std::nullopt;
    AudioStreamDescription format;
    format.sampleRate = sampleRate;
    format.formatId = audioformat::Ima4;
    format.bytesPerPacket = channels * kChannelBytes;
    format.framesPerPacket = kFrames;
    format.channelsPerFrame = channels;
    return format;
}

} // namespace zib::sampleformat
