// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioQueue.h"

#include <QByteArray>
#include <QList>

#include <algorithm>
#include <atomic>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace zib {

/// The operations of a queue, for injecting failures and for looking at what was called.
enum class QueueCall {
    NewOutput,
    AddListener,
    Allocate,
    Enqueue,
    Start,
    Pause,
    StopNow,
    StopAtEnd,
    Flush,
    CurrentTime,
    SetMagicCookie,
    SetVolume,
    Dispose,
};

/// What the outputs share: failures to inject. Any thread.
class FakeQueueFailures {
  public:
    void set(QueueCall call, AudioStatus status)
    {
        const std::scoped_lock lock(mutex_);
        statuses_[call] = status;
    }
    [[nodiscard]] AudioStatus of(QueueCall call) const
    {
        const std::scoped_lock lock(mutex_);
        const auto status = statuses_.find(call);
        return status == statuses_.end() ? kAudioOk : status->second;
    }

  private:
    mutable std::mutex mutex_;
    std::map<QueueCall, AudioStatus> statuses_;
};

/// One output as the test sees it, on any thread: it hears what was enqueued and decides when a buffer has
/// been played. It outlives the queue, so that a test may call back late. Callbacks come on the thread of
/// whoever causes them, and no lock is held meanwhile.
class FakeOutput {
    template <typename Action>
    auto locked(Action action) const
    {
        const std::scoped_lock lock(mutex_);
        return action();
    }

  public:
    struct Enqueued {
        QByteArray bytes;
        std::vector<AudioPacketDescription> packets;
    };

    FakeOutput(const AudioStreamDescription& format, std::weak_ptr<AudioQueueClient> client)
        : format_(format)
        , client_(std::move(client))
    {
    }

    [[nodiscard]] const AudioStreamDescription& format() const { return format_; }

    /// The buffer at the head has been played. @return false when there is none, or it does not play.
    bool playBuffer()
    {
        AudioQueueBuffer* buffer = nullptr;
        {
            const std::scoped_lock lock(mutex_);
            if (!running_ || paused_ || queued_.empty())
                return false;
            buffer = queued_.front().first;
            framesHeard_ += queued_.front().second;
            queued_.pop_front();
            ++inCallback_;
        }
        complete(*buffer);
        finishIfDrained();
        return true;
    }
    void playAll()
    {
        while (playBuffer()) {
        }
    }
    /// As when an output reports that it runs only later: set before start.
    void reportRunning(bool running)
    {
        if (const auto client = client_.lock())
            client->isRunningChanged(*queue_, running);
    }
    /// A callback that names a buffer which is none of this queue's.
    void completeUnknownBuffer()
    {
        AudioQueueBuffer stranger;
        if (const auto client = client_.lock())
            client->bufferComplete(*queue_, stranger);
    }
    /// The client, as a callback holds it while it runs.
    [[nodiscard]] std::shared_ptr<AudioQueueClient> client() const { return client_.lock(); }
    [[nodiscard]] AudioQueue& queue() const { return *queue_; }

    [[nodiscard]] std::size_t queuedBuffers() const
    {
        return locked([this] { return queued_.size(); });
    }
    [[nodiscard]] std::vector<Enqueued> everythingEnqueued() const
    {
        return locked([this] { return heard_; });
    }
    [[nodiscard]] std::vector<QueueCall> calls() const
    {
        return locked([this] { return calls_; });
    }
    [[nodiscard]] bool wasCalled(QueueCall call) const
    {
        return locked([&] { return std::find(calls_.begin(), calls_.end(), call) != calls_.end(); });
    }
    [[nodiscard]] bool isRunning() const
    {
        return locked([this] { return running_; });
    }
    [[nodiscard]] bool isPaused() const
    {
        return locked([this] { return paused_; });
    }
    [[nodiscard]] bool isDisposed() const
    {
        return locked([this] { return disposed_; });
    }
    [[nodiscard]] float volume() const
    {
        return locked([this] { return volume_; });
    }
    [[nodiscard]] std::vector<std::byte> magicCookie() const
    {
        return locked([this] { return cookie_; });
    }
    [[nodiscard]] std::uint32_t bufferCapacity() const
    {
        return locked([this] { return capacity_; });
    }
    void setFramesHeard(double frames)
    {
        locked([&] { return framesHeard_ = frames; });
    }

