// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/SeekPlaces.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zib {

namespace {

constexpr std::int64_t kMaximumPacket = std::int64_t{1} << 32;
constexpr std::int64_t kMaximumFrame = std::int64_t{1} << 44;
// Two hours by the half second; a file's own table has a place every ten seconds or so.
constexpr std::size_t kMostPlaces = 14'400;
constexpr double kPlaceDistance = 0.5; // seconds
// Places this near to each other are gone to themselves, those further apart are guessed between.
constexpr double kNear = 1.5; // seconds
// Readers tell the time after a seek from the place, as if all of the file had the rate so far. Where that
// is further from the time asked for, a clock that jumps is worse than music from a little aside.
constexpr double kClockTolerance = 2.0; // seconds

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

void SeekPlaces::countPacket(std::size_t bytes)
{
    ++packets_;
    packetBytes_ += static_cast<std::int64_t>(bytes);
}

std::optional<std::int64_t> SeekPlaces::lookUp(std::int64_t frame) const
{
    const auto next = std::ranges::lower_bound(places_, frame, {}, &Place::frame);
    if (next != places_.end() && next->frame == frame)
        return next->byteOffset;
    if (next == places_.end() || next == places_.begin())
        return std::nullopt;
    const Place& before = *std::prev(next);
    const auto between = static_cast<double>(next->frame - before.frame);
    const double part = static_cast<double>(frame - before.frame) / between;
    if (between <= kNear * sampleRate_)
        return part < 0.5 ? before.byteOffset : next->byteOffset;
    return before.byteOffset +
           static_cast<std::int64_t>(part * static_cast<double>(next->byteOffset - before.byteOffset));
}

AudioStatus SeekPlaces::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated)
{
    if (packets_ == 0 || packet < 0 || packet > kMaximumPacket)
        return kIllegalPacket;
    const double average = static_cast<double>(packetBytes_) / static_cast<double>(packets_);
    const auto place = lookUp(packet * framesPerPacket_);
    byteOffset = place.value_or(static_cast<std::int64_t>(average * static_cast<double>(packet)));
    const double packetsAside = static_cast<double>(byteOffset) / average - static_cast<double>(packet);
    const double secondsAside = packetsAside * static_cast<double>(framesPerPacket_) / sampleRate_;
    estimated = !place || std::abs(secondsAside) > kClockTolerance;
    breakExpected_ = true;
    told_ = estimated ? std::nullopt : std::optional(byteOffset);
    return kAudioOk;
}

std::optional<std::int64_t> SeekPlaces::placeAfterBreak()
{
    breakExpected_ = false;
    return std::exchange(told_, std::nullopt);
}

std::optional<std::int64_t> SeekPlaces::frameAt(std::int64_t byteOffset) const
{
    const auto place = std::ranges::lower_bound(places_, byteOffset, {}, &Place::byteOffset);
    if (place == places_.end() || place->byteOffset != byteOffset)
        return std::nullopt;
    return place->frame;
}

} // namespace zib
