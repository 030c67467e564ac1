// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioQueue.h"
#include "platform/desktop/AudioDecoder.h"
#include "platform/desktop/AudioQueueBuffers.h"
#include "platform/desktop/SoundPlayer.h"

#include <memory>
#include <mutex>
#include <span>
#include <vector>

namespace zib {

class DesktopSound;

/// What a queue and its feeder share. The feeder may outlive the queue by the callback that it is in.
/// The calls are AudioQueue's, from any thread.
class AudioQueueCore {
  public:
    AudioQueueCore(DesktopSound& sound, AudioQueue& handle, const AudioStreamDescription& format,
                   std::weak_ptr<AudioQueueClient> client);

    void listen();
    AudioStatus allocate(std::uint32_t bytes, AudioQueueBuffer*& buffer);
    AudioStatus enqueue(AudioQueueBuffer& buffer, std::span<const AudioPacketDescription> packets);
    AudioStatus start();
    AudioStatus pause();
    AudioStatus stopNow();
    AudioStatus stopWhenHeard();
    AudioStatus flush();
    AudioStatus currentTime(double& sampleTime);
    AudioStatus setCookie(std::span<const std::byte> cookie);
    AudioStatus setVolume(float volume);
    AudioStatus dispose();

    /// The feeder's thread.
    void feed();

  private:
    using Lock = std::unique_lock<std::mutex>;

    void callRunningChanged(bool running);
    void callBufferComplete(AudioQueueBuffer& buffer);
    void startOver();
    bool step();
    bool sleep(Lock lock);
    bool writeDecoded();
    bool decodePacket(Lock lock);
    bool finishDecoding(Lock lock);
    bool giveUpFrontBuffer(Lock lock);
    bool seeToTheEnd(Lock lock);

    const AudioStreamDescription format_;
    AudioQueue& handle_; ///< as an address only, once disposed of
    const std::weak_ptr<AudioQueueClient> client_;
    const std::shared_ptr<WakeSignal> wake_ = std::make_shared<WakeSignal>();

    std::mutex lock_; ///< guards what follows; never held during a callback
    SoundPlayer player_;
    SoundFormat outputFormat_;
    AudioQueueBuffers buffers_;
    std::vector<std::byte> cookie_;
    bool cookieChanged_ = false;
    bool listening_ = false;
    bool running_ = false;
    bool paused_ = false;
    bool stopping_ = false;
    bool finishing_ = false; ///< the player has got its last frame
    bool flushAsked_ = false;
    bool disposed_ = false;
    std::uint64_t run_ = 0; ///< counts the stops, each of which breaks the packets' order

    // The feeder's own.
    std::uint64_t feederRun_ = 0;
    PacketDecoder decoder_;
    FrameConverter converter_;
    std::vector<std::byte> packet_;
    std::vector<float> decoded_;
    std::size_t decodedUsed_ = 0;
};

} // namespace zib
