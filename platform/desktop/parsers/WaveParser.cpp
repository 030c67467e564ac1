// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/WaveParser.h"

#include "platform/desktop/parsers/ByteReader.h"

#include <algorithm>
#include <limits>

namespace zib {

namespace {

constexpr std::size_t kChunkHeaderBytes = 8;
constexpr std::size_t kShortestFormat = 16;
constexpr std::size_t kExtensibleFormat = 40;
constexpr std::uint32_t kUnknownSize = 0xffffffff;
// Readers fill buffers of this size from pieces as they come, and begin a new one when a piece does not fit
// whole; pieces of at most that size, which are whole packets, keep the buffers well filled.
constexpr std::size_t kReaderBufferBytes = 2048;

constexpr std::uint16_t kPcm = 1;
constexpr std::uint16_t kFloat = 3;
constexpr std::uint16_t kExtensible = 0xfffe;

} // namespace

WaveParser::WaveParser(ParserOutput& output, std::int64_t startOffset)
    : output_(output)
    , offset_(startOffset)
{
    carry_.reserve(kReaderBufferBytes);
}

AudioStatus WaveParser::parse(std::span<const std::byte> bytes, bool discontinuous)
{
    if (state_ != State::Data) {
        if (const AudioStatus status = readHeaders(bytes); status != kAudioOk)
            return status;
    } else if (discontinuous && deliveredSinceBreak_) {
        carry_.clear();
        deliveredSinceBreak_ = false;
        if (dataBytes_ && seekOffset_)
            remaining_ = std::max<std::int64_t>(*dataBytes_ - *seekOffset_, 0);
    }
    if (state_ == State::Data)
        pushData(bytes);
    return kAudioOk;
}

/// Takes bytes up to the beginning of the audio.
AudioStatus WaveParser::readHeaders(std::span<const std::byte>& bytes)
{
    while (!bytes.empty() && state_ != State::Data) {
        const std::size_t wanted = skip_ > 0 ? static_cast<std::size_t>(skip_) : fieldWanted_ - fieldBytes_;
        const auto taken = bytes.first(std::min(wanted, bytes.size()));
        bytes = bytes.subspan(taken.size());
        offset_ += static_cast<std::int64_t>(taken.size());
        if (skip_ > 0) {
            skip_ -= static_cast<std::int64_t>(taken.size());
            continue;
        }
        std::copy(taken.begin(), taken.end(), field_.begin() + static_cast<std::ptrdiff_t>(fieldBytes_));
        fieldBytes_ += taken.size();
        if (fieldBytes_ < fieldWanted_)
            continue;
        if (const AudioStatus status = fieldGathered(); status != kAudioOk)
            return status;
    }
    return kAudioOk;
}

void WaveParser::gather(State state, std::size_t bytes)
{
    state_ = state;
    fieldBytes_ = 0;
    fieldWanted_ = bytes;
}

AudioStatus WaveParser::fieldGathered()
{
    switch (state_) {
    case State::FileHeader: // the file type was recognised by it; its length is of no use
        gather(State::ChunkHeader, kChunkHeaderBytes);
        return kAudioOk;
    case State::ChunkHeader:
        return chunkHeaderGathered();
    case State::Format: {
        const AudioStatus status = readFormat();
        gather(State::ChunkHeader, kChunkHeaderBytes);
        skip_ = formatExtra_;
        return status;
    }
    case State::Data:
        break;
    }
    return kAudioOk;
}

AudioStatus WaveParser::chunkHeaderGathered()
{
    const std::span<const std::byte> header = field_;
    const std::uint32_t size = littleEndian32(header.subspan(4));
    if (startsWith(header, "data")) {
        if (!format_)
            return kInvalidFile;
        beginData(size);
        return kAudioOk;
    }
    const std::int64_t padded = std::int64_t{size} + (size & 1);
    if (!startsWith(header, "fmt ")) {
        skip_ = padded;
        gather(State::ChunkHeader, kChunkHeaderBytes);
        return kAudioOk;
    }
    if (size < kShortestFormat)
        return kInvalidFile;
    const std::size_t used = size >= kExtensibleFormat ? kExtensibleFormat : kShortestFormat;
    gather(State::Format, used);
    formatExtra_ = padded - static_cast<std::int64_t>(used);
    return kAudioOk;
}

AudioStatus WaveParser::readFormat()
{
    const std::span<const std::byte> field = field_;
    std::uint16_t coding = littleEndian16(field);
    const std::uint32_t channels = littleEndian16(field.subspan(2));
    const std::uint32_t sampleRate = littleEndian32(field.subspan(4));
    const std::uint32_t frameBytes = littleEndian16(field.subspan(12));
    if (coding == kExtensible && fieldBytes_ == kExtensibleFormat)
        coding = littleEndian16(field.subspan(24)); // the sub-format begins with the old code
    if (coding != kPcm && coding != kFloat)
        return kUnsupportedDataFormat;

    constexpr std::uint32_t kMostChannels = 32;
    constexpr std::uint32_t kHighestSampleRate = 768'000;
    if (channels == 0 || channels > kMostChannels || sampleRate == 0 || sampleRate > kHighestSampleRate ||
        frameBytes % channels != 0)
        return kInvalidFile;
    // Samples stand in whole bytes with their unused low bits zero, so the container is what counts.
    const std::uint32_t bits = frameBytes / channels * 8;
    if (coding == kFloat ? bits != 32 && bits != 64 : bits < 8 || bits > 32)
        return kUnsupportedDataFormat;

    AudioStreamDescription format;
    format.sampleRate = sampleRate;
    format.formatId = audioformat::LinearPcm;
    format.formatFlags = audioformat::IsPacked;
    if (coding == kFloat)
        format.formatFlags |= audioformat::IsFloat;
    else if (bits > 8) // samples of one byte are unsigned
        format.formatFlags |= audioformat::IsSignedInteger;
    format.bytesPerPacket = frameBytes;
    format.framesPerPacket = 1;
    format.bytesPerFrame = frameBytes;
    format.channelsPerFrame = channels;
    format.bitsPerChannel = bits;
    format_ = format;
    pieceBytes_ = kReaderBufferBytes / frameBytes * frameBytes;
    return kAudioOk;
}

void WaveParser::beginData(std::uint32_t size)
{
    state_ = State::Data;
    dataOffset_ = offset_;
    // Programs that write to a pipe can't come back to fill the length in.
    if (size != 0 && size != kUnknownSize)
        dataBytes_ = size / format_->bytesPerPacket * format_->bytesPerPacket;
    remaining_ = dataBytes_.value_or(std::numeric_limits<std::int64_t>::max());
}

void WaveParser::pushData(std::span<const std::byte> bytes)
{
    bytes = bytes.first(static_cast<std::size_t>(std::min<std::int64_t>(std::ssize(bytes), remaining_)));
    remaining_ -= std::ssize(bytes);
    bool emitted = false;
    while (carry_.size() + bytes.size() >= pieceBytes_) {
        emitted = true;
        if (carry_.empty()) {
            emitPackets(bytes.first(pieceBytes_));
            bytes = bytes.subspan(pieceBytes_);
            continue;
        }
        const auto filling = bytes.first(pieceBytes_ - carry_.size());
        carry_.insert(carry_.end(), filling.begin(), filling.end());
        bytes = bytes.subspan(filling.size());
        emitCarried();
    }
    carry_.insert(carry_.end(), bytes.begin(), bytes.end());
    // What is left after a whole piece waits to become one; small feeds are handed on as they come.
    if (!emitted || remaining_ == 0)
        emitCarried();
}

void WaveParser::emitCarried()
{
    const std::size_t whole = carry_.size() / format_->bytesPerPacket * format_->bytesPerPacket;
    emitPackets(std::span(carry_).first(whole));
    carry_.erase(carry_.begin(), carry_.begin() + static_cast<std::ptrdiff_t>(whole));
}

void WaveParser::emitPackets(std::span<const std::byte> bytes)
{
    if (bytes.empty())
        return;
    if (!announced_) {
        announced_ = true;
        AudioFileProperties properties;
        properties.format = format_;
        properties.dataOffset = dataOffset_;
        properties.packetSizeUpperBound = kReaderBufferBytes;
        properties.maximumPacketSize = format_->bytesPerPacket;
        if (dataBytes_)
            properties.audioDataByteCount = static_cast<std::uint64_t>(*dataBytes_);
        output_.announce(std::move(properties));
    }
    deliveredSinceBreak_ = true;
    output_.packets(bytes, static_cast<std::uint32_t>(bytes.size() / format_->bytesPerPacket), {});
}

AudioStatus WaveParser::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated)
{
    const std::int64_t packetBytes = format_ ? format_->bytesPerPacket : 0;
    if (state_ != State::Data || packet < 0 ||
        packet > dataBytes_.value_or(std::numeric_limits<std::int64_t>::max() / 2) / packetBytes)
        return kIllegalPacket;
    byteOffset = packet * packetBytes;
    seekOffset_ = byteOffset;
    estimated = false;
    return kAudioOk;
}

} // namespace zib
