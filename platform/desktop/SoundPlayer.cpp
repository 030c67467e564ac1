// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/SoundPlayer.h"

#include "platform/desktop/DesktopSound.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zib {

namespace {

using std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr double kRemembered = 0.5; ///< seconds; more than any output holds
constexpr double kHeadStart = 0.1;  ///< seconds; to be written before the first is heard, lest it starve
constexpr double kGainRamp = 0.01;  ///< seconds from silence to full
constexpr auto kOpeningPatience = 3s;
constexpr auto kDrainPatience = 3s;
constexpr auto kLookEvery = 2s; ///< for a server that went away

} // namespace

SoundPlayer::SoundPlayer(DesktopSound& sound, std::shared_ptr<WakeSignal> feeder)
    : sound_(sound)
    , feeder_(std::move(feeder))
{
}

std::size_t SoundPlayer::samplesOf(std::int64_t frames) const
{
    return static_cast<std::size_t>(frames) * static_cast<std::size_t>(format_.channels);
}

void SoundPlayer::open(const SoundFormat& format)
{
    close();
    format_ = format;
    failures_ = 0;
    reopen(false);
}

void SoundPlayer::close()
{
    stream_.reset();
    running_ = finishing_ = drainAsked_ = false;
    recent_.clear();
    recentFrom_ = written_ = sent_ = streamFrom_ = heard_ = 0;
    gain_ = volume_;
}

/// Goes on with what was not heard.
void SoundPlayer::reopen(bool standIn)
{
    if (stream_) {
        stream_->setRunning(false);
        hear();
    }
    streamFrom_ = sent_ = std::max(heard_, recentFrom_);
    standIn_ = standIn;
    drainAsked_ = false;
    openedAt_ = lookedAt_ = movedAt_ = steady_clock::now();
    stream_.reset(); // the old stream first, or both would sound
    stream_ =
        sound_.open(format_, standIn ? DesktopSound::Choice::StandIn : DesktopSound::Choice::Server, feeder_);
    pump();
}

void SoundPlayer::tend()
{
    if (!stream_)
        return;
    const auto now = steady_clock::now();
    if (standIn_) {
        if (now - lookedAt_ >= kLookEvery) {
            lookedAt_ = now;
            if (sound_.lookForServer())
                reopen(false);
        }
    } else {
        const auto state = stream_->state();
        if (heard() > streamFrom_ && std::exchange(failures_, 0) != 0)
            sound_.serverPlays();
        // The first failure may be a server that restarts; the new stream waits until it has connected.
        if (state == SoundStream::State::Failed ||
            (state == SoundStream::State::Opening && now - openedAt_ > kOpeningPatience))
            reopen(++failures_ > 1);
    }
    pump();
}

void SoundPlayer::setRunning(bool running)
{
    if (!stream_ || std::exchange(running_, running) == running)
        return;
    if (!running) {
        stream_->setRunning(false);
        hear();
    }
    movedAt_ = steady_clock::now();
    pump();
}

std::size_t SoundPlayer::room()
{
    return stream_ && sent_ == written_ ? stream_->room() : 0;
}

void SoundPlayer::write(std::span<const float> samples)
{
    if (!stream_ || samples.empty())
        return;
    recent_.insert(recent_.end(), samples.begin(), samples.end());
    written_ += static_cast<std::int64_t>(samples.size()) / format_.channels;
    pump();
    forget();
}

/// Keeps no more of the past than may be sent again.
void SoundPlayer::forget()
{
    const auto keep = static_cast<std::int64_t>(kRemembered * format_.rate);
    const auto from = std::min(written_ - keep, sent_);
    if (from - recentFrom_ < keep) // seldom, because it moves what is kept
        return;
    recent_.erase(recent_.begin(),
                  recent_.begin() + static_cast<std::ptrdiff_t>(samplesOf(from - recentFrom_)));
    recentFrom_ = from;
}

/// Sends what is not sent yet, so far as the stream wants it.
void SoundPlayer::pump()
{
    if (!stream_)
        return;
    const auto frames = std::min(written_ - sent_, static_cast<std::int64_t>(stream_->room()));
    if (frames > 0) {
        const auto first = recent_.begin() + static_cast<std::ptrdiff_t>(samplesOf(sent_ - recentFrom_));
        scratch_.assign(first, first + static_cast<std::ptrdiff_t>(samplesOf(frames)));
        applyVolume(scratch_);
        stream_->write(scratch_);
        sent_ += frames;
    }
    if (running_ && sent_ - streamFrom_ >= static_cast<std::int64_t>(kHeadStart * format_.rate))
        stream_->setRunning(true);
    if (finishing_ && sent_ == written_ && stream_->state() == SoundStream::State::Ready &&
        !std::exchange(drainAsked_, true))
        stream_->drain();
}

void SoundPlayer::applyVolume(std::span<float> samples)
{
    if (gain_ == 1 && volume_ == 1)
        return;
    const auto step = static_cast<float>(1 / (kGainRamp * format_.rate));
    const auto channels = static_cast<std::size_t>(format_.channels);
    for (std::size_t i = 0; i < samples.size(); i += channels) {
        gain_ += std::clamp(volume_ - gain_, -step, step);
        for (std::size_t channel = 0; channel < channels; ++channel)
            samples[i + channel] *= gain_;
    }
}

void SoundPlayer::finish()
{
    finishing_ = true;
    movedAt_ = steady_clock::now();
    pump();
}

bool SoundPlayer::finished()
{
    if (!stream_ || !finishing_)
        return false;
    if (drainAsked_ && stream_->drained()) {
        heard_ = written_;
        return true;
    }
    const auto before = heard_;
    const auto now = steady_clock::now();
    if (heard() != before || !running_)
        movedAt_ = now;
    // A suspended device would hold a song's end back for ever.
    return now - movedAt_ > kDrainPatience;
}

std::int64_t SoundPlayer::heard()
{
    if (stream_ && running_)
        hear();
    return heard_;
}

std::chrono::milliseconds SoundPlayer::unheard()
{
    if (!stream_)
        return 0ms;
    const auto frames = static_cast<double>(written_ - heard());
    return std::chrono::milliseconds(std::llround(std::ceil(frames / format_.rate * 1000)));
}

void SoundPlayer::hear()
{
    heard_ = std::clamp(streamFrom_ + stream_->heard(), heard_, std::max(sent_, heard_));
}

void SoundPlayer::setVolume(float volume)
{
    volume_ = volume;
    if (!stream_ || sent_ == streamFrom_) {
        gain_ = volume;
        return;
    }
    const auto mayReturn = sent_ - std::max(recentFrom_, streamFrom_);
    sent_ -= static_cast<std::int64_t>(stream_->takeBack(static_cast<std::size_t>(mayReturn)));
    pump();
}

std::optional<std::chrono::milliseconds> SoundPlayer::rest()
{
    if (!stream_)
        return std::nullopt;
    if (running_ && sent_ > streamFrom_)
        stream_->setRunning(true); // there is no more to wait for
    auto look = stream_->nextLook();
    const auto atMost = [&look](std::chrono::milliseconds time) {
        look = std::min(look.value_or(time), time);
    };
    if (stream_->state() != SoundStream::State::Ready || finishing_)
        atMost(250ms);
    else if (standIn_ && running_)
        atMost(kLookEvery);
    return look;
}

} // namespace zib
