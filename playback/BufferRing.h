// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <condition_variable>
#include <cstddef>
#include <mutex>

namespace zib {

struct AudioQueueBuffer;

/// The fixed ring of an output queue's buffers, and which of them the queue holds. The streaming thread hands
/// buffers over and waits for the next; the queue gives them back on whatever thread. Any thread may call.
///
/// The ring's mutex is a leaf: no other lock is taken while it is held.
class BufferRing {
  public:
    static constexpr std::size_t size = 16;
    using Buffers = std::array<AudioQueueBuffer*, size>;
    enum class GivenBack { Yes, UnknownBuffer, NotOurQueue };

    /// Begins with the buffers of a new queue, none of them in use. The queue is known by that token alone.
    void assign(const Buffers& buffers, const void* queue);
    /// Forgets the queue: whatever it still gives back is not ours.
    void clear();

    /// Only the thread that fills may ask; null when there is no queue.
    [[nodiscard]] AudioQueueBuffer* buffer(std::size_t index) const;
    /// The queue holds that buffer from now on.
    void handOver(std::size_t index);
    /// The queue is done with that buffer.
    GivenBack giveBack(const void* queue, const AudioQueueBuffer& buffer);
    /// How many the queue holds.
    [[nodiscard]] std::ptrdiff_t used() const;

    /// Returns once the buffer is free, or when waiting was given up. Called without any lock.
    void waitUntilFree(std::size_t index);
    /// No wait lasts from now on, until resumeWaiting.
    void giveUpWaiting();
    void resumeWaiting();

  private:
    mutable std::mutex queueBuffersMutex_; // guards all below
    std::condition_variable queueBufferReadyCondition_;
    Buffers audioQueueBuffer_{};
    std::array<bool, size> inuse_{};
    std::ptrdiff_t buffersUsed_ = 0;
    const void* queue_ = nullptr;
    bool waitingGivenUp_ = false;
};

} // namespace zib
