// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/OggParser.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace zib {

namespace {

constexpr std::size_t kMostIgnored = 256;
// What has no audio by then is none, and downloading it to its end would keep the listener waiting.
constexpr std::int64_t kMaximumSearch = std::int64_t{1} << 20;
// Held back at most: less than readers gather in buffers of the bound's size before they start, and so little
// that a file that was cut off early, and does not mark its end, still plays.
constexpr std::size_t kHeldBuffers = 8;
constexpr std::int64_t kMaximumFrame = std::int64_t{1} << 44;
constexpr double kHeldSeconds = 0.9; // many encoders end a page each second

} // namespace

OggParser::OggParser(ParserOutput& output, std::int64_t startOffset)
    : output_(output)
    , base_(startOffset)
{
}

AudioStatus OggParser::parse(std::span<const std::byte> bytes, bool discontinuous)
{
    if (discontinuous && (deliveredSinceBreak_ || places_.breakExpected()))
        restart();
    while (!bytes.empty()) {
        const auto slice = bytes.first(std::min(bytes.size(), OggPages::kMostAdded));
        bytes = bytes.subspan(slice.size());
        pages_.add(slice);
        while (const auto page = pages_.next()) {
            if (const AudioStatus status = takePage(*page); status != kAudioOk)
                return status;
        }
        if (pages_.hostile() || (!announced_ && pages_.passedOver() > kMaximumSearch))
            return kInvalidFile;
    }
    return kAudioOk;
}

void OggParser::restart()
{
    pages_.restart();
    const auto target = places_.targetAfterBreak();
    base_ = target ? std::optional(dataOffset_ + target->byteOffset) : std::nullopt;
    frames_ = target ? places_.frameAt(target->byteOffset) : std::nullopt;
    wanted_ = target ? std::optional(target->frame) : std::nullopt;
    next_.reset();
    codec_->forgetPrevious();
    amongFirstPages_ = false;
    anySerial_ = true;
    sequence_.reset();
    partial_.clear();
    partialBytes_ = 0;
    deliveredSinceBreak_ = false;
}

AudioStatus OggParser::takePage(const OggPage& page)
{
    pagePlace_ = page.offset;
    pageEnd_ = page.offset + static_cast<std::int64_t>(page.bytes);
    AudioStatus status = kAudioOk;
    if (page.first) {
        status = takeFirstPage(page);
    } else {
        amongFirstPages_ = false;
        if (!codec_)
            return kUnsupportedDataFormat;
        if (ours(page.serial)) {
            status = takePackets(page);
            locate(page);
        }
    }
    if (!announced_ && !batch_.empty() && ((page.last && serial_ == page.serial) || heardEnough()))
        announce();
    if (announced_) {
        dropUnwanted();
        deliver();
    }
    return status;
}

/// Learns from the page which frames it holds, or how its stream counts them.
void OggParser::locate(const OggPage& page)
{
    if (!dataPlace_ || page.endFrame < 0 || page.endFrame > kMaximumFrame)
        return;
    if (base_)
        places_.countPiece(static_cast<std::int64_t>(page.bytes));
    if (frames_) {
        if (!page.last) // which may cut off what its last packet has too much
            counted_.emplace(page.serial, *frames_ - page.endFrame);
    } else if (counted_ && counted_->first == page.serial) {
        frames_ = std::max<std::int64_t>(counted_->second + page.endFrame, 0);
        if (base_)
            places_.add(*frames_ - batchFrames(), *base_ + pagePlace_ - dataOffset_);
    }
}

std::int64_t OggParser::batchFrames() const
{
    return std::accumulate(
        batch_.begin(), batch_.end(), std::int64_t{0},
        [](std::int64_t sum, const auto& packet) { return sum + packet.variableFramesInPacket; });
}

