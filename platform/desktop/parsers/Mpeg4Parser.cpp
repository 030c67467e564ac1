// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/Mpeg4Parser.h"

#include "platform/desktop/parsers/ByteReader.h"

#include <algorithm>
#include <cmath>

namespace zib {

namespace {

using Handling = Mpeg4BoxReader::Handling;

constexpr std::size_t kLargestBox = std::size_t{32} << 20;
constexpr std::size_t kMostTracks = 64;
constexpr std::size_t kFragmentMark = 16; ///< bytes that only a fragment begins with

constexpr auto kMovie = fourCharacters("moov");
constexpr auto kTrack = fourCharacters("trak");
constexpr auto kExtends = fourCharacters("mvex");
constexpr auto kTrackExtends = fourCharacters("trex");
constexpr auto kFragment = fourCharacters("moof");
constexpr auto kTrackFragment = fourCharacters("traf");
constexpr auto kDecodeTime = fourCharacters("tfdt");
constexpr auto kTrackFragmentHeader = fourCharacters("tfhd");
constexpr auto kRun = fourCharacters("trun");
constexpr auto kMedia = fourCharacters("mdat");
constexpr auto kSegmentIndex = fourCharacters("sidx");

} // namespace

Mpeg4Parser::Mpeg4Parser(ParserOutput& output, std::int64_t startOffset)
    : boxes_(*this, startOffset)
    , cutter_(output)
{
}

AudioStatus Mpeg4Parser::parse(std::span<const std::byte> bytes, bool discontinuous)
{
    // A seek tells a new break from the same one repeated until packets come.
    if (discontinuous && (cutter_.packets() > packetsBeforeBreak_ || sought_))
        beginAnew();
    if (searching_)
        return searchFragment(bytes);
    if (!indexed_ || fragmented_) {
        const AudioStatus status = boxes_.read(bytes);
        offset_ = boxes_.offset();
        if (status != kAudioOk)
            return status;
    }
    if (!lost_)
        cutter_.cut(bytes, offset_);
    offset_ += std::ssize(bytes);
    return kAudioOk;
}

void Mpeg4Parser::beginAnew()
{
    packetsBeforeBreak_ = cutter_.packets();
    const auto sought = std::exchange(sought_, std::nullopt);
    if (fragmented_) {
        if (!sought)
            wanted_.reset();
        lastAudioFragment_.reset();
        searching_ = true;
        searched_.clear();
        offsetsHold_ = false;
        cutter_.follow({});
        return;
    }
    lost_ = !sought.has_value();
    if (sought)
        offset_ = cutter_.goTo(*sought);
}

/// Looks for the beginning of a fragment and goes on from there.
AudioStatus Mpeg4Parser::searchFragment(std::span<const std::byte> bytes)
{
    constexpr std::string_view kMark("moof\0\0\0\x10mfhd", 12);
    constexpr std::size_t kSizeBytes = kFragmentMark - kMark.size();
    searched_.insert(searched_.end(), bytes.begin(), bytes.end());
    const auto mark =
        std::search(searched_.begin(), searched_.end(), kMark.begin(), kMark.end(),
                    [](std::byte byte, char letter) { return byte == static_cast<std::byte>(letter); });
    const auto before = static_cast<std::size_t>(mark - searched_.begin());
    if (mark == searched_.end() || before < kSizeBytes) {
        const std::size_t kept = std::min(searched_.size(), kFragmentMark - 1);
        searched_.erase(searched_.begin(), searched_.end() - static_cast<std::ptrdiff_t>(kept));
        return kAudioOk;
    }
    searching_ = false;
    boxes_.restart(0);
    const auto found = std::exchange(searched_, {});
    auto rest = std::span(found).subspan(before - kSizeBytes);
    return boxes_.read(rest);
}

Mpeg4BoxReader::Treatment Mpeg4Parser::topBoxBegins(std::uint32_t type, std::int64_t offset)
{
    switch (type) {
    case kMovie:
        return {indexed_ ? Handling::Skip : Handling::Enter};
    case kMedia:
        return {Handling::Pass};
    case kSegmentIndex:
        return {segments_.isEmpty() && offsetsHold_ ? Handling::Gather : Handling::Skip, kLargestBox};
    case kFragment:
        if (!fragment_)
            return {};
        fragment_->begin(offset, offsetsHold_);
        fragmentOffset_ = offset;
        audioBegins(offset);
        return {Handling::Enter};
    default:
        return {};
    }
}

Mpeg4BoxReader::Treatment Mpeg4Parser::boxBegins(std::uint32_t type, std::uint32_t parent,
                                                 std::int64_t offset)
{
    switch (parent) {
    case 0:
        return topBoxBegins(type, offset);
    case kMovie:
        if (type == kExtends)
            fragmented_ = true;
        else if (type != kTrack || (track_ && track_->isEnabled()))
            return {};
        reading_ = {};
        return {Handling::Enter};
    case kExtends:
        return {type == kTrackExtends ? Handling::Gather : Handling::Skip, 24};
    case kFragment:
        return {type == kTrackFragment ? Handling::Enter : Handling::Skip};
    case kTrackFragment:
        return {type == kTrackFragmentHeader || type == kDecodeTime || type == kRun ? Handling::Gather
                                                                                    : Handling::Skip,
                kLargestBox};
    default:
        return reading_.treatmentOf(type, parent);
    }
}

AudioStatus Mpeg4Parser::boxGathered(std::uint32_t type, std::span<const std::byte> body, std::int64_t offset)
{
    switch (type) {
    case kSegmentIndex:
        segments_.read(body, offset);
        break;
    case kTrackExtends:
        if (body.size() == 24 && defaultSizes_.size() < kMostTracks)
            defaultSizes_.emplace_back(bigEndian32(body.subspan(4)), bigEndian32(body.subspan(16)));
        break;
    case kTrackFragmentHeader:
        fragment_->readTrackHeader(body);
        break;
    case kDecodeTime:
        fragment_->readDecodeTime(body);
        break;
    case kRun:
        return fragment_->readRun(body);
    default:
        reading_.read(type, body);
        break;
    }
    return kAudioOk;
}

AudioStatus Mpeg4Parser::boxEnds(std::uint32_t type)
{
    switch (type) {
    case kTrack:
        trackEnds();
        break;
    case kMovie:
        return movieEnds();
    case kFragment:
        fragmentEnds();
        break;
    default:
        break;
    }
    return kAudioOk;
}

void Mpeg4Parser::fragmentEnds()
{
    constexpr double kMostFrames = 1e13;
    auto table = fragment_->takeTable();
    const std::uint64_t samples = table.count();
    if (samples > 0) {
        places_.countPackets(samples, static_cast<std::uint64_t>(table.end() - table.placeOf(0).offset));
        if (lastAudioFragment_)
            places_.countPiece(fragmentOffset_ - *lastAudioFragment_);
        lastAudioFragment_ = fragmentOffset_;
    }
    cutter_.follow(std::move(table));
    if (samples == 0 || !fragment_->decodeTime() || track_->timeScale() == 0)
        return;
    const double time = static_cast<double>(*fragment_->decodeTime()) / track_->timeScale() *
                        track_->description().properties.format->sampleRate;
    if (!firstTime_) // what is a piece of something longer begins later
        firstTime_ = time - static_cast<double>(samplesBeforeFragments_) *
                                track_->description().properties.format->framesPerPacket;
    const double frame = std::round(time - *firstTime_);
    if (frame < 0 || frame > kMostFrames)
        return;
    if (offsetsHold_)
        places_.add(static_cast<std::int64_t>(frame), fragmentOffset_ - *dataOffset_);
    if (wanted_)
        goToWanted(static_cast<std::int64_t>(frame));
}

/// Leaves out the samples of the fragment before the one that a seek asked for.
/// @param frame the first of the fragment
void Mpeg4Parser::goToWanted(std::int64_t frame)
{
    const auto& format = *track_->description().properties.format;
    const std::uint64_t samples = cutter_.table().count();
    const std::int64_t before = std::max<std::int64_t>(*wanted_ - frame, 0);
    if (static_cast<double>(before) > SeekPlaces::kMostLeftOut * format.sampleRate) {
        wanted_.reset();
        return;
    }
    const auto left = static_cast<std::uint64_t>(before) / std::max<std::uint32_t>(format.framesPerPacket, 1);
    if (left < samples) {
        cutter_.goTo(left);
        wanted_.reset();
    } else {
        cutter_.follow({});
    }
}

/// Takes the first track of sound that is enabled, or else the first.
void Mpeg4Parser::trackEnds()
{
    if (track_ && (track_->isEnabled() || !reading_.isEnabled()))
        return;
    if (reading_.isPlayable())
        track_ = std::move(reading_);
}

AudioStatus Mpeg4Parser::movieEnds()
{
    if (!track_)
        return kUnsupportedDataFormat;
    Mpeg4SampleTable& table = track_->table();
    if (const AudioStatus status = table.finish(); status != kAudioOk)
        return status;
    if (table.count() == 0 && !fragmented_)
        return kInvalidFile;
    indexed_ = true;
    std::uint32_t largest = table.largest();
    properties_ = track_->description().properties;
    if (fragmented_)
        largest = std::max(largest, track_->description().largestSample);
    properties_->packetSizeUpperBound = largest + 1;
    properties_->maximumPacketSize = largest;
    samplesBeforeFragments_ = table.count();
    if (table.count() > 0) {
        const std::int64_t begin = table.placeOf(0).offset;
        if (!fragmented_)
            properties_->audioDataByteCount = static_cast<std::uint64_t>(table.end() - begin);
        audioBegins(begin);
    }
    cutter_.follow(std::move(table));
    releaseHeld();
    if (!fragmented_) {
        boxes_.stop();
        return kAudioOk;
    }
    const auto size = std::find_if(defaultSizes_.begin(), defaultSizes_.end(),
                                   [this](const auto& entry) { return entry.first == track_->id(); });
    places_.describe(*track_->description().properties.format);
    fragment_.emplace(track_->id(), size == defaultSizes_.end() ? 0 : size->second);
    return kAudioOk;
}

void Mpeg4Parser::audioBegins(std::int64_t offset)
{
    if (dataOffset_)
        return;
    dataOffset_ = offset;
    properties_->dataOffset = offset;
    cutter_.setProperties(*std::exchange(properties_, std::nullopt));
}

AudioStatus Mpeg4Parser::bytesPass(std::span<const std::byte> bytes, std::int64_t offset)
{
    if (!indexed_)
        return hold(bytes, offset);
    cutter_.cut(bytes, offset);
    return kAudioOk;
}

AudioStatus Mpeg4Parser::hold(std::span<const std::byte> bytes, std::int64_t offset)
{
    if (stretches_.empty() || offset != heldEnd_)
        stretches_.push_back({offset, held_.bytes().size()});
    heldEnd_ = offset + std::ssize(bytes);
    return held_.hold(bytes) ? kAudioOk : kIndexTooLate;
}

void Mpeg4Parser::releaseHeld()
{
    const auto bytes = held_.bytes();
    for (std::size_t i = 0; i < stretches_.size(); ++i) {
        const std::size_t end = i + 1 < stretches_.size() ? stretches_[i + 1].held : bytes.size();
        cutter_.cut(bytes.subspan(stretches_[i].held, end - stretches_[i].held), stretches_[i].offset);
    }
    held_.release();
    stretches_ = {};
}

AudioStatus Mpeg4Parser::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated)
{
    if (packet < 0 || cutter_.packets() == 0)
        return kIllegalPacket;
    estimated = false;
    if (!fragmented_) {
        const std::uint64_t last = cutter_.table().count() - 1;
        sought_ = std::min(static_cast<std::uint64_t>(packet), last);
        byteOffset = cutter_.table().placeOf(*sought_).offset - *dataOffset_;
        return kAudioOk;
    }
    const auto& format = *track_->description().properties.format;
    const double seconds = static_cast<double>(packet) * format.framesPerPacket / format.sampleRate;
    const AudioStatus status = places_.seek(packet, byteOffset, estimated);
    if (status != kAudioOk)
        return status;
    if (const auto offset = segments_.offsetAt(seconds); offset && *offset >= *dataOffset_) {
        byteOffset = *offset - *dataOffset_;
        estimated = false;
    }
    wanted_ = packet * format.framesPerPacket;
    sought_ = static_cast<std::uint64_t>(packet);
    return kAudioOk;
}

} // namespace zib