  private:
    friend class FakeAudioQueue;

    void complete(AudioQueueBuffer& buffer)
    {
        if (const auto client = client_.lock())
            client->bufferComplete(*queue_, buffer);
        const std::scoped_lock lock(mutex_);
        --inCallback_;
    }
    /// Reports the end that was asked for, once the last buffer's callback is over.
    void finishIfDrained()
    {
        {
            const std::scoped_lock lock(mutex_);
            if (!stopsAtEnd_ || !queued_.empty() || inCallback_ > 0 || !running_)
                return;
            running_ = stopsAtEnd_ = false;
        }
        report(false);
    }
    void report(bool running)
    {
        if (locked([this] { return listened_; }))
            reportRunning(running);
    }

    const AudioStreamDescription format_;
    const std::weak_ptr<AudioQueueClient> client_;
    AudioQueue* queue_ = nullptr;
    mutable std::mutex mutex_;                                // guards all below
    std::deque<std::pair<AudioQueueBuffer*, double>> queued_; // and the frames in it
    std::vector<Enqueued> heard_;
    std::vector<QueueCall> calls_;
    std::vector<std::byte> cookie_;
    double framesHeard_ = 0;
    float volume_ = 1;
    std::uint32_t capacity_ = 0;
    int inCallback_ = 0;
    bool listened_ = false;
    bool running_ = false;
    bool paused_ = false;
    bool stopsAtEnd_ = false;
    bool disposed_ = false;
};

class FakeAudioQueue final : public AudioQueue {
  public:
    FakeAudioQueue(std::shared_ptr<FakeOutput> output, const FakeQueueFailures& failures, bool reportsRunning)
        : output_(std::move(output))
        , failures_(failures)
        , reportsRunning_(reportsRunning)
    {
        output_->queue_ = this;
    }
    ~FakeAudioQueue() override { silence(); }

