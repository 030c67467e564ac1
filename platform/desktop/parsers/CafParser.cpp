// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/CafParser.h"

#include "platform/desktop/parsers/AacConfig.h"
#include "platform/desktop/parsers/ByteReader.h"
#include "platform/desktop/parsers/EsDescriptor.h"
#include "platform/desktop/parsers/SampleFormat.h"

#include <bit>

namespace zib {

namespace {

constexpr std::size_t kFileHeaderBytes = 8;
constexpr std::size_t kChunkHeaderBytes = 12;
constexpr std::size_t kDescriptionBytes = 32;
constexpr std::size_t kEditCountBytes = 4;
constexpr std::int64_t kLongestCookie = std::int64_t{64} * 1024;
constexpr std::int64_t kToEnd = -1;

std::optional<AudioStreamDescription> linearFormat(double sampleRate, std::uint32_t channels,
                                                   std::uint32_t packetBytes, std::uint32_t cafFlags)
{
    constexpr std::uint32_t kCafFloat = 1;
    constexpr std::uint32_t kCafLittleEndian = 2;
    std::uint32_t flags = (cafFlags & kCafFloat) != 0 ? audioformat::IsFloat : audioformat::IsSignedInteger;
    if ((cafFlags & kCafLittleEndian) == 0)
        flags |= audioformat::IsBigEndian;
    const std::uint32_t sampleBytes =
        channels > 0 && packetBytes % channels == 0 ? packetBytes / channels : 0;
    return sampleformat::linear(sampleRate, channels, sampleBytes, flags);
}

/// Formats of packets whose sizes vary.
std::optional<AudioStreamDescription> codedFormat(double sampleRate, std::uint32_t channels,
                                                  std::uint32_t formatId, std::uint32_t packetFrames)
{
    constexpr std::uint32_t kMostFrames = 64 * 1024;
    if (!sampleformat::plausible(sampleRate, channels) || packetFrames == 0 || packetFrames > kMostFrames)
        return std::nullopt;
    AudioStreamDescription format;
    format.sampleRate = sampleRate;
    format.formatId = formatId;
    format.framesPerPacket = packetFrames;
    format.channelsPerFrame = channels;
    return format;
}

bool isAac(const AudioStreamDescription& format)
{
    return format.formatId == audioformat::Aac || format.formatId == audioformat::HeAac;
}

bool needsCookie(const AudioStreamDescription& format)
{
    return isAac(format) || format.formatId == audioformat::AppleLossless;
}

/// The configuration in a cookie for Apple Lossless: bare, or in the boxes "frma" and "alac" as older
/// programs write it.
std::span<const std::byte> losslessConfiguration(std::span<const std::byte> cookie)
{
    constexpr std::size_t kConfigurationBytes = 24;
    constexpr std::size_t kBoxBytes = 12; // of "frma" the whole box, of "alac" its header
    const auto boxed = [&](const char* name) {
        return cookie.size() >= kBoxBytes && startsWith(cookie.subspan(4), name);
    };
    for (const char* name : {"frma", "alac"}) {
        if (boxed(name))
            cookie = cookie.subspan(kBoxBytes);
    }
    return cookie.first(cookie.size() >= kConfigurationBytes ? kConfigurationBytes : 0);
}

/// The configuration in a cookie for AAC: in a descriptor, or bare.
std::span<const std::byte> aacConfiguration(std::span<const std::byte> cookie)
{
    const auto descriptor = EsDescriptor::parse(cookie);
    return descriptor ? descriptor->decoderConfiguration : cookie;
}

} // namespace

CafParser::CafParser(ParserOutput& output, std::int64_t startOffset)
    : fields_(startOffset)
    , constant_(output)
    , sized_(output)
{
    fields_.want(kFileHeaderBytes);
}

AudioStatus CafParser::parse(std::span<const std::byte> bytes, bool discontinuous)
{
    while (state_ != State::Data) {
        if (bytes.empty())
            return kAudioOk;
        AudioStatus status = kAudioOk;
        if (state_ == State::Held)
            status = hold(bytes);
        else if (state_ == State::Table)
            status = readTable(bytes);
        else if (fields_.take(bytes))
            status = fieldGathered();
        if (status != kAudioOk)
            return status;
    }
    if (constantPackets())
        constant_.parse(bytes, discontinuous);
    else
        sized_.parse(bytes, discontinuous);
    return kAudioOk;
}

void CafParser::nextChunk(std::int64_t skipBytes)
{
    state_ = State::ChunkHeader;
    fields_.want(kChunkHeaderBytes, skipBytes);
}

AudioStatus CafParser::fieldGathered()
{
    switch (state_) {
    case State::FileHeader:
        nextChunk(0);
        return kAudioOk;
    case State::ChunkHeader:
        return chunkHeaderGathered();
    case State::Description:
        return readDescription();
    case State::Cookie:
        return readCookie();
    case State::TableHeader:
        table_.readHeader(fields_.field());
        state_ = State::Table;
        return kAudioOk;
    case State::EditCount:
        return beginAudio();
    case State::Table:
    case State::Held:
    case State::Data:
        break;
    }
    return kAudioOk;
}

AudioStatus CafParser::chunkHeaderGathered()
{
    const auto header = fields_.field();
    chunkLeft_ = static_cast<std::int64_t>(bigEndian64(header.subspan(4)));
    const auto begin = [&](State state, std::size_t bytes) {
        state_ = state;
        fields_.want(bytes);
        chunkLeft_ -= static_cast<std::int64_t>(bytes);
        return chunkLeft_ >= 0 ? kAudioOk : kInvalidFile;
    };
    if (startsWith(header, "data") && !dataOffset_) {
        toEnd_ = chunkLeft_ == kToEnd;
        const AudioStatus status = begin(State::EditCount, kEditCountBytes);
        return toEnd_ ? kAudioOk : status;
    }
    if (chunkLeft_ < 0)
        return kInvalidFile;
    if (startsWith(header, "desc") && !format_)
        return begin(State::Description, kDescriptionBytes);
    if (startsWith(header, "kuki") && chunkLeft_ <= kLongestCookie)
        return begin(State::Cookie, static_cast<std::size_t>(chunkLeft_));
    if (startsWith(header, "pakt") && !tableRead_)
        return begin(State::TableHeader, CafPacketTable::kHeaderBytes);
    nextChunk(chunkLeft_);
    return kAudioOk;
}

AudioStatus CafParser::readDescription()
{
    const auto field = fields_.field();
    const auto sampleRate = std::bit_cast<double>(bigEndian64(field));
    std::uint32_t formatId = bigEndian32(field.subspan(8));
    const std::uint32_t flags = bigEndian32(field.subspan(12));
    const std::uint32_t packetBytes = bigEndian32(field.subspan(16));
    const std::uint32_t packetFrames = bigEndian32(field.subspan(20));
    const std::uint32_t channels = bigEndian32(field.subspan(24));
    if (formatId == fourCharacters("aacp")) // HE-AAC in its second version
        formatId = audioformat::HeAac;
    switch (formatId) {
    case audioformat::LinearPcm:
        format_ = linearFormat(sampleRate, channels, packetBytes, flags);
        break;
    case audioformat::MuLaw:
    case audioformat::ALaw:
        format_ = sampleformat::companded(sampleRate, channels, formatId);
        break;
    case audioformat::Ima4:
        format_ = sampleformat::ima4(sampleRate, channels);
        break;
    case audioformat::Aac:
    case audioformat::HeAac:
    case audioformat::AppleLossless:
    case audioformat::Opus:
    case audioformat::MpegLayer1:
    case audioformat::MpegLayer2:
    case audioformat::MpegLayer3:
        if (packetBytes != 0) // then there is no table, and no program writes that
            return kUnsupportedDataFormat;
        format_ = codedFormat(sampleRate, channels, formatId, packetFrames);
        break;
    default:
        return kUnsupportedDataFormat;
    }
    nextChunk(chunkLeft_);
    return format_ ? kAudioOk : kInvalidFile;
}

AudioStatus CafParser::readCookie()
{
    if (!format_)
        return kInvalidFile; // the description is the first chunk
    std::span<const std::byte> cookie = fields_.field();
    if (format_->formatId == audioformat::AppleLossless)
        cookie = losslessConfiguration(cookie);
    else if (isAac(*format_))
        cookie = aacConfiguration(cookie);
    if (isAac(*format_) && !AacConfig::parse(cookie))
        return kUnsupportedDataFormat;
    cookie_.assign(cookie.begin(), cookie.end());
    nextChunk(0);
    if (complete() && dataOffset_)
        beginSizedPackets();
    return kAudioOk;
}

AudioStatus CafParser::readTable(std::span<const std::byte>& bytes)
{
    const auto taken = fields_.takeSome(bytes, chunkLeft_);
    chunkLeft_ -= std::ssize(taken);
    if (const AudioStatus status = table_.read(taken); status != kAudioOk)
        return status;
    if (chunkLeft_ > 0)
        return kAudioOk;
    tableRead_ = true;
    nextChunk(0);
    if (dataOffset_ && complete())
        beginSizedPackets();
    return kAudioOk;
}

/// Whether all has come that must be known before a packet can be handed on.
bool CafParser::complete() const
{
    return tableRead_ && (!needsCookie(*format_) || !cookie_.empty());
}

AudioStatus CafParser::beginAudio()
{
    if (!format_)
        return kInvalidFile;
    dataOffset_ = fields_.offset();
    if (!toEnd_)
        dataBytes_ = chunkLeft_;
    if (constantPackets()) {
        state_ = State::Data;
        constant_.begin(*format_, *dataOffset_, dataBytes_);
    } else if (complete()) {
        beginSizedPackets();
    } else if (toEnd_) {
        return kInvalidFile; // what is missing can't follow
    } else {
        state_ = State::Held;
    }
    return kAudioOk;
}

AudioStatus CafParser::hold(std::span<const std::byte>& bytes)
{
    const auto taken = fields_.takeSome(bytes, chunkLeft_);
    if (!held_.hold(taken))
        return kIndexTooLate;
    chunkLeft_ -= std::ssize(taken);
    if (chunkLeft_ == 0)
        nextChunk(0);
    return kAudioOk;
}

void CafParser::beginSizedPackets()
{
    state_ = State::Data;
    AudioFileProperties properties;
    properties.format = format_;
    if (isAac(*format_)) // which of the two kinds the description names differs from program to program
        properties = AacConfig::parse(cookie_)->properties();
    properties.dataOffset = dataOffset_;
    properties.magicCookie = cookie_;
    if (dataBytes_)
        properties.audioDataByteCount = static_cast<std::uint64_t>(*dataBytes_);
    sized_.begin(std::move(properties), table_.takeSizes());
    sized_.parse(held_.bytes(), false);
    held_.release();
}

AudioStatus CafParser::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated)
{
    if (state_ != State::Data)
        return kIllegalPacket;
    return constantPackets() ? constant_.seek(packet, byteOffset, estimated)
                             : sized_.seek(packet, byteOffset, estimated);
}

} // namespace zib