/// Leaves out what a seek to a place that was rather early brought before the frame that it asked for.
void OggParser::dropUnwanted()
{
    if (!wanted_ || batch_.empty())
        return;
    if (!frames_) {
        wanted_.reset();
        return;
    }
    std::int64_t end = *frames_ - batchFrames();
    if (static_cast<double>(*wanted_ - end) > SeekPlaces::kMostLeftOut * codec_->format().sampleRate)
        end = *wanted_;
    auto first = batch_.begin();
    for (; first != batch_.end(); ++first) {
        end += first->variableFramesInPacket;
        if (end > *wanted_) {
            wanted_.reset();
            break;
        }
    }
    batch_.erase(batch_.begin(), first);
    if (batch_.empty())
        bytes_.clear();
}

/// The first pages of all streams come together; those of a group after the first follow in a chain.
AudioStatus OggParser::takeFirstPage(const OggPage& page)
{
    if (!amongFirstPages_) {
        amongFirstPages_ = true;
        if (!announced_ && !batch_.empty())
            announce();
        serial_.reset();
        next_.reset();
        anySerial_ = false;
    }
    auto codec = serial_ ? nullptr : OggCodec::identify(page.body);
    if (!codec) {
        ignore(page.serial);
        return kAudioOk;
    }
    serial_ = page.serial;
    std::erase(ignored_, page.serial);
    sequence_ = page.sequence + 1;
    partial_.clear();
    partialBytes_ = 0;
    skipRest_ = false;
    (announced_ ? next_ : codec_) = std::move(codec);
    return announced_ && next_->ready() ? takeHeader({}, 0) : kAudioOk;
}

bool OggParser::ours(std::uint32_t serial)
{
    if (anySerial_ && std::ranges::find(ignored_, serial) == ignored_.end()) {
        serial_ = serial;
        anySerial_ = false;
    }
    return serial_ == serial;
}

void OggParser::ignore(std::uint32_t serial)
{
    if (std::ranges::find(ignored_, serial) != ignored_.end())
        return;
    if (ignored_.size() == kMostIgnored)
        ignored_.erase(ignored_.begin());
    ignored_.push_back(serial);
}

AudioStatus OggParser::takePackets(const OggPage& page)
{
    if (base_ && dataPlace_ && frames_)
        places_.add(*frames_, *base_ + pagePlace_ - dataOffset_);
    if (sequence_ != page.sequence || !page.continued) {
        partial_.clear();
        partialBytes_ = 0;
    }
    skipRest_ = page.continued && partialBytes_ == 0;
    sequence_ = page.sequence + 1;
    std::size_t begin = 0;
    std::size_t end = 0;
    for (std::size_t i = 0; i < page.segmentSizes.size() && serial_; ++i) {
        const auto size = std::to_integer<std::size_t>(page.segmentSizes[i]);
        end += size;
        const bool ends = size < 255;
        if (!ends && i + 1 < page.segmentSizes.size())
            continue;
        const auto status = takePiece(page.body.subspan(begin, end - begin), ends);
        if (status != kAudioOk)
            return status;
        begin = end;
    }
    return kAudioOk;
}

/// Takes what a page has of one packet.
AudioStatus OggParser::takePiece(std::span<const std::byte> piece, bool ends)
{
    if (skipRest_) {
        skipRest_ = !ends;
        return kAudioOk;
    }
    if (partialBytes_ == 0)
        partialPlace_ = pagePlace_;
    if (partialBytes_ == 0 && ends)
        return takePacket(piece, piece.size());
    const std::size_t wanted = bytesWanted() - std::min(bytesWanted(), partial_.size());
    const auto kept = piece.first(std::min(piece.size(), wanted));
    partial_.insert(partial_.end(), kept.begin(), kept.end());
    partialBytes_ += piece.size();
    if (!ends)
        return kAudioOk;
    const AudioStatus status = takePacket(partial_, partialBytes_);
    partial_.clear();
    partialBytes_ = 0;
    return status;
}

std::size_t OggParser::bytesWanted() const
{
    const OggCodec& codec = next_ ? *next_ : *codec_;
    return codec.ready() ? codec.mostPacketBytes() : codec.headerBytesWanted();
}

