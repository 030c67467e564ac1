// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/MpegFrames.h"

#include <algorithm>
#include <cmath>

namespace zib {

std::optional<FrameCoding::Header> MpegFrames::headerAt(std::span<const std::byte> bytes) const
{
    const auto header = MpegHeader::parse(bytes);
    if (!header)
        return std::nullopt;
    return Header{header->frameBytes(), header->streamCode()};
}

void MpegFrames::take(const Frame& frame, std::vector<AudioPacketDescription>& packets)
{
    const auto header = MpegHeader::parse(frame.bytes);
    const auto size = static_cast<std::uint32_t>(frame.bytes.size());
    if (frame.firstAfterSync) {
        if (const auto info = MpegInfoFrame::parse(*header, frame.bytes)) {
            if (!first_) {
                info_ = info;
                infoFrameBytes_ = size;
            }
            return;
        }
    }
    if (!first_) {
        first_ = header;
        bound_ = (isConstantRate(*header) ? header->largestFrameOfRate() : header->largestFrame()) + 1;
    }
    // A file that breaks its own promise of a constant rate loses those packets rather than the reader's
    // trust in the bound.
    if (size >= bound_)
        return;
    sameRateSoFar_ = sameRateSoFar_ && header->bitRate == first_->bitRate;
    note(frame);
    packets.push_back({0, 0, size});
}

void MpegFrames::note(const Frame& frame)
{
    constexpr std::uint64_t kEvery = 16; // packets; between them it is known to a fraction of a second
    constexpr std::size_t kMost = std::size_t{128} * 1024; // fifteen hours
    if (packetsSeen_ == 0)
        dataOffset_ = frame.offset.value_or(0);
    if (frame.offset && packetsSeen_ == seen_.size() * kEvery && seen_.size() < kMost)
        seen_.add(static_cast<double>(packetsSeen_), static_cast<double>(*frame.offset - dataOffset_));
    ++packetsSeen_;
    packetBytesSeen_ += frame.bytes.size();
}

bool MpegFrames::isConstantRate(const MpegHeader& header) const
{
    if (!info_ || !info_->constantRate)
        return false;
    if (!info_->packets || !info_->fileBytes)
        return true;
    // Some encoders call every file constant; its own figures tell when it is not.
    const auto expected = static_cast<double>(header.constantRateOffset(*info_->packets));
    const double tolerance = 0.01 * expected + 2.0 * header.largestFrame();
    return std::abs(static_cast<double>(*info_->fileBytes) - expected) <= tolerance;
}

AudioFileProperties MpegFrames::properties() const
{
    AudioFileProperties properties;
    properties.format = first_->description();
    if (info_ && info_->fileBytes && *info_->fileBytes > infoFrameBytes_)
        properties.audioDataByteCount = *info_->fileBytes - infoFrameBytes_;
    properties.packetSizeUpperBound = bound_;
    properties.maximumPacketSize = bound_ - 1;
    return properties;
}

/// Where the packet begins, nearly, if that is known better than by the average.
std::optional<std::int64_t> MpegFrames::placeOf(std::int64_t packet) const
{
    if (const auto place = seen_.at(packet))
        return place;
    if (!info_)
        return std::nullopt;
    const auto place = info_->places.at(packet);
    return place ? std::optional(std::max<std::int64_t>(*place - infoFrameBytes_, 0)) : std::nullopt;
}

AudioStatus MpegFrames::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) const
{
    estimated = false;
    if (info_ ? isConstantRate(*first_) : sameRateSoFar_) {
        byteOffset = first_->constantRateOffset(packet);
        return kAudioOk;
    }
    if (const auto place = placeOf(packet)) {
        byteOffset = *place;
        return kAudioOk;
    }
    estimated = true;
    double average = static_cast<double>(packetBytesSeen_) / static_cast<double>(packetsSeen_);
    if (info_ && info_->packets.value_or(0) > 0 && info_->fileBytes.value_or(0) > infoFrameBytes_)
        average = static_cast<double>(*info_->fileBytes - infoFrameBytes_) / *info_->packets;
    byteOffset = static_cast<std::int64_t>(average * static_cast<double>(packet));
    return kAudioOk;
}

} // namespace zib
