// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/FlacParser.h"

#include "platform/desktop/parsers/ByteReader.h"

#include <algorithm>

namespace zib {

namespace {

constexpr std::size_t kMarkerBytes = 4;
constexpr std::size_t kBlockHeaderBytes = 4;
constexpr std::size_t kSeekPointBytes = 18;
constexpr std::uint64_t kPlaceholder = ~std::uint64_t{0};
constexpr std::size_t kSliceBytes = std::size_t{16} * 1024;
constexpr std::size_t kBatchPackets = 1024;
// What has no frame by then is no audio, and downloading it to its end would keep the listener waiting.
constexpr std::int64_t kMaximumSearch = std::int64_t{1} << 20;
// Bytes made to look like the beginning of a frame again and again would be looked through again and again.
constexpr std::int64_t kPatienceBytes = std::int64_t{8} << 20;
constexpr std::int64_t kPatienceFactor = 16;

enum BlockType : std::uint8_t { StreamInfoBlock = 0, SeekTableBlock = 3, InvalidBlock = 127 };

} // namespace

FlacParser::FlacParser(ParserOutput& output, std::int64_t startOffset)
    : output_(output)
    , fields_(startOffset)
{
    fields_.want(kMarkerBytes);
    batch_.reserve(kBatchPackets);
}

AudioStatus FlacParser::parse(std::span<const std::byte> bytes, bool discontinuous)
{
    if (state_ != State::Frames) {
        if (const AudioStatus status = readMetadata(bytes); status != kAudioOk)
            return status;
    } else if (discontinuous && (deliveredSinceBreak_ || places_.breakExpected())) {
        buffer_.clear();
        place_ = 0;
        header_.reset();
        const auto target = places_.targetAfterBreak();
        bufferPlace_ = target ? std::optional(target->byteOffset) : std::nullopt;
        wanted_ = target ? std::optional(target->frame) : std::nullopt;
        if (wanted_ && info_->frames > 0) // listeners seek by an estimate of the length
            wanted_ = std::min(*wanted_, info_->frames - 1);
        deliveredSinceBreak_ = false;
    }
    while (!bytes.empty()) {
        const auto slice = bytes.first(std::min(bytes.size(), kSliceBytes));
        bytes = bytes.subspan(slice.size());
        buffer_.insert(buffer_.end(), slice.begin(), slice.end());
        takenBytes_ += std::ssize(slice);
        if (const AudioStatus status = frameBuffer(); status != kAudioOk)
            return status;
    }
    return kAudioOk;
}

/// Takes bytes up to the first frame.
AudioStatus FlacParser::readMetadata(std::span<const std::byte>& bytes)
{
    while (state_ != State::Frames && fields_.take(bytes)) {
        if (const AudioStatus status = fieldGathered(); status != kAudioOk)
            return status;
    }
    return kAudioOk;
}

AudioStatus FlacParser::fieldGathered()
{
    const auto field = fields_.field();
    switch (state_) {
    case State::Marker: // the file type was recognised by it
        nextBlock(0);
        return kAudioOk;
    case State::BlockHeader:
        return blockHeaderGathered();
    case State::StreamInfo:
        info_ = FlacStreamInfo::parse(field);
        if (!info_)
            return kInvalidFile;
        cookie_.assign(field.begin(), field.end());
        places_.describe(info_->description(info_->mostBlock));
        nextBlock(blockLeft_);
        return kAudioOk;
    case State::SeekPoint:
        if (const std::uint64_t frame = bigEndian64(field); frame != kPlaceholder)
            places_.add(static_cast<std::int64_t>(frame),
                        static_cast<std::int64_t>(bigEndian64(field.subspan(8))));
        blockLeft_ -= kSeekPointBytes;
        if (blockLeft_ >= std::int64_t{kSeekPointBytes})
            fields_.want(kSeekPointBytes);
        else
            nextBlock(blockLeft_);
        return kAudioOk;
    case State::LastBlockRest:
        state_ = State::Frames;
        dataOffset_ = fields_.offset();
        bufferPlace_ = 0;
        return kAudioOk;
    case State::Frames:
        break;
    }
    return kAudioOk;
}

AudioStatus FlacParser::blockHeaderGathered()
{
    const auto field = fields_.field();
    const auto kind = std::to_integer<std::uint8_t>(field[0]);
    const int type = kind & 0x7f;
    lastBlock_ = (kind & 0x80) != 0;
    blockLeft_ = static_cast<std::int64_t>(bigEndian(field.subspan(1)));
    if (type == InvalidBlock || (type == StreamInfoBlock) == info_.has_value())
        return kInvalidFile; // the first block, and no other, tells of the stream
    if (type == StreamInfoBlock) {
        if (blockLeft_ < std::int64_t{FlacStreamInfo::kBytes})
            return kInvalidFile;
        state_ = State::StreamInfo;
        blockLeft_ -= FlacStreamInfo::kBytes;
        fields_.want(FlacStreamInfo::kBytes);
    } else if (type == SeekTableBlock && blockLeft_ >= std::int64_t{kSeekPointBytes}) {
        state_ = State::SeekPoint;
        fields_.want(kSeekPointBytes);
    } else {
        nextBlock(blockLeft_);
    }
    return kAudioOk;
}

/// Goes on after so many bytes of the block.
void FlacParser::nextBlock(std::int64_t skipBytes)
{
    state_ = lastBlock_ ? State::LastBlockRest : State::BlockHeader;
    fields_.want(lastBlock_ ? 0 : kBlockHeaderBytes, skipBytes);
}

AudioStatus FlacParser::frameBuffer()
{
    bool forward = true;
    while (forward) {
        if (searched_ > kMaximumSearch || wastedBytes_ > kPatienceBytes + kPatienceFactor * takenBytes_)
            return kInvalidFile;
        forward = header_ ? followFrame() : search();
    }
    deliver();
    buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(place_));
    if (bufferPlace_)
        *bufferPlace_ += static_cast<std::int64_t>(place_);
    scan_ -= std::min(scan_, place_);
    place_ = 0;
    return kAudioOk;
}