AudioStatus OggParser::takePacket(std::span<const std::byte> kept, std::size_t packetBytes)
{
    if (next_ || !codec_->ready())
        return takeHeader(kept.first(std::min(kept.size(), bytesWanted())), packetBytes);
    if (!kept.empty() && kept.size() == packetBytes && packetBytes <= codec_->mostPacketBytes())
        takeAudio(kept);
    return kAudioOk;
}

AudioStatus OggParser::takeHeader(std::span<const std::byte> kept, std::size_t packetBytes)
{
    OggCodec& codec = next_ ? *next_ : *codec_;
    const bool right = codec.ready() || codec.takeHeader(kept, packetBytes);
    if (!next_)
        return right ? kAudioOk : kInvalidFile;
    if (right && !codec.ready())
        return kAudioOk;
    // The decoder was told of the first stream. Where it can't go on with this one, the song has ended.
    const bool same = right && next_->format().formatId == codec_->format().formatId &&
                      next_->signature() == codec_->signature();
    next_.reset();
    codec_->forgetPrevious();
    if (!same) {
        ignore(*serial_);
        serial_.reset();
    }
    return kAudioOk;
}

void OggParser::takeAudio(std::span<const std::byte> packet)
{
    const std::uint32_t frames = codec_->frames(packet);
    if (frames == 0)
        return;
    if (!dataPlace_) {
        dataPlace_ = partialPlace_;
        dataOffset_ = *base_ + *dataPlace_;
        places_.add(0, 0);
    }
    if (frames_)
        *frames_ += frames;
    if (announced_ && packet.size() >= bound_)
        return;
    largestPacket_ = std::max(largestPacket_, packet.size());
    heldFrames_ += announced_ ? 0 : frames;
    places_.countPacket(packet.size());
    batch_.push_back(
        {static_cast<std::int64_t>(bytes_.size()), frames, static_cast<std::uint32_t>(packet.size())});
    bytes_.insert(bytes_.end(), packet.begin(), packet.end());
}

std::uint32_t OggParser::boundSoFar() const
{
    return std::min(codec_->packetBound(largestPacket_),
                    static_cast<std::uint32_t>(codec_->mostPacketBytes() + 1));
}

bool OggParser::heardEnough() const
{
    return bytes_.size() >= kHeldBuffers * boundSoFar() ||
           static_cast<double>(heldFrames_) >= kHeldSeconds * codec_->format().sampleRate;
}

void OggParser::announce()
{
    announced_ = true;
    bound_ = boundSoFar();

    AudioFileProperties properties;
    properties.format = codec_->format();
    // Readers tell the song's length from that of the file by the average size of the packets and this. Pages
    // cost up to a hundredth of the file and streams beside ours far more, so the packets have a little less
    // each than they hold; their descriptions tell what that is.
    const auto fileBytes =
        static_cast<double>(pageEnd_ - *dataPlace_ - static_cast<std::int64_t>(partialBytes_));
    const double frames = static_cast<double>(heldFrames_) / static_cast<double>(batch_.size()) *
                          static_cast<double>(bytes_.size()) / fileBytes;
    properties.format->framesPerPacket = static_cast<std::uint32_t>(std::max(1.0, std::round(frames)));
    properties.dataOffset = dataOffset_;
    properties.packetSizeUpperBound = bound_;
    properties.magicCookie = codec_->cookie();
    places_.describe(*properties.format);
    output_.announce(std::move(properties));
}

void OggParser::deliver()
{
    if (batch_.empty())
        return;
    deliveredSinceBreak_ = true;
    output_.packets(bytes_, static_cast<std::uint32_t>(batch_.size()), batch_);
    bytes_.clear();
    batch_.clear();
}

AudioStatus OggParser::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated)
{
    return announced_ ? places_.seek(packet, byteOffset, estimated) : kIllegalPacket;
}

} // namespace zib
