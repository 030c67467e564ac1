// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioQueue.h"

#include <QByteArray>

#include <chrono>
#include <condition_variable>
#include <cstring>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace zib::test {

/// How long a test waits for what must come; only a fault makes it wait so long.
inline constexpr auto kPatience = std::chrono::seconds(60);

/// Notes what a queue calls back.
class QueueListener : public AudioQueueClient {
  public:
    void bufferComplete(AudioQueue& queue, AudioQueueBuffer& buffer) override
    {
        std::function<void()> then;
        {
            const std::lock_guard guard(lock_);
            completed_.push_back(&buffer);
            completionThreads_.push_back(std::this_thread::get_id());
            lastQueue_ = &queue;
            then = onComplete;
            changed_.notify_all();
        }
        if (then)
            then();
    }
    void isRunningChanged(AudioQueue& queue, bool running) override
    {
        std::function<void()> then;
        {
            const std::lock_guard guard(lock_);
            changes_.push_back(running);
            lastQueue_ = &queue;
            then = onChange;
            changed_.notify_all();
        }
        if (then)
            then();
    }

    [[nodiscard]] std::size_t completed() const
    {
        const std::lock_guard guard(lock_);
        return completed_.size();
    }
    [[nodiscard]] std::vector<AudioQueueBuffer*> completedBuffers() const
    {
        const std::lock_guard guard(lock_);
        return completed_;
    }
    [[nodiscard]] std::vector<bool> changes() const
    {
        const std::lock_guard guard(lock_);
        return changes_;
    }
    [[nodiscard]] std::vector<std::thread::id> completionThreads() const
    {
        const std::lock_guard guard(lock_);
        return completionThreads_;
    }
    [[nodiscard]] AudioQueue* lastQueue() const
    {
        const std::lock_guard guard(lock_);
        return lastQueue_;
    }
    bool waitForCompleted(std::size_t count) const
    {
        std::unique_lock guard(lock_);
        return changed_.wait_until(guard, std::chrono::system_clock::now() + kPatience,
                                   [&] { return completed_.size() >= count; });
    }
    bool waitForChanges(std::size_t count) const
    {
        std::unique_lock guard(lock_);
        return changed_.wait_until(guard, std::chrono::system_clock::now() + kPatience,
                                   [&] { return changes_.size() >= count; });
    }
    /// Waits until the last news is that the queue has stopped.
    bool waitForEnd() const
    {
        std::unique_lock guard(lock_);
        return changed_.wait_until(guard, std::chrono::system_clock::now() + kPatience,
                                   [&] { return !changes_.empty() && !changes_.back(); });
    }

    // To be set before the queue runs.
    std::function<void()> onComplete;
    std::function<void()> onChange;

  private:
    mutable std::mutex lock_;
    mutable std::condition_variable changed_;
    std::vector<AudioQueueBuffer*> completed_;
    std::vector<std::thread::id> completionThreads_;
    std::vector<bool> changes_;
    AudioQueue* lastQueue_ = nullptr;
};

/// 16-bit stereo at 44,100 frames a second.
inline AudioStreamDescription pcmFormat()
{
    using namespace audioformat;
    return {44100, LinearPcm, IsSignedInteger | IsPacked, 4, 1, 4, 2, 16, 0};
}

inline AudioStreamDescription mp3Format()
{
    return {44100, audioformat::MpegLayer3, 0, 0, 1152, 0, 2, 0, 0};
}

/// Allocates a buffer, fills and enqueues it.
inline AudioStatus enqueue(AudioQueue& queue, const QByteArray& bytes,
                           std::span<const AudioPacketDescription> packets = {})
{
    AudioQueueBuffer* buffer = nullptr;
    const AudioStatus status = queue.allocateBuffer(static_cast<std::uint32_t>(bytes.size()), buffer);
    if (status != kAudioOk)
        return status;
    std::memcpy(buffer->data, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    buffer->byteSize = static_cast<std::uint32_t>(bytes.size());
    return queue.enqueueBuffer(*buffer, packets);
}

/// The same with packets that have descriptions.
inline AudioStatus enqueuePackets(AudioQueue& queue, std::span<const QByteArray> packets)
{
    QByteArray bytes;
    std::vector<AudioPacketDescription> descriptions;
    for (const QByteArray& packet : packets) {
        descriptions.push_back({bytes.size(), 0, static_cast<std::uint32_t>(packet.size())});
        bytes += packet;
    }
    return enqueue(queue, bytes, descriptions);
}

} // namespace zib::test