/// Looks for the beginning of a frame; false when bytes are missing.
bool FlacParser::search()
{
    const auto rest = std::span(buffer_).subspan(place_);
    if (rest.empty())
        return false;
    if (const auto header = FlacFrameHeader::parse(rest, *info_)) {
        beginFrame(place_, *header);
        return true;
    }
    if (rest[0] == std::byte{0xff} && rest.size() < FlacFrameHeader::kMostBytes)
        return false;
    ++place_;
    if (framesPerPacket_ == 0)
        ++searched_;
    return true;
}

void FlacParser::beginFrame(std::size_t place, const FlacFrameHeader& header)
{
    place_ = place;
    scan_ = place;
    check_ = {};
    header_ = header;
}

/// Looks for the end of the frame; false when bytes are missing.
bool FlacParser::followFrame()
{
    const std::size_t largest = info_->largestFrameBytes();
    while (scan_ < buffer_.size()) {
        check_.add(buffer_[scan_]);
        ++scan_;
        const std::size_t size = scan_ - place_;
        if (check_.value() == 0) {
            if (flacFrameBytes(std::span(buffer_).subspan(place_, size), *header_, *info_) == size)
                acceptFrame();
            else
                wastedBytes_ += static_cast<std::int64_t>(size);
            return true;
        }
        // The next frame begins and this one has not ended: some of it is lost.
        if (size > FlacFrameHeader::kMostBytes) {
            const std::size_t place = scan_ - FlacFrameHeader::kMostBytes;
            if (const auto next = successorAt(place)) {
                beginFrame(place, *next);
                return true;
            }
        }
        if (size > largest) {
            wastedBytes_ += static_cast<std::int64_t>(size);
            header_.reset();
            ++place_;
            return true;
        }
    }
    return false;
}

std::optional<FlacFrameHeader> FlacParser::successorAt(std::size_t place) const
{
    if (buffer_[place] != std::byte{0xff})
        return std::nullopt;
    const auto next = FlacFrameHeader::parse(std::span(buffer_).subspan(place), *info_);
    const bool follows =
        next && next->variableBlocks == header_->variableBlocks && next->number == header_->nextNumber();
    return follows ? next : std::nullopt;
}

void FlacParser::acceptFrame()
{
    const auto size = static_cast<std::uint32_t>(scan_ - place_);
    if (framesPerPacket_ == 0)
        announce(size);
    if (bufferPlace_)
        places_.add(header_->firstFrame(*info_), *bufferPlace_ + static_cast<std::int64_t>(place_));
    // Without the stream's length only places before a known one are told as such, so the frame comes.
    if (info_->frames > 0)
        places_.countPiece(size);
    const std::int64_t first = header_->firstFrame(*info_);
    const bool early = wanted_ && first + header_->blockFrames <= *wanted_ &&
                       *wanted_ - first <= SeekPlaces::kMostLeftOut * info_->sampleRate;
    if (!early)
        wanted_.reset();
    // A file whose frames are larger than it says loses those, rather than all to the reader's disbelief.
    if (size < bound_ && !early) {
        places_.countPacket(size);
        const std::uint32_t frames = header_->blockFrames;
        batch_.push_back({static_cast<std::int64_t>(place_), frames == framesPerPacket_ ? 0 : frames, size});
        if (batch_.size() == kBatchPackets)
            deliver();
    }
    header_.reset();
    place_ = scan_;
}

void FlacParser::announce(std::uint32_t firstFrameBytes)
{
    framesPerPacket_ = header_->variableBlocks ? header_->blockFrames : info_->mostBlock;
    bound_ = info_->packetBound(firstFrameBytes);
    AudioFileProperties properties;
    properties.format = info_->description(framesPerPacket_);
    properties.dataOffset = dataOffset_;
    properties.packetSizeUpperBound = bound_;
    properties.maximumPacketSize = bound_ - 1;
    properties.magicCookie = std::move(cookie_);
    places_.describe(*properties.format);
    output_.announce(std::move(properties));
}

void FlacParser::deliver()
{
    if (batch_.empty())
        return;
    deliveredSinceBreak_ = true;
    output_.packets(buffer_, static_cast<std::uint32_t>(batch_.size()), batch_);
    batch_.clear();
}

AudioStatus FlacParser::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated)
{
    return places_.seek(packet, byteOffset, estimated);
}

} // namespace zib
