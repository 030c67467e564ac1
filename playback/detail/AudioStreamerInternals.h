// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "playback/AudioStreamer.h"
#include "services/utilities/ThreadQueue.h"

#include <QLoggingCategory>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace zib {

Q_DECLARE_LOGGING_CATEGORY(playbackLog)

/// The size of a network read, and of a buffer where the parser knows none.
inline constexpr std::uint32_t kAQDefaultBufSize = 2048;

/// The real number without its fraction; the nearest that fits when it is out of range, 0 when it is none.
inline std::int64_t truncated(double value)
{
    constexpr double limit = 9.0e18;
    return std::isnan(value) ? 0 : static_cast<std::int64_t>(std::clamp(value, -limit, limit));
}

/// A hold of the streamer's lock. The outermost one on the main thread tells of the state changes made under
/// it once the lock is free, as its very last act: a slot may destroy the streamer.
class AudioStreamer::Lock {
  public:
    explicit Lock(AudioStreamer& streamer)
        : streamer_(streamer)
    {
        streamer_.lock_.lock();
        ++streamer_.lockDepth_;
    }
    ~Lock()
    {
        int stateChanges = 0;
        if (--streamer_.lockDepth_ == 0)
            stateChanges = std::exchange(streamer_.unpublishedStateChanges_, 0);
        streamer_.lock_.unlock();
        if (stateChanges > 0)
            streamer_.publish(stateChanges);
    }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

  private:
    AudioStreamer& streamer_;
};

/// Lets the callbacks of output queues through to the streamer for as long as it lives.
class AudioStreamer::CallbackGate {
  public:
    explicit CallbackGate(AudioStreamer& streamer)
        : streamer_(&streamer)
    {
    }

    /// Calls the action with the streamer, unless the gate is closed.
    template <typename Action>
    void pass(Action action)
    {
        AudioStreamer* streamer = nullptr;
        {
            const std::scoped_lock lock(mutex_);
            if (streamer_ == nullptr)
                return;
            streamer = streamer_;
            inside_.push_back(std::this_thread::get_id());
        }
        action(*streamer);
        const std::scoped_lock lock(mutex_);
        inside_.erase(std::find(inside_.begin(), inside_.end(), std::this_thread::get_id()));
        left_.notify_all();
    }

    /// None passes any more. Returns when those inside on other threads have left; one on this thread is the
    /// caller of whatever closes the gate. Called without the streamer's lock.
    void close()
    {
        std::unique_lock lock(mutex_);
        streamer_ = nullptr;
        left_.wait(lock, [this] {
            return std::all_of(inside_.begin(), inside_.end(),
                               [](std::thread::id id) { return id == std::this_thread::get_id(); });
        });
    }

  private:
    std::mutex mutex_; // guards all below
    std::condition_variable left_;
    AudioStreamer* streamer_;
    std::vector<std::thread::id> inside_;
};

/// The streamer as one output queue knows it. What an old queue still says is told apart by its client.
class AudioStreamer::QueueClient final : public AudioQueueClient {
  public:
    explicit QueueClient(std::shared_ptr<CallbackGate> gate)
        : gate_(std::move(gate))
    {
    }
    void bufferComplete(AudioQueue& /*queue*/, AudioQueueBuffer& buffer) override
    {
        gate_->pass([&](AudioStreamer& streamer) { streamer.handleBufferCompleteForQueue(*this, buffer); });
    }
    void isRunningChanged(AudioQueue& /*queue*/, bool running) override
    {
        gate_->pass([&](AudioStreamer& streamer) { streamer.handlePropertyChangeForQueue(*this, running); });
    }

  private:
    const std::shared_ptr<CallbackGate> gate_;
};

} // namespace zib
