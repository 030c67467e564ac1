// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/SeekPlaces.h"

#include <algorithm>
#include <utility>

namespace zib {

namespace {

constexpr std::int64_t kMaximumFrame = std::int64_t{1} << 44;
// Two hours by the half second; a file's own table has a place every ten seconds or so.
constexpr std::size_t kMostPlaces = 14'400;
constexpr double kPlaceDistance = 0.5; // seconds
// Places this near to each other are gone to themselves, those further apart are guessed between.
constexpr double kNear = 1.5; // seconds
// What a guess is early by, for its own error: more would hear the right place more often, but readers tell
// the time by bytes.
constexpr double kEarly = 0.5;            // seconds
constexpr double kEarlyPart = 0.025;      // and of the way from the last place that is known
constexpr double kEarlyPartBetween = 0.1; // where a next one is known, as then the way is short
constexpr double kMostBytes = 1e15;

} // namespace

void SeekPlaces::describe(const AudioStreamDescription& format)
{
    sampleRate_ = format.sampleRate;
    framesPerPacket_ = format.framesPerPacket;
}

void SeekPlaces::add(std::int64_t frame, std::int64_t byteOffset)
{
    if (places_.size() >= kMostPlaces || frame < 0 || frame > kMaximumFrame || byteOffset < 0)
        return;
    const auto next = std::ranges::lower_bound(places_, frame, {}, &Place::frame);
    const auto distance = static_cast<std::int64_t>(kPlaceDistance * sampleRate_);
    if (next != places_.end() && (next->frame - frame < distance || next->byteOffset <= byteOffset))
        return;
    if (next != places_.begin()) {
        const Place& before = *std::prev(next);
        if (frame - before.frame < distance || before.byteOffset >= byteOffset)
            return;
    }
    places_.insert(next, {frame, byteOffset});
}

void SeekPlaces::countPackets(std::uint64_t packets, std::uint64_t bytes)
{
    packets_ += packets;
    packetBytes_ += bytes;
}

void SeekPlaces::countPiece(std::int64_t bytes)
{
    pieceBytes_ = std::max(pieceBytes_, bytes);
}

double SeekPlaces::average() const
{
    if (!places_.empty() && places_.back().frame > 0)
        return static_cast<double>(places_.back().byteOffset) / static_cast<double>(places_.back().frame);
    return static_cast<double>(packetBytes_) / static_cast<double>(packets_) /
           static_cast<double>(framesPerPacket_);
}

std::optional<std::int64_t> SeekPlaces::lookUp(std::int64_t frame) const
{
    const auto next = std::ranges::lower_bound(places_, frame, {}, &Place::frame);
    if (next != places_.end() && next->frame == frame)
        return next->byteOffset;
    const Place before = next == places_.begin() ? Place{0, 0} : *std::prev(next);
    double rate = average();
    double earlyPart = kEarlyPart;
    if (next != places_.end()) {
        const auto between = static_cast<double>(next->frame - before.frame);
        if (between <= kNear * sampleRate_)
            return before.byteOffset;
        rate = static_cast<double>(next->byteOffset - before.byteOffset) / between;
        earlyPart = kEarlyPartBetween;
    } else if (pieceBytes_ == 0) {
        return std::nullopt;
    }
    const auto way = static_cast<double>(frame - before.frame);
    const double guessed = rate * (way * (1 - earlyPart) - kEarly * sampleRate_);
    const auto after = static_cast<std::int64_t>(std::clamp(guessed, 0.0, kMostBytes)) - pieceBytes_;
    return before.byteOffset + std::max<std::int64_t>(after, 0);
}

AudioStatus SeekPlaces::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated)
{
    if (packets_ == 0 || framesPerPacket_ == 0 || packet < 0 || packet > kMaximumFrame / framesPerPacket_)
        return kIllegalPacket;
    const std::int64_t frame = packet * framesPerPacket_;
    const auto place = lookUp(frame);
    byteOffset = place.value_or(
        static_cast<std::int64_t>(std::min(average() * static_cast<double>(frame), kMostBytes)));
    estimated = !place;
    target_ = place ? std::optional(Target{*place, frame}) : std::nullopt;
    breakExpected_ = true;
    return kAudioOk;
}

std::optional<SeekPlaces::Target> SeekPlaces::targetAfterBreak()
{
    breakExpected_ = false;
    return std::exchange(target_, std::nullopt);
}

std::optional<std::int64_t> SeekPlaces::frameAt(std::int64_t byteOffset) const
{
    const auto place = std::ranges::lower_bound(places_, byteOffset, {}, &Place::byteOffset);
    if (place == places_.end() || place->byteOffset != byteOffset)
        return std::nullopt;
    return place->frame;
}

} // namespace zib
