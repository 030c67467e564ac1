// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/DesktopAudioQueue.h"

#include "platform/desktop/AudioDecoder.h"
#include "platform/desktop/AudioQueueCore.h"
#include "platform/desktop/DesktopSound.h"

#include <utility>

namespace zib {

namespace {

class DesktopAudioQueue : public AudioQueue {
  public:
    DesktopAudioQueue(DesktopSound& sound, const AudioStreamDescription& format,
                      std::weak_ptr<AudioQueueClient> client)
        : core_(std::make_shared<AudioQueueCore>(sound, *this, format, std::move(client)))
    {
        sound.threads().start("zib-queue", [core = core_] { core->feed(); });
    }
    DesktopAudioQueue(const DesktopAudioQueue&) = delete;
    DesktopAudioQueue& operator=(const DesktopAudioQueue&) = delete;
    ~DesktopAudioQueue() override { core_->dispose(); }

    AudioStatus addIsRunningListener() override
    {
        core_->listen();
        return kAudioOk;
    }
    AudioStatus allocateBuffer(std::uint32_t bytes, AudioQueueBuffer*& buffer) override
    {
        return core_->allocate(bytes, buffer);
    }
    AudioStatus enqueueBuffer(AudioQueueBuffer& buffer,
                              std::span<const AudioPacketDescription> packets) override
    {
        return core_->enqueue(buffer, packets);
    }
    AudioStatus start() override { return core_->start(); }
    AudioStatus pause() override { return core_->pause(); }
    AudioStatus stop(bool immediately) override
    {
        return immediately ? core_->stopNow() : core_->stopWhenHeard();
    }
    AudioStatus flush() override { return core_->flush(); }
    AudioStatus currentTime(double& sampleTime) const override { return core_->currentTime(sampleTime); }
    AudioStatus setMagicCookie(std::span<const std::byte> cookie) override
    {
        return core_->setCookie(cookie);
    }
    AudioStatus setVolume(float volume) override { return core_->setVolume(volume); }
    AudioStatus dispose() override { return core_->dispose(); }

  private:
    const std::shared_ptr<AudioQueueCore> core_;
};

} // namespace

DesktopAudioQueues::DesktopAudioQueues(DesktopSound& sound)
    : sound_(sound)
{
    quietenDecoders();
}

std::unique_ptr<AudioQueue> DesktopAudioQueues::newOutput(const AudioStreamDescription& format,
                                                          std::weak_ptr<AudioQueueClient> client,
                                                          AudioStatus& status)
{
    if (!PacketDecoder::canDecode(format)) {
        status = kAudioBadFormat;
        return nullptr;
    }
    status = kAudioOk;
    return std::make_unique<DesktopAudioQueue>(sound_, format, std::move(client));
}

} // namespace zib
