// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/WaveParser.h"

#include "platform/desktop/parsers/ByteReader.h"
#include "platform/desktop/parsers/SampleFormat.h"

namespace zib {

namespace {

constexpr std::size_t kFileHeaderBytes = 12;
constexpr std::size_t kChunkHeaderBytes = 8;
constexpr std::size_t kShortestFormat = 16;
constexpr std::size_t kExtensibleFormat = 40;
constexpr std::uint32_t kUnknownSize = 0xffffffff;

constexpr std::uint16_t kPcm = 1;
constexpr std::uint16_t kFloat = 3;
constexpr std::uint16_t kALaw = 6;
constexpr std::uint16_t kMuLaw = 7;
constexpr std::uint16_t kExtensible = 0xfffe;

} // namespace

WaveParser::WaveParser(ParserOutput& output, std::int64_t startOffset)
    : fields_(startOffset)
    , packets_(output)
{
    fields_.want(kFileHeaderBytes);
}

AudioStatus WaveParser::parse(std::span<const std::byte> bytes, bool discontinuous)
{
    while (state_ != State::Data) {
        if (bytes.empty() || !fields_.take(bytes))
            return kAudioOk;
        if (const AudioStatus status = fieldGathered(); status != kAudioOk)
            return status;
    }
    packets_.parse(bytes, discontinuous);
    return kAudioOk;
}

AudioStatus WaveParser::fieldGathered()
{
    AudioStatus status = kAudioOk;
    if (state_ == State::ChunkHeader)
        return chunkHeaderGathered();
    if (state_ == State::Format)
        status = readFormat();
    state_ = State::ChunkHeader; // a file header told the file type, and its length is of no use
    fields_.want(kChunkHeaderBytes, formatExtra_);
    return status;
}

AudioStatus WaveParser::chunkHeaderGathered()
{
    const auto header = fields_.field();
    const std::uint32_t size = littleEndian32(header.subspan(4));
    if (startsWith(header, "data")) {
        if (!format_)
            return kInvalidFile;
        beginData(size);
        return kAudioOk;
    }
    const std::int64_t padded = std::int64_t{size} + (size & 1);
    if (!startsWith(header, "fmt ")) {
        fields_.want(kChunkHeaderBytes, padded);
        return kAudioOk;
    }
    if (size < kShortestFormat)
        return kInvalidFile;
    const std::size_t used = size >= kExtensibleFormat ? kExtensibleFormat : kShortestFormat;
    state_ = State::Format;
    fields_.want(used);
    formatExtra_ = padded - static_cast<std::int64_t>(used);
    return kAudioOk;
}

AudioStatus WaveParser::readFormat()
{
    const auto field = fields_.field();
    std::uint16_t coding = littleEndian16(field);
    const std::uint32_t channels = littleEndian16(field.subspan(2));
    const std::uint32_t sampleRate = littleEndian32(field.subspan(4));
    const std::uint32_t frameBytes = littleEndian16(field.subspan(12));
    if (coding == kExtensible && field.size() == kExtensibleFormat)
        coding = littleEndian16(field.subspan(24)); // the sub-format begins with the old code
    // Samples stand in whole bytes with their unused low bits zero, so the container is what counts.
    const std::uint32_t sampleBytes = channels > 0 && frameBytes % channels == 0 ? frameBytes / channels : 0;

    if (coding == kPcm) // samples of one byte are unsigned
        format_ = sampleformat::linear(sampleRate, channels, sampleBytes,
                                       sampleBytes > 1 ? audioformat::IsSignedInteger : 0);
    else if (coding == kFloat)
        format_ = sampleformat::linear(sampleRate, channels, sampleBytes, audioformat::IsFloat);
    else if ((coding == kALaw || coding == kMuLaw) && sampleBytes == 1)
        format_ = sampleformat::companded(sampleRate, channels,
                                          coding == kALaw ? audioformat::ALaw : audioformat::MuLaw);
    else
        return kUnsupportedDataFormat;
    return format_ ? kAudioOk : kInvalidFile;
}

void WaveParser::beginData(std::uint32_t size)
{
    state_ = State::Data;
    // Programs that write to a pipe can't come back to fill the length in.
    const bool told = size != 0 && size != kUnknownSize;
    packets_.begin(*format_, fields_.offset(), told ? std::optional<std::int64_t>(size) : std::nullopt);
}

AudioStatus WaveParser::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated)
{
    return packets_.seek(packet, byteOffset, estimated);
}

} // namespace zib
