// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/SeekPlaces.h"

#include <algorithm>
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
    told_ = lookUp(packet * framesPerPacket_);
    byteOffset = told_.value_or(static_cast<std::int64_t>(average * static_cast<double>(packet)));
    estimated = !told_;
    breakExpected_ = true;
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
