// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/AiffParser.h"

#include "platform/desktop/parsers/ByteReader.h"
#include "platform/desktop/parsers/SampleFormat.h"

#include <algorithm>
#include <cmath>

namespace zib {

namespace {

constexpr std::size_t kFileHeaderBytes = 12;
constexpr std::size_t kChunkHeaderBytes = 8;
constexpr std::size_t kCommonBytes = 18;
constexpr std::size_t kCommonBytesWithCoding = 22;
constexpr std::size_t kSoundHeaderBytes = 8;
constexpr std::uint32_t kUnknownSize = 0xffffffff;

struct Coding {
    std::uint32_t name;
    std::uint32_t formatId;
    std::uint32_t flags;       ///< of linear samples
    std::uint32_t sampleBytes; ///< of linear samples; 0: as the file's sample size says
};

constexpr std::uint32_t kPlain = fourCharacters("NONE");
constexpr std::uint32_t kSignedBig = audioformat::IsSignedInteger | audioformat::IsBigEndian;
constexpr std::uint32_t kFloatBig = audioformat::IsFloat | audioformat::IsBigEndian;

constexpr Coding kCodings[] = {
    {kPlain, audioformat::LinearPcm, kSignedBig, 0},
    {fourCharacters("twos"), audioformat::LinearPcm, kSignedBig, 0},
    {fourCharacters("in24"), audioformat::LinearPcm, kSignedBig, 3},
    {fourCharacters("in32"), audioformat::LinearPcm, kSignedBig, 4},
    {fourCharacters("sowt"), audioformat::LinearPcm, audioformat::IsSignedInteger, 0},
    {fourCharacters("raw "), audioformat::LinearPcm, 0, 1},
    {fourCharacters("fl32"), audioformat::LinearPcm, kFloatBig, 4},
    {fourCharacters("FL32"), audioformat::LinearPcm, kFloatBig, 4},
    {fourCharacters("fl64"), audioformat::LinearPcm, kFloatBig, 8},
    {fourCharacters("FL64"), audioformat::LinearPcm, kFloatBig, 8},
    {fourCharacters("ulaw"), audioformat::MuLaw, 0, 0},
    {fourCharacters("ULAW"), audioformat::MuLaw, 0, 0},
    {fourCharacters("alaw"), audioformat::ALaw, 0, 0},
    {fourCharacters("ALAW"), audioformat::ALaw, 0, 0},
    {fourCharacters("ima4"), audioformat::Ima4, 0, 0},
};

/// A number of ten bytes: a sign, 15 bits of exponent, 64 of mantissa with its leading one.
double extendedNumber(std::span<const std::byte> bytes)
{
    constexpr int kExponentOfUnits = 16383 + 63;
    const std::uint16_t exponent = bigEndian16(bytes);
    const auto mantissa = static_cast<double>(bigEndian64(bytes.subspan(2)));
    return exponent < 0x7fff ? std::ldexp(mantissa, exponent - kExponentOfUnits) : 0;
}

} // namespace

AiffParser::AiffParser(ParserOutput& output, std::int64_t startOffset)
    : fields_(startOffset)
    , packets_(output)
{
    fields_.want(kFileHeaderBytes);
}

AudioStatus AiffParser::parse(std::span<const std::byte> bytes, bool discontinuous)
{
    while (state_ != State::Data) {
        if (bytes.empty())
            return kAudioOk;
        AudioStatus status = kAudioOk;
        if (state_ == State::Held)
            status = hold(bytes);
        else if (fields_.take(bytes))
            status = fieldGathered();
        if (status != kAudioOk)
            return status;
    }
    packets_.parse(bytes, discontinuous);
    return kAudioOk;
}

void AiffParser::nextChunk(std::int64_t skipBytes)
{
    state_ = State::ChunkHeader;
    fields_.want(kChunkHeaderBytes, skipBytes);
}

AudioStatus AiffParser::fieldGathered()
{
    switch (state_) {
    case State::FileHeader:
        compressible_ = startsWith(fields_.field().subspan(8), "AIFC");
        nextChunk(0);
        return kAudioOk;
    case State::ChunkHeader:
        return chunkHeaderGathered();
    case State::Common:
        return readCommon();
    case State::Sound:
        return readSound();
    case State::SoundGap:
        return beginSound();
    case State::Held:
    case State::Data:
        break;
    }
    return kAudioOk;
}

AudioStatus AiffParser::chunkHeaderGathered()
{
    const auto header = fields_.field();
    chunkBytes_ = bigEndian32(header.subspan(4));
    if (startsWith(header, "COMM")) {
        if (chunkBytes_ < kCommonBytes)
            return kInvalidFile;
        state_ = State::Common;
        fields_.want(compressible_ && chunkBytes_ >= kCommonBytesWithCoding ? kCommonBytesWithCoding
                                                                            : kCommonBytes);
    } else if (startsWith(header, "SSND") && held_.bytes().empty()) {
        state_ = State::Sound;
        fields_.want(kSoundHeaderBytes);
    } else {
        nextChunk(std::int64_t{chunkBytes_} + (chunkBytes_ & 1));
    }
    return kAudioOk;
}

AudioStatus AiffParser::readCommon()
{
    const auto field = fields_.field();
    const std::uint32_t channels = bigEndian16(field);
    packetCount_ = bigEndian32(field.subspan(2));
    const std::uint32_t sampleBits = bigEndian16(field.subspan(6));
    const double sampleRate = extendedNumber(field.subspan(8));
    const std::uint32_t name =
        field.size() == kCommonBytesWithCoding ? bigEndian32(field.subspan(kCommonBytes)) : kPlain;
    const auto* const coding = std::ranges::find(kCodings, name, &Coding::name);
    if (coding == std::end(kCodings))
        return kUnsupportedDataFormat;
    if (coding->formatId == audioformat::Ima4)
        format_ = sampleformat::ima4(sampleRate, channels);
    else if (coding->formatId != audioformat::LinearPcm)
        format_ = sampleformat::companded(sampleRate, channels, coding->formatId);
    else // samples stand in the upper bits of whole bytes
        format_ = sampleformat::linear(sampleRate, channels,
                                       coding->sampleBytes > 0 ? coding->sampleBytes : (sampleBits + 7) / 8,
                                       coding->flags);
    if (!format_)
        return kInvalidFile;
    if (!held_.bytes().empty()) {
        beginData();
        return kAudioOk;
    }
    nextChunk(std::int64_t{chunkBytes_} + (chunkBytes_ & 1) - std::ssize(field));
    return kAudioOk;
}

AudioStatus AiffParser::readSound()
{
    const std::int64_t gap = bigEndian32(fields_.field());
    // Programs that write to a pipe can't come back to fill the length in.
    if (chunkBytes_ != 0 && chunkBytes_ != kUnknownSize) {
        dataBytes_ = std::int64_t{chunkBytes_} - std::int64_t{kSoundHeaderBytes} - gap;
        if (*dataBytes_ < 0)
            return kInvalidFile;
    }
    state_ = State::SoundGap;
    fields_.want(0, gap);
    return kAudioOk;
}

AudioStatus AiffParser::beginSound()
{
    dataOffset_ = fields_.offset();
    if (format_) {
        beginData();
        return kAudioOk;
    }
    if (!dataBytes_)
        return kInvalidFile; // no telling where the format would begin
    if (*dataBytes_ == 0)
        nextChunk(chunkBytes_ & 1);
    else
        state_ = State::Held;
    return kAudioOk;
}

AudioStatus AiffParser::hold(std::span<const std::byte>& bytes)
{
    const std::int64_t missing = *dataBytes_ - std::ssize(held_.bytes());
    const auto taken = fields_.takeSome(bytes, missing);
    if (!held_.hold(taken))
        return kIndexTooLate;
    if (std::ssize(taken) == missing)
        nextChunk(chunkBytes_ & 1);
    return kAudioOk;
}

void AiffParser::beginData()
{
    state_ = State::Data;
    if (packetCount_ > 0) {
        const std::int64_t told = packetCount_ * format_->bytesPerPacket;
        dataBytes_ = std::min(dataBytes_.value_or(told), told);
    }
    packets_.begin(*format_, dataOffset_, dataBytes_);
    packets_.parse(held_.bytes(), false);
    held_.release();
}

AudioStatus AiffParser::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated)
{
    return packets_.seek(packet, byteOffset, estimated);
}

} // namespace zib
