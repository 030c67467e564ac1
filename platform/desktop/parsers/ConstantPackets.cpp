// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/ConstantPackets.h"

#include <algorithm>
#include <limits>

namespace zib {

namespace {

// Readers fill buffers of this size from pieces as they come, and begin a new one when a piece does not fit
// whole; pieces of at most that size, which are whole packets, keep the buffers well filled.
constexpr std::size_t kReaderBufferBytes = ConstantPackets::kLargestPacket;

} // namespace

ConstantPackets::ConstantPackets(ParserOutput& output)
    : output_(output)
{
    carry_.reserve(kReaderBufferBytes);
}

void ConstantPackets::begin(const AudioStreamDescription& format, std::int64_t dataOffset,
                            std::optional<std::int64_t> dataBytes)
{
    format_ = format;
    dataOffset_ = dataOffset;
    if (dataBytes)
        dataBytes_ = *dataBytes / format.bytesPerPacket * format.bytesPerPacket;
    remaining_ = dataBytes_.value_or(std::numeric_limits<std::int64_t>::max());
    pieceBytes_ = kReaderBufferBytes / format.bytesPerPacket * format.bytesPerPacket;
}

void ConstantPackets::parse(std::span<const std::byte> bytes, bool discontinuous)
{
    if (discontinuous && deliveredSinceBreak_) {
        carry_.clear();
        deliveredSinceBreak_ = false;
    }
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

void ConstantPackets::emitCarried()
{
    const std::size_t whole = carry_.size() / format_->bytesPerPacket * format_->bytesPerPacket;
    emitPackets(std::span(carry_).first(whole));
    carry_.erase(carry_.begin(), carry_.begin() + static_cast<std::ptrdiff_t>(whole));
}

void ConstantPackets::emitPackets(std::span<const std::byte> bytes)
{
    if (bytes.empty())
        return;
    if (!announced_) {
        announced_ = true;
        AudioFileProperties properties;
        properties.format = format_;
        properties.dataOffset = dataOffset_;
        properties.packetSizeUpperBound = static_cast<std::uint32_t>(kReaderBufferBytes);
        properties.maximumPacketSize = format_->bytesPerPacket;
        if (dataBytes_)
            properties.audioDataByteCount = static_cast<std::uint64_t>(*dataBytes_);
        output_.announce(std::move(properties));
    }
    deliveredSinceBreak_ = true;
    output_.packets(bytes, static_cast<std::uint32_t>(bytes.size() / format_->bytesPerPacket), {});
}

AudioStatus ConstantPackets::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated)
{
    constexpr std::int64_t kMaximumPacket = std::int64_t{1} << 48;
    const std::int64_t packetBytes = format_ ? format_->bytesPerPacket : 0;
    if (!format_ || packet < 0 || packet > kMaximumPacket)
        return kIllegalPacket;
    byteOffset = packet * packetBytes;
    if (dataBytes_) {
        byteOffset = std::min(byteOffset, std::max(*dataBytes_ - packetBytes, std::int64_t{0}));
        remaining_ = *dataBytes_ - byteOffset;
    }
    estimated = false;
    carry_.clear();
    deliveredSinceBreak_ = false;
    return kAudioOk;
}

} // namespace zib
