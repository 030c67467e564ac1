// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/MpegAudioParser.h"

#include "platform/desktop/parsers/Id3v2.h"

#include <algorithm>
#include <cmath>

namespace zib {

namespace {

constexpr std::size_t kSliceBytes = std::size_t{16} * 1024;
constexpr std::size_t kBatchPackets = 1024;
// Longer than any padding between tag and audio that encoders write. What has no frame by then is no audio,
// and downloading it to its end would keep the listener waiting.
constexpr std::int64_t kMaximumSearch = std::int64_t{128} * 1024;
constexpr std::int64_t kMaximumPacket = std::int64_t{1} << 32;

} // namespace

MpegAudioParser::MpegAudioParser(ParserOutput& output, std::int64_t startOffset)
    : output_(output)
    , bufferOffset_(startOffset)
{
    // What stays between two slices is shorter than the frames that a search looks at together.
    buffer_.reserve(kSliceBytes + std::size_t{4} * MpegHeader::kLargestFrame);
    batch_.reserve(kBatchPackets);
}

AudioStatus MpegAudioParser::parse(std::span<const std::byte> bytes, bool discontinuous)
{
    if (discontinuous && deliveredSinceBreak_) {
        buffer_.clear();
        skip_ = 0;
        locked_ = false;
        deliveredSinceBreak_ = false;
    }
    while (!bytes.empty()) {
        const auto slice = bytes.first(std::min(bytes.size(), kSliceBytes));
        bytes = bytes.subspan(slice.size());
        buffer_.insert(buffer_.end(), slice.begin(), slice.end());
        if (const AudioStatus status = frameBuffer(); status != kAudioOk)
            return status;
    }
    return kAudioOk;
}

std::span<const std::byte> MpegAudioParser::rest() const
{
    return std::span(buffer_).subspan(place_);
}

AudioStatus MpegAudioParser::frameBuffer()
{
    place_ = 0;
    Step step = Step::Forward;
    while (step == Step::Forward && searched_ <= kMaximumSearch) {
        if (skip_ > 0) {
            const auto skipped = std::min(static_cast<std::size_t>(skip_), rest().size());
            place_ += skipped;
            skip_ -= static_cast<std::int64_t>(skipped);
        }
        if (rest().size() < kId3v2HeaderBytes && (rest().empty() || !locked_))
            step = Step::NeedsMore;
        else
            step = locked_ ? takeFrame() : search();
    }
    deliver();
    buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(place_));
    bufferOffset_ += static_cast<std::int64_t>(place_);
    return searched_ > kMaximumSearch ? kUnsupportedFileType : kAudioOk;
}

/// Whether a frame begins the bytes, which that many frames of the same stream must prove by following it.
MpegAudioParser::Verdict MpegAudioParser::judge(std::span<const std::byte> bytes, int followers) const
{
    const auto header = MpegHeader::parse(bytes);
    if (!header || (first_ && !header->sameStream(*first_)))
        return Verdict::NoFrame;
    auto last = *header;
    for (int i = 0; i < followers; ++i) {
        if (bytes.size() < last.frameBytes() + MpegHeader::kBytes)
            return Verdict::NeedsMore;
        bytes = bytes.subspan(last.frameBytes());
        const auto next = MpegHeader::parse(bytes);
        if (!next || !next->sameStream(*header))
            return Verdict::NoFrame;
        last = *next;
    }
    return Verdict::Frame;
}

MpegAudioParser::Step MpegAudioParser::search()
{
    // The very first bytes of a file are probably what they seem. Those after garbage are less so, and the
    // first frame found settles the format for good.
    const int followers = !first_ && searched_ > 0 ? 2 : 1;
    switch (judge(rest(), followers)) {
    case Verdict::NeedsMore:
        return Step::NeedsMore;
    case Verdict::Frame:
        locked_ = true;
        firstOfLock_ = true;
        return Step::Forward;
    case Verdict::NoFrame:
        break;
    }
    if (const auto tag = id3v2TagBytes(rest())) {
        skip_ = *tag;
        return Step::Forward;
    }
    ++place_;
    if (!first_)
        ++searched_;
    return Step::Forward;
}

MpegAudioParser::Step MpegAudioParser::takeFrame()
{
    if (rest().size() < MpegHeader::kBytes)
        return Step::NeedsMore;
    const auto header = MpegHeader::parse(rest());
    if (!header || (first_ && !header->sameStream(*first_))) {
        locked_ = false;
        return Step::Forward;
    }
    if (rest().size() < header->frameBytes())
        return Step::NeedsMore;
    acceptFrame(*header);
    place_ += header->frameBytes();
    return Step::Forward;
}

void MpegAudioParser::acceptFrame(const MpegHeader& header)
{
    const std::uint32_t size = header.frameBytes();
    if (firstOfLock_) {
        firstOfLock_ = false;
        if (const auto info = MpegInfoFrame::parse(header, rest().first(size))) {
            if (!first_) {
                info_ = info;
                infoFrameBytes_ = size;
            }
            return;
        }
    }
    if (!first_)
        announce(header);
    // A file that breaks its own promise of a constant rate loses those packets rather than the reader's
    // trust in the bound.
    if (size >= bound_)
        return;
    sameRateSoFar_ = sameRateSoFar_ && header.bitRate == first_->bitRate;
    ++packetsSeen_;
    packetBytesSeen_ += size;
    batch_.push_back({static_cast<std::int64_t>(place_), 0, size});
    if (batch_.size() == kBatchPackets)
        deliver();
}

bool MpegAudioParser::isConstantRate(const MpegHeader& header) const
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

void MpegAudioParser::announce(const MpegHeader& header)
{
    first_ = header;
    bound_ = (isConstantRate(header) ? header.largestFrameOfRate() : header.largestFrame()) + 1;

    AudioFileProperties properties;
    properties.format = header.description();
    properties.dataOffset = bufferOffset_ + static_cast<std::int64_t>(place_);
    if (info_ && info_->fileBytes && *info_->fileBytes > infoFrameBytes_)
        properties.audioDataByteCount = *info_->fileBytes - infoFrameBytes_;
    properties.packetSizeUpperBound = bound_;
    properties.maximumPacketSize = bound_ - 1;
    output_.announce(std::move(properties));
}

void MpegAudioParser::deliver()
{
    if (batch_.empty())
        return;
    const std::int64_t begin = batch_.front().startOffset;
    const std::int64_t end = batch_.back().startOffset + batch_.back().dataByteSize;
    for (auto& packet : batch_)
        packet.startOffset -= begin;
    deliveredSinceBreak_ = true;
    output_.packets(
        std::span(buffer_).subspan(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin)),
        static_cast<std::uint32_t>(batch_.size()), batch_);
    batch_.clear();
}

AudioStatus MpegAudioParser::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated)
{
    if (packetsSeen_ == 0 || packet < 0 || packet > kMaximumPacket)
        return kIllegalPacket;
    estimated = !(info_ ? isConstantRate(*first_) : sameRateSoFar_);
    if (!estimated) {
        byteOffset = first_->constantRateOffset(packet);
        return kAudioOk;
    }
    double average = static_cast<double>(packetBytesSeen_) / static_cast<double>(packetsSeen_);
    if (info_ && info_->packets.value_or(0) > 0 && info_->fileBytes.value_or(0) > infoFrameBytes_)
        average = static_cast<double>(*info_->fileBytes - infoFrameBytes_) / *info_->packets;
    byteOffset = static_cast<std::int64_t>(average * static_cast<double>(packet));
    return kAudioOk;
}

} // namespace zib
