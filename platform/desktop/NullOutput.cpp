// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/NullOutput.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace zib {

namespace {

constexpr auto kBuffered = std::chrono::milliseconds(250);

class NullStream : public SoundStream {
  public:
    NullStream(const SoundFormat& format, double speed, NullOutput::Ear ear)
        : format_(format)
        , framesASecond_(format.rate * speed)
        , capacity_(static_cast<std::size_t>(format.rate * kBuffered.count() / 1000))
        , ear_(std::move(ear))
    {
    }

    ~NullStream() override { advance(); }

    State state() override { return State::Ready; }

    std::size_t room() override
    {
        advance();
        const auto waiting = static_cast<std::size_t>(written_ - wholeFramesHeard());
        return waiting < capacity_ ? capacity_ - waiting : 0;
    }

    void write(std::span<const float> samples) override
    {
        advance();
        written_ += static_cast<std::int64_t>(samples.size()) / format_.channels;
        if (ear_)
            unheard_.insert(unheard_.end(), samples.begin(), samples.end());
    }

    std::size_t takeBack(std::size_t frames) override
    {
        advance();
        const auto taken = std::min(frames, static_cast<std::size_t>(written_ - wholeFramesHeard()));
        written_ -= static_cast<std::int64_t>(taken);
        if (ear_)
            unheard_.resize(unheard_.size() - taken * static_cast<std::size_t>(format_.channels));
        return taken;
    }

    void setRunning(bool running) override
    {
        advance();
        running_ = running;
        since_ = std::chrono::steady_clock::now();
    }

    void drain() override { draining_ = true; }

    bool drained() override
    {
        advance();
        return draining_ && wholeFramesHeard() == written_;
    }

    std::int64_t heard() override
    {
        advance();
        return wholeFramesHeard();
    }

    std::optional<std::chrono::milliseconds> nextLook() override
    {
        advance();
        const auto waiting = static_cast<double>(written_) - heard_;
        const double wanted = draining_ ? 0 : static_cast<double>(capacity_) / 2;
        if (!running_ || waiting <= 0)
            return std::nullopt; // nothing changes by itself
        const auto wait = std::ceil((waiting - wanted) / framesASecond_ * 1000);
        return std::chrono::milliseconds(std::max<std::int64_t>(1, static_cast<std::int64_t>(wait)));
    }

  private:
    [[nodiscard]] std::int64_t wholeFramesHeard() const { return static_cast<std::int64_t>(heard_); }

    /// Hears what the clock says. The time stands while there is nothing to hear.
    void advance()
    {
        const auto now = std::chrono::steady_clock::now();
        const std::chrono::duration<double> passed = now - since_;
        since_ = now;
        if (!running_)
            return;
        const auto before = wholeFramesHeard();
        heard_ = std::min(heard_ + passed.count() * framesASecond_, static_cast<double>(written_));
        if (!ear_ || wholeFramesHeard() == before)
            return;
        const auto samples = static_cast<std::size_t>((wholeFramesHeard() - before) * format_.channels);
        ear_(format_, std::span(unheard_).first(samples));
        unheard_.erase(unheard_.begin(), unheard_.begin() + static_cast<std::ptrdiff_t>(samples));
    }

    const SoundFormat format_;
    const double framesASecond_;
    const std::size_t capacity_;
    NullOutput::Ear ear_;
    std::vector<float> unheard_; ///< filled for the ear only
    std::int64_t written_ = 0;
    double heard_ = 0;
    std::chrono::steady_clock::time_point since_ = std::chrono::steady_clock::now();
    bool running_ = false;
    bool draining_ = false;
};

} // namespace

NullOutput::NullOutput(double speed, Ear ear)
    : speed_(speed)
    , ear_(std::move(ear))
{
}

void NullOutput::connect(Search) {}

SoundOutput::Presence NullOutput::presence()
{
    return Presence::Ready;
}

std::unique_ptr<SoundStream> NullOutput::open(const SoundFormat& format, std::shared_ptr<WakeSignal>)
{
    return std::make_unique<NullStream>(format, speed_, ear_);
}

} // namespace zib
