// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/FrameParser.h"

#include "platform/desktop/parsers/LeadingTag.h"

#include <algorithm>

namespace zib {

namespace {

constexpr std::size_t kSliceBytes = std::size_t{16} * 1024;
constexpr std::size_t kBatchPackets = 1024;
constexpr std::size_t kLongestHeader = AdtsHeader::kBytes;
constexpr std::size_t kLargestFrame = AdtsHeader::kLargestFrame;
// Longer than any padding between tag and audio that encoders write. What has no frame by then is no audio,
// and downloading it to its end would keep the listener waiting.
constexpr std::int64_t kMaximumSearch = std::int64_t{128} * 1024;

} // namespace

FrameParser::FrameParser(ParserOutput& output, std::int64_t startOffset)
    : output_(output)
    , bufferOffset_(startOffset)
{
    // What stays between two slices is shorter than the frames that a search looks at together.
    buffer_.reserve(kSliceBytes + 4 * kLargestFrame);
    batch_.reserve(kBatchPackets);
}

AudioStatus FrameParser::parse(std::span<const std::byte> bytes, bool discontinuous)
{
    if (discontinuous && breakExpected_) {
        buffer_.clear();
        skip_ = 0;
        locked_ = false;
        broken_ = true;
        breakExpected_ = false;
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

std::span<const std::byte> FrameParser::rest() const
{
    return std::span(buffer_).subspan(place_);
}

AudioStatus FrameParser::frameBuffer()
{
    place_ = 0;
    Step step = Step::Forward;
    while (step == Step::Forward && searched_ <= kMaximumSearch) {
        if (skip_ > 0) {
            const auto skipped = std::min(static_cast<std::size_t>(skip_), rest().size());
            place_ += skipped;
            skip_ -= static_cast<std::int64_t>(skipped);
        }
        if (rest().size() < kLeadingTagHeaderBytes && (rest().empty() || !locked_))
            step = Step::NeedsMore;
        else
            step = locked_ ? takeFrame() : search();
    }
    deliver();
    buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(place_));
    bufferOffset_ += static_cast<std::int64_t>(place_);
    return searched_ > kMaximumSearch ? kUnsupportedFileType : kAudioOk;
}

/// Whether a frame begins the rest, which that many frames of the same stream must prove by following it.
FrameParser::Verdict FrameParser::judge(const FrameCoding& coding, int followers) const
{
    auto bytes = rest();
    const auto first = coding.headerAt(bytes);
    if (!first || (stream_ && first->stream != *stream_))
        return Verdict::NoFrame;
    auto last = *first;
    for (int i = 0; i < followers; ++i) {
        if (bytes.size() < last.frameBytes + kLongestHeader)
            return Verdict::NeedsMore;
        bytes = bytes.subspan(last.frameBytes);
        const auto next = coding.headerAt(bytes);
        if (!next || next->stream != first->stream)
            return Verdict::NoFrame;
        last = *next;
    }
    return Verdict::Frame;
}

/// Judges the rest; the first frame found settles the coding for good.
FrameParser::Verdict FrameParser::recognise()
{
    if (stream_)
        return judge(*coding_, 1);
    // The very first bytes of a file are probably what they seem. Those after garbage are less so.
    const int followers = searched_ > 0 ? 2 : 1;
    for (FrameCoding* coding : {static_cast<FrameCoding*>(&mpeg_), static_cast<FrameCoding*>(&adts_)}) {
        coding_ = coding;
        // No header is one of both codings.
        if (const Verdict verdict = judge(*coding, followers); verdict != Verdict::NoFrame)
            return verdict;
    }
    return Verdict::NoFrame;
}

FrameParser::Step FrameParser::search()
{
    switch (recognise()) {
    case Verdict::NeedsMore:
        return Step::NeedsMore;
    case Verdict::Frame:
        locked_ = true;
        firstAfterSync_ = true;
        return Step::Forward;
    case Verdict::NoFrame:
        break;
    }
    if (const auto tag = leadingTagBytes(rest())) {
        skip_ = *tag;
        return Step::Forward;
    }
    ++place_;
    if (!stream_)
        ++searched_;
    return Step::Forward;
}

FrameParser::Step FrameParser::takeFrame()
{
    if (rest().size() < kLongestHeader)
        return Step::NeedsMore;
    const auto header = coding_->headerAt(rest());
    if (!header || (stream_ && header->stream != *stream_)) {
        locked_ = false;
        return Step::Forward;
    }
    if (rest().size() < header->frameBytes)
        return Step::NeedsMore;
    FrameCoding::Frame frame{rest().first(header->frameBytes), firstAfterSync_, std::nullopt};
    firstAfterSync_ = false;
    if (!broken_)
        frame.offset = bufferOffset_ + static_cast<std::int64_t>(place_);
    const std::size_t before = batch_.size();
    coding_->take(frame, batch_);
    for (std::size_t i = before; i < batch_.size(); ++i)
        batch_[i].startOffset += static_cast<std::int64_t>(place_);
    if (batch_.size() > before && !stream_) {
        stream_ = header->stream;
        announce();
    }
    place_ += header->frameBytes;
    if (batch_.size() >= kBatchPackets)
        deliver();
    return Step::Forward;
}

void FrameParser::announce()
{
    AudioFileProperties properties = coding_->properties();
    properties.dataOffset = bufferOffset_ + static_cast<std::int64_t>(place_);
    output_.announce(std::move(properties));
}

void FrameParser::deliver()
{
    if (batch_.empty())
        return;
    breakExpected_ = true;
    output_.packets(buffer_, static_cast<std::uint32_t>(batch_.size()), batch_);
    batch_.clear();
}

AudioStatus FrameParser::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated)
{
    constexpr std::int64_t kMaximumPacket = std::int64_t{1} << 32;
    if (!stream_ || packet < 0 || packet > kMaximumPacket)
        return kIllegalPacket;
    breakExpected_ = true;
    return coding_->seek(packet, byteOffset, estimated);
}

} // namespace zib
