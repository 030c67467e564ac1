// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/BufferRing.h"

#include <algorithm>

namespace zib {

void BufferRing::assign(const Buffers& buffers, const void* queue)
{
    const std::scoped_lock lock(queueBuffersMutex_);
    audioQueueBuffer_ = buffers;
    inuse_.fill(false);
    buffersUsed_ = 0;
    queue_ = queue;
}

void BufferRing::clear()
{
    assign({}, nullptr);
}

AudioQueueBuffer* BufferRing::buffer(std::size_t index) const
{
    const std::scoped_lock lock(queueBuffersMutex_);
    return audioQueueBuffer_[index];
}

void BufferRing::handOver(std::size_t index)
{
    const std::scoped_lock lock(queueBuffersMutex_);
    inuse_[index] = true;
    ++buffersUsed_;
}

BufferRing::GivenBack BufferRing::giveBack(const void* queue, const AudioQueueBuffer& buffer)
{
    const std::scoped_lock lock(queueBuffersMutex_);
    if (queue != queue_)
        return GivenBack::NotOurQueue;
    queueBufferReadyCondition_.notify_one();
    const auto found = std::find(audioQueueBuffer_.begin(), audioQueueBuffer_.end(), &buffer);
    if (found == audioQueueBuffer_.end())
        return GivenBack::UnknownBuffer;
    inuse_[static_cast<std::size_t>(found - audioQueueBuffer_.begin())] = false;
    --buffersUsed_;
    return GivenBack::Yes;
}

std::ptrdiff_t BufferRing::used() const
{
    const std::scoped_lock lock(queueBuffersMutex_);
    return buffersUsed_;
}

void BufferRing::waitUntilFree(std::size_t index)
{
    std::unique_lock lock(queueBuffersMutex_);
    queueBufferReadyCondition_.wait(lock, [&] { return !inuse_[index] || waitingGivenUp_; });
}

void BufferRing::giveUpWaiting()
{
    const std::scoped_lock lock(queueBuffersMutex_);
    waitingGivenUp_ = true;
    queueBufferReadyCondition_.notify_all();
}

void BufferRing::resumeWaiting()
{
    const std::scoped_lock lock(queueBuffersMutex_);
    waitingGivenUp_ = false;
}

} // namespace zib
