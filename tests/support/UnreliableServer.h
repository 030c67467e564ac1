// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/NullOutput.h"

#include <atomic>
#include <utility>

namespace zib::test {

/// A sound server that can be taken away: its streams fail then, with what they had not played.
class UnreliableServer : public SoundOutput {
  public:
    using Switch = std::shared_ptr<std::atomic<bool>>;

    UnreliableServer(Switch there, double speed, NullOutput::Ear ear)
        : there_(std::move(there))
        , output_(speed, std::move(ear))
    {
    }
    void connect(Search) override {}
    Presence presence() override { return *there_ ? Presence::Ready : Presence::Absent; }
    std::unique_ptr<SoundStream> open(const SoundFormat& format, std::shared_ptr<WakeSignal> feeder) override
    {
        return std::make_unique<Stream>(there_, output_.open(format, std::move(feeder)));
    }

  private:
    class Stream : public SoundStream {
      public:
        Stream(Switch there, std::unique_ptr<SoundStream> inner)
            : there_(std::move(there))
            , inner_(std::move(inner))
        {
        }
        State state() override
        {
            if (!*there_ && !std::exchange(failed_, true))
                inner_->setRunning(false);
            return failed_ ? State::Failed : State::Ready;
        }
        std::size_t room() override { return plays() ? inner_->room() : 0; }
        void write(std::span<const float> samples) override
        {
            if (plays())
                inner_->write(samples);
        }
        std::size_t takeBack(std::size_t frames) override { return plays() ? inner_->takeBack(frames) : 0; }
        void setRunning(bool running) override { inner_->setRunning(running && plays()); }
        void drain() override { inner_->drain(); }
        bool drained() override { return plays() && inner_->drained(); }
        std::int64_t heard() override
        {
            state();
            return inner_->heard();
        }
        std::optional<std::chrono::milliseconds> nextLook() override
        {
            return plays() ? inner_->nextLook() : std::chrono::milliseconds(1);
        }

      private:
        bool plays() { return state() == State::Ready; }

        const Switch there_;
        const std::unique_ptr<SoundStream> inner_;
        bool failed_ = false;
    };

    const Switch there_;
    NullOutput output_;
};

} // namespace zib::test
