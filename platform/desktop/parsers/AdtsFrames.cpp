// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/AdtsFrames.h"

#include "platform/desktop/parsers/ByteReader.h"

#include <limits>

namespace zib {

namespace {

constexpr std::size_t kMostPlaces = std::size_t{1} << 20; // six hours at 48 kHz

} // namespace

std::optional<FrameCoding::Header> AdtsFrames::headerAt(std::span<const std::byte> bytes) const
{
    const auto header = AdtsHeader::parse(bytes);
    if (!header)
        return std::nullopt;
    return Header{header->frameBytes, header->streamCode()};
}

bool AdtsFrames::configure(const AdtsHeader& header, std::span<const std::byte> audio)
{
    auto cookie = aacConfigOf(header.objectType, header.sampleRateIndex, header.channelConfiguration, audio);
    config_ = AacConfig::parse(cookie);
    if (!config_)
        return false;
    cookie_ = std::move(cookie);
    // Blocks that can't be told apart make one packet.
    bound_ = config_->largestPacket() * (header.checked ? 1 : header.blocks) + 1;
    return true;
}

void AdtsFrames::take(const Frame& frame, std::vector<AudioPacketDescription>& packets)
{
    const auto header = AdtsHeader::parse(frame.bytes);
    const bool first = !config_;
    if (first && !configure(*header, frame.bytes.subspan(header->headerBytes())))
        return;
    const std::uint32_t taken = takeBlocks(*header, frame, packets);
    if (first && taken == 0)
        config_.reset();
    else
        note(frame, taken);
}

/// Appends the blocks of the frame as packets; how many there are.
std::uint32_t AdtsFrames::takeBlocks(const AdtsHeader& header, const Frame& frame,
                                     std::vector<AudioPacketDescription>& packets) const
{
    constexpr std::size_t kChecksumBytes = 2;
    const std::size_t begin = header.headerBytes();
    const std::size_t end = frame.bytes.size();
    std::uint32_t taken = 0;
    const auto append = [&](std::size_t from, std::size_t to, std::uint32_t frames) {
        if (from >= to || to - from >= bound_)
            return; // empty, or larger than any decoder takes
        packets.push_back({static_cast<std::int64_t>(from), frames, static_cast<std::uint32_t>(to - from)});
        ++taken;
    };
    if (header.blocks == 1) {
        append(begin, end, 0);
        return taken;
    }
    if (!header.checked) {
        append(begin, end, header.blocks * config_->framesPerPacket);
        return taken;
    }
    std::size_t from = begin;
    for (std::uint32_t block = 1; block <= header.blocks; ++block) {
        const std::size_t next =
            block < header.blocks
                ? begin + bigEndian16(frame.bytes.subspan(AdtsHeader::kBytes + std::size_t{block - 1} * 2))
                : end;
        if (next < from + kChecksumBytes || next > end)
            break;
        append(from, next - kChecksumBytes, 0);
        from = next;
    }
    return taken;
}

/// Remembers where the packets of the frame are.
void AdtsFrames::note(const Frame& frame, std::uint32_t packets)
{
    const auto size = static_cast<std::uint32_t>(frame.bytes.size());
    if (packetsSeen_ == 0) {
        dataOffset_ = frame.offset.value_or(0);
        commonSize_ = size;
    }
    if (commonSize_ != size || packets != 1)
        commonSize_.reset();
    const std::int64_t place = frame.offset.value_or(-1) - dataOffset_;
    for (std::uint32_t i = 0; i < packets; ++i) {
        if (frame.offset && places_.size() == packetsSeen_ && places_.size() < kMostPlaces &&
            place <= std::numeric_limits<std::uint32_t>::max())
            places_.push_back(static_cast<std::uint32_t>(place));
        ++packetsSeen_;
    }
    bytesSeen_ += size;
}

AudioFileProperties AdtsFrames::properties() const
{
    AudioFileProperties properties = config_->properties();
    properties.packetSizeUpperBound = bound_;
    properties.maximumPacketSize = bound_ - 1;
    properties.magicCookie = cookie_;
    return properties;
}

AudioStatus AdtsFrames::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) const
{
    const bool seen = static_cast<std::uint64_t>(packet) < places_.size();
    estimated = !seen && !commonSize_;
    if (seen)
        byteOffset = places_[static_cast<std::size_t>(packet)];
    else if (commonSize_)
        byteOffset = packet * *commonSize_;
    else
        byteOffset =
            static_cast<std::int64_t>(static_cast<double>(bytesSeen_) / static_cast<double>(packetsSeen_) *
                                      static_cast<double>(packet));
    return kAudioOk;
}

} // namespace zib
