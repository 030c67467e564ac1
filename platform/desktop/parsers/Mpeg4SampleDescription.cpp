// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/Mpeg4SampleDescription.h"

#include "platform/desktop/parsers/AacConfig.h"
#include "platform/desktop/parsers/ByteReader.h"
#include "platform/desktop/parsers/EsDescriptor.h"
#include "platform/desktop/parsers/SampleFormat.h"

#include <algorithm>

namespace zib {

namespace {

using Description = std::optional<Mpeg4SampleDescription>;
using Bytes = std::span<const std::byte>;

constexpr std::size_t kVersionAndFlags = 4;

/// An entry of the box, apart.
struct Entry {
    Bytes coding; ///< four letters
    std::uint32_t channels = 0;
    std::uint32_t sampleRate = 0;
    Bytes boxes; ///< what follows the fields
};

std::vector<std::byte> copyOf(Bytes bytes)
{
    return {bytes.begin(), bytes.end()};
}

/// The body of the first box of that name among these.
std::optional<Bytes> findBox(Bytes boxes, std::string_view name)
{
    constexpr std::size_t kHeaderBytes = 8;
    while (boxes.size() >= kHeaderBytes) {
        const std::size_t size = bigEndian32(boxes);
        if (size < kHeaderBytes || size > boxes.size())
            return std::nullopt;
        if (startsWith(boxes.subspan(4), name))
            return boxes.subspan(kHeaderBytes, size - kHeaderBytes);
        boxes = boxes.subspan(size);
    }
    return std::nullopt;
}

/// QuickTime files have what the decoder is told one box deeper.
std::optional<Bytes> findDecoderBox(Bytes boxes, std::string_view name)
{
    if (const auto found = findBox(boxes, name))
        return found;
    const auto wave = findBox(boxes, "wave");
    return wave ? findBox(*wave, name) : std::nullopt;
}

std::optional<Entry> firstEntry(Bytes body)
{
    constexpr std::size_t kFieldBytes = 36;
    constexpr std::size_t kBoxHeaderAt = 8; // behind version, flags and the number of entries
    if (body.size() < kBoxHeaderAt + kFieldBytes)
        return std::nullopt;
    const bool quickTime = body[0] == std::byte{0};
    body = body.subspan(kBoxHeaderAt);
    const std::size_t size = bigEndian32(body);
    if (size < kFieldBytes || size > body.size())
        return std::nullopt;
    body = body.first(size);
    Entry entry;
    entry.coding = body.subspan(4, 4);
    entry.channels = bigEndian16(body.subspan(24));
    entry.sampleRate = bigEndian16(body.subspan(32)); // 16.16
    const std::uint32_t version = quickTime ? bigEndian16(body.subspan(16)) : 0;
    const std::size_t more = version == 1 ? 16 : version == 2 ? 36 : 0;
    entry.boxes = body.subspan(std::min(kFieldBytes + more, body.size()));
    return entry;
}

AudioStreamDescription describe(std::uint32_t formatId, double sampleRate, std::uint32_t channels,
                                std::uint32_t framesPerPacket)
{
    AudioStreamDescription format;
    format.sampleRate = sampleRate;
    format.formatId = formatId;
    format.framesPerPacket = framesPerPacket;
    format.channelsPerFrame = channels;
    return format;
}

/// The description of this format; none where a figure is no music's.
Description made(const AudioStreamDescription& format, std::vector<std::byte> cookie,
                 std::uint32_t largestSample)
{
    constexpr std::uint32_t kMostFrames = 65'536;
    if (!sampleformat::plausible(format.sampleRate, format.channelsPerFrame) || format.framesPerPacket == 0 ||
        format.framesPerPacket > kMostFrames)
        return std::nullopt;
    Mpeg4SampleDescription description;
    description.properties.format = format;
    description.properties.magicCookie = std::move(cookie);
    description.largestSample = largestSample;
    return description;
}

/// A packet of lossless audio that could not be made smaller.
std::uint32_t uncoded(const AudioStreamDescription& format, std::uint32_t bits)
{
    constexpr std::uint32_t kHeaders = 1024;
    constexpr std::uint64_t kMost = std::uint64_t{1} << 19;
    const std::uint64_t bytes =
        std::uint64_t{format.framesPerPacket} * format.channelsPerFrame * ((bits + 7) / 8) + kHeaders;
    return static_cast<std::uint32_t>(std::min(bytes, kMost));
}

Description mpegAudio(const Entry& entry)
{
    constexpr std::uint32_t kHighRates = 32'000; // those of version 1 and above
    constexpr std::uint32_t kLargestFrame = 1441;
    return made(describe(audioformat::MpegLayer3, entry.sampleRate, entry.channels,
                         entry.sampleRate >= kHighRates ? 1152 : 576),
                {}, kLargestFrame);
}

Description aac(const Entry& entry, Bytes configuration)
{
    constexpr std::uint32_t kLowComplexity = 2;
    auto cookie = copyOf(configuration);
    if (cookie.empty()) { // all is as the entry says
        const auto& rates = AacConfig::kSampleRates;
        const auto rate = std::find(rates.begin(), rates.end(), entry.sampleRate) - rates.begin();
        if (rate == std::ssize(rates) || entry.channels == 0 || entry.channels > 6)
            return std::nullopt;
        cookie = aacConfigOf(kLowComplexity, static_cast<std::uint32_t>(rate), entry.channels, {});
    }
    const auto config = AacConfig::parse(cookie);
    if (!config)
        return std::nullopt;
    auto description = made(config->description(), std::move(cookie), config->largestPacket());
    if (description)
        description->properties.formatList = config->properties().formatList;
    return description;
}

Description elementaryStream(const Entry& entry)
{
    const auto box = findDecoderBox(entry.boxes, "esds");
    if (!box || box->size() < kVersionAndFlags)
        return std::nullopt;
    const auto stream = EsDescriptor::parse(box->subspan(kVersionAndFlags));
    if (!stream)
        return std::nullopt;
    switch (stream->objectType) {
    case 0x40:
    case 0x66:
    case 0x67:
    case 0x68:
        return aac(entry, stream->decoderConfiguration);
    case 0x69:
    case 0x6b:
        return mpegAudio(entry);
    default:
        return std::nullopt;
    }
}

Description appleLossless(const Entry& entry)
{
    constexpr std::size_t kConfigBytes = 24;
    constexpr std::size_t kLayoutBytes = 12;
    const auto box = findDecoderBox(entry.boxes, "alac");
    if (!box || box->size() < kVersionAndFlags + kConfigBytes)
        return std::nullopt;
    auto config = box->subspan(kVersionAndFlags);
    config = config.first(config.size() >= kConfigBytes + kLayoutBytes ? kConfigBytes + kLayoutBytes
                                                                       : kConfigBytes);
    const auto bits = std::to_integer<std::uint32_t>(config[5]);
    const auto format = describe(audioformat::AppleLossless, bigEndian32(config.subspan(20)),
                                 std::to_integer<std::uint32_t>(config[9]), bigEndian32(config));
    return made(format, copyOf(config), uncoded(format, bits));
}

Description flac(const Entry& entry)
{
    constexpr std::size_t kBlockHeader = 4;
    constexpr std::size_t kStreamInfo = 34;
    const auto box = findBox(entry.boxes, "dfLa");
    if (!box || box->size() < kVersionAndFlags + kBlockHeader + kStreamInfo)
        return std::nullopt;
    const auto info = box->subspan(kVersionAndFlags + kBlockHeader, kStreamInfo);
    const std::uint32_t packed = bigEndian32(info.subspan(10)); // rate 20, channels 3, bits 5, length
    const auto format =
        describe(audioformat::Flac, packed >> 12, (packed >> 9 & 7) + 1, bigEndian16(info.subspan(2)));
    return made(format, copyOf(info), uncoded(format, (packed >> 4 & 31) + 1));
}

Description opus(const Entry& entry, std::uint32_t sampleFrames)
{
    constexpr double kSampleRate = 48'000; // always, whatever was coded
    constexpr std::uint32_t kUsualFrames = 960;
    constexpr std::uint32_t kMostFrames = 5760;
    constexpr std::size_t kFieldBytes = 11;
    constexpr std::uint32_t kLargestOfStream = 3 * 1275 + 7;
    const auto box = findBox(entry.boxes, "dOps");
    if (!box || box->size() < kFieldBytes)
        return std::nullopt;
    // The same fields as in the packet that begins a stream in Ogg, but for the order of their bytes.
    const auto channels = (*box)[1];
    std::vector<std::byte> cookie;
    for (const char letter : std::string_view("OpusHead\x01"))
        cookie.push_back(static_cast<std::byte>(letter));
    cookie.push_back(channels);
    for (const std::size_t i : {3, 2, 7, 6, 5, 4, 9, 8})
        cookie.push_back((*box)[i]);
    cookie.insert(cookie.end(), box->begin() + 10, box->end());
    const bool told = sampleFrames > 0 && sampleFrames <= kMostFrames;
    return made(describe(audioformat::Opus, kSampleRate, std::to_integer<std::uint32_t>(channels),
                         told ? sampleFrames : kUsualFrames),
                std::move(cookie), kLargestOfStream * std::to_integer<std::uint32_t>(channels));
}

} // namespace

Description Mpeg4SampleDescription::parse(Bytes body, std::uint32_t sampleFrames)
{
    const auto entry = firstEntry(body);
    if (!entry)
        return std::nullopt;
    if (startsWith(entry->coding, "mp4a"))
        return elementaryStream(*entry);
    if (startsWith(entry->coding, "alac"))
        return appleLossless(*entry);
    if (startsWith(entry->coding, ".mp3"))
        return mpegAudio(*entry);
    if (startsWith(entry->coding, "fLaC"))
        return flac(*entry);
    if (startsWith(entry->coding, "Opus"))
        return opus(*entry, sampleFrames);
    return std::nullopt;
}

} // namespace zib
