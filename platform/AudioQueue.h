// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioTypes.h"

#include <memory>
#include <span>

namespace zib {

/// A buffer of a queue, which owns it. Whoever fills it writes data and byteSize.
struct AudioQueueBuffer {
    std::byte* data = nullptr;
    std::uint32_t capacity = 0;
    std::uint32_t byteSize = 0;
};

/// Whoever fills buffers with described packets puts at most so many into one.
inline constexpr std::size_t kPacketsPerBuffer = 512;

class AudioQueue;

/// Receives a queue's callbacks, on any thread, also on the calling one from within a call of the queue.
/// The queue keeps it alive while a callback runs, and holds no lock of its own meanwhile.
class AudioQueueClient {
  public:
    virtual ~AudioQueueClient() = default;
    /// The queue is done with the buffer: played from it, or given up by an immediate stop. A buffer may come
    /// back before its sound is heard, but not the last one while nothing is enqueued after it: that comes
    /// back once all is heard. So a queue that holds no buffer has run dry.
    virtual void bufferComplete(AudioQueue&, AudioQueueBuffer&) {}
    /// The queue has begun to run or has stopped; a pause is neither.
    virtual void isRunningChanged(AudioQueue&, bool /*running*/) {}
};

/// Plays packets of one format in the order they are enqueued: decodes them and feeds the sound output.
/// Calls are allowed on any thread. No call waits for a callback that runs on another thread, so the caller
/// may hold locks that its callbacks take.
class AudioQueue {
  public:
    /// Disposes.
    virtual ~AudioQueue() = default;

    /// Asks for isRunningChanged; without it only bufferComplete is called.
    virtual AudioStatus addIsRunningListener() = 0;
    /// A buffer that lives until the queue is disposed of.
    virtual AudioStatus allocateBuffer(std::uint32_t bytes, AudioQueueBuffer*& buffer) = 0;
    /// Hands the buffer's first byteSize bytes over until bufferComplete. Without descriptions they are
    /// packets of the format's constant size, run on from one buffer into the next: a packet may begin at the
    /// end of one and end in the following. Packets that do not decode are skipped.
    virtual AudioStatus enqueueBuffer(AudioQueueBuffer& buffer,
                                      std::span<const AudioPacketDescription> packets) = 0;

    /// Runs, or goes on after a pause. A queue with nothing to play runs silently and its time stands.
    virtual AudioStatus start() = 0;
    /// Falls silent at once and keeps what it has; the time stands.
    virtual AudioStatus pause() = 0;
    /// @param immediately falls silent, gives every buffer back and reports that it stopped, all before the
    /// call returns and from within it. Otherwise it goes on, from a pause too, until all that was enqueued
    /// has been heard, gives each buffer back as it is used, and then reports that it stopped. Stopping a
    /// queue that does not run is no error.
    virtual AudioStatus stop(bool immediately) = 0;
    /// No packet follows the enqueued ones: what a decoder holds back is played too.
    virtual AudioStatus flush() = 0;

    /// The time as frames heard since the queue last started running (a pause goes on counting where it was).
    /// @return kAudioQueueStopped while it is not running.
    virtual AudioStatus currentTime(double& sampleTime) const = 0;

    /// What the decoder must know, as AudioFileStream::magicCookie gives it; before the first packet.
    virtual AudioStatus setMagicCookie(std::span<const std::byte> cookie) = 0;
    /// Loudness from 0 (silent) to 1 (as recorded), clamped to that; may be set at any time.
    virtual AudioStatus setVolume(float volume) = 0;

    /// Stops at once and lets go of the sound output; every buffer is gone, without a bufferComplete. A
    /// callback that is running elsewhere may still end after this, none begins. Twice is harmless.
    virtual AudioStatus dispose() = 0;
};

/// Makes queues. Any thread.
class AudioQueues {
  public:
    virtual ~AudioQueues() = default;
    /// Null, with the status, when the format can't be played. Callbacks go to the client for as long as it
    /// lives.
    [[nodiscard]] virtual std::unique_ptr<AudioQueue> newOutput(const AudioStreamDescription& format,
                                                                std::weak_ptr<AudioQueueClient> client,
                                                                AudioStatus& status) = 0;
};

} // namespace zib