    AudioStatus addIsRunningListener() override
    {
        return called(QueueCall::AddListener, [this] { output_->listened_ = true; });
    }
    AudioStatus allocateBuffer(std::uint32_t bytes, AudioQueueBuffer*& buffer) override
    {
        return called(QueueCall::Allocate, [&] {
            memory_.emplace_back(bytes);
            buffers_.push_back(
                std::make_unique<AudioQueueBuffer>(AudioQueueBuffer{memory_.back().data(), bytes, 0}));
            buffer = buffers_.back().get();
            output_->capacity_ = bytes;
        });
    }
    AudioStatus enqueueBuffer(AudioQueueBuffer& buffer,
                              std::span<const AudioPacketDescription> packets) override
    {
        return called(QueueCall::Enqueue, [&] {
            output_->heard_.push_back(
                {QByteArray(reinterpret_cast<const char*>(buffer.data), buffer.byteSize),
                 {packets.begin(), packets.end()}});
            const AudioStreamDescription& format = output_->format_;
            const double count = !packets.empty() ? static_cast<double>(packets.size())
                                 : format.bytesPerPacket > 0
                                     ? static_cast<double>(buffer.byteSize) / format.bytesPerPacket
                                     : 0;
            output_->queued_.emplace_back(&buffer, count * format.framesPerPacket);
        });
    }
    AudioStatus start() override
    {
        bool begins = false;
        const AudioStatus status = called(QueueCall::Start, [&] {
            begins = !output_->running_;
            output_->running_ = true;
            output_->paused_ = output_->stopsAtEnd_ = false;
            if (begins)
                output_->framesHeard_ = 0;
        });
        if (status == kAudioOk && begins && reportsRunning_)
            output_->report(true);
        return status;
    }
    AudioStatus pause() override
    {
        return called(QueueCall::Pause, [this] { output_->paused_ = true; });
    }
    AudioStatus stop(bool immediately) override
    {
        if (!immediately) {
            const AudioStatus status = called(QueueCall::StopAtEnd, [this] {
                output_->stopsAtEnd_ = output_->running_;
                output_->paused_ = false;
            });
            if (status == kAudioOk)
                output_->finishIfDrained();
            return status;
        }
        std::deque<std::pair<AudioQueueBuffer*, double>> returned;
        bool ran = false;
        const AudioStatus status = called(QueueCall::StopNow, [&] {
            returned.swap(output_->queued_);
            output_->inCallback_ += static_cast<int>(returned.size());
            ran = std::exchange(output_->running_, false);
            output_->paused_ = output_->stopsAtEnd_ = false;
        });
        for (const auto& [buffer, frames] : returned)
            output_->complete(*buffer);
        if (ran)
            output_->report(false);
        return status;
    }
    AudioStatus flush() override
    {
        return called(QueueCall::Flush, [] {});
    }
    AudioStatus currentTime(double& sampleTime) const override
    {
        const AudioStatus failure = failures_.of(QueueCall::CurrentTime);
        if (failure != kAudioOk)
            return failure;
        const std::scoped_lock lock(output_->mutex_);
        if (!output_->running_)
            return kAudioQueueStopped;
        sampleTime = output_->framesHeard_;
        return kAudioOk;
    }
    AudioStatus setMagicCookie(std::span<const std::byte> cookie) override
    {
        return called(QueueCall::SetMagicCookie,
                      [&] { output_->cookie_.assign(cookie.begin(), cookie.end()); });
    }
    AudioStatus setVolume(float volume) override
    {
        return called(QueueCall::SetVolume, [&] { output_->volume_ = std::clamp(volume, 0.0F, 1.0F); });
    }
    AudioStatus dispose() override
    {
        silence();
        return called(QueueCall::Dispose, [] {});
    }

  private:
    /// Notes the call and, unless it is to fail, does the action under the output's lock.
    template <typename Action>
    AudioStatus called(QueueCall call, Action action)
    {
        const AudioStatus failure = failures_.of(call);
        const std::scoped_lock lock(output_->mutex_);
        output_->calls_.push_back(call);
        if (failure == kAudioOk)
            action();
        return failure;
    }
    void silence()
    {
        const std::scoped_lock lock(output_->mutex_);
        output_->queued_.clear();
        output_->running_ = output_->listened_ = output_->paused_ = output_->stopsAtEnd_ = false;
        output_->disposed_ = true;
    }

    const std::shared_ptr<FakeOutput> output_;
    const FakeQueueFailures& failures_;
    const bool reportsRunning_;
    std::deque<std::vector<std::byte>> memory_;
    std::vector<std::unique_ptr<AudioQueueBuffer>> buffers_;
};

/// Makes outputs that play nothing until the test says so.
class FakeAudioQueues final : public AudioQueues {
  public:
    FakeQueueFailures failures;
    /// Whether start() reports at once that the queue runs; else the test does, with reportRunning.
    std::atomic<bool> reportsRunning = true;

    std::unique_ptr<AudioQueue> newOutput(const AudioStreamDescription& format,
                                          std::weak_ptr<AudioQueueClient> client,
                                          AudioStatus& status) override
    {
        status = failures.of(QueueCall::NewOutput);
        if (status != kAudioOk)
            return nullptr;
        const auto output = std::make_shared<FakeOutput>(format, std::move(client));
        auto queue = std::make_unique<FakeAudioQueue>(output, failures, reportsRunning);
        const std::scoped_lock lock(mutex_);
        outputs_.push_back(output);
        return queue;
    }

    /// All outputs so far, in order.
    [[nodiscard]] std::vector<std::shared_ptr<FakeOutput>> outputs() const
    {
        const std::scoped_lock lock(mutex_);
        return outputs_;
    }

  private:
    mutable std::mutex mutex_; // guards outputs_
    std::vector<std::shared_ptr<FakeOutput>> outputs_;
};

} // namespace zib
