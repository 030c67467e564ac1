// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/AudioQueueCore.h"

#include "platform/desktop/DesktopAudioQueue.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zib {

using namespace std::chrono_literals;

namespace {

/// Between two looks at what only time changes.
constexpr auto kShortestLook = 10ms;

} // namespace

AudioQueueCore::AudioQueueCore(DesktopSound& sound, AudioQueue& handle, const AudioStreamDescription& format,
                               std::weak_ptr<AudioQueueClient> client)
    : format_(format)
    , handle_(handle)
    , client_(std::move(client))
    , player_(sound, wake_)
    , outputFormat_{static_cast<int>(std::lround(format.sampleRate)),
                    format.channelsPerFrame <= 8 ? static_cast<int>(format.channelsPerFrame) : 2}
    , buffers_(format)
    , decoder_(format)
{
    player_.open(outputFormat_); // gets ready while the first packets arrive
}

void AudioQueueCore::callRunningChanged(bool running)
{
    if (const auto client = client_.lock())
        client->isRunningChanged(handle_, running);
}

void AudioQueueCore::callBufferComplete(AudioQueueBuffer& buffer)
{
    if (const auto client = client_.lock())
        client->bufferComplete(handle_, buffer);
}

void AudioQueueCore::listen()
{
    const Lock lock(lock_);
    listening_ = true;
}

AudioStatus AudioQueueCore::allocate(std::uint32_t bytes, AudioQueueBuffer*& buffer)
{
    const Lock lock(lock_);
    if (disposed_)
        return kAudioDisposed;
    buffer = &buffers_.allocate(bytes);
    return kAudioOk;
}

AudioStatus AudioQueueCore::enqueue(AudioQueueBuffer& buffer, std::span<const AudioPacketDescription> packets)
{
    const Lock lock(lock_);
    if (disposed_)
        return kAudioDisposed;
    if (!buffers_.enqueue(buffer, packets))
        return kAudioBadParameter;
    if (!player_.isOpen())
        player_.open(outputFormat_);
    wake_->wake();
    return kAudioOk;
}

AudioStatus AudioQueueCore::start()
{
    {
        const Lock lock(lock_);
        if (disposed_)
            return kAudioDisposed;
        paused_ = false;
        const bool began = !std::exchange(running_, true);
        if (!player_.isOpen())
            player_.open(outputFormat_);
        player_.setRunning(true);
        wake_->wake();
        if (!began || !listening_)
            return kAudioOk;
    }
    callRunningChanged(true);
    return kAudioOk;
}

AudioStatus AudioQueueCore::pause()
{
    const Lock lock(lock_);
    if (disposed_)
        return kAudioDisposed;
    if (running_ && !stopping_) {
        paused_ = true;
        player_.setRunning(false);
    }
    return kAudioOk;
}

/// Under the lock: nothing is left of what was played.
void AudioQueueCore::startOver()
{
    running_ = paused_ = stopping_ = finishing_ = flushAsked_ = false;
    ++run_;
    player_.close();
}

AudioStatus AudioQueueCore::stopNow()
{
    std::vector<AudioQueueBuffer*> given;
    bool stopped = false;
    {
        const Lock lock(lock_);
        if (disposed_)
            return kAudioDisposed;
        given = buffers_.giveUpAll();
        stopped = running_ && listening_;
        startOver();
        wake_->wake();
    }
    for (AudioQueueBuffer* buffer : given)
        callBufferComplete(*buffer);
    if (stopped)
        callRunningChanged(false);
    return kAudioOk;
}

AudioStatus AudioQueueCore::stopWhenHeard()
{
    const Lock lock(lock_);
    if (disposed_)
        return kAudioDisposed;
    if (running_) {
        stopping_ = true;
        paused_ = false;
        player_.setRunning(true);
        wake_->wake();
    }
    return kAudioOk;
}

AudioStatus AudioQueueCore::flush()
{
    const Lock lock(lock_);
    if (disposed_)
        return kAudioDisposed;
    flushAsked_ = true;
    wake_->wake();
    return kAudioOk;
}

AudioStatus AudioQueueCore::currentTime(double& sampleTime)
{
    const Lock lock(lock_);
    if (disposed_)
        return kAudioDisposed;
    if (!running_)
        return kAudioQueueStopped;
    // A decoder may play at twice the rate that the stream told.
    const double rate = player_.format().rate;
    sampleTime = static_cast<double>(player_.heard());
    if (rate != format_.sampleRate)
        sampleTime *= format_.sampleRate / rate;
    return kAudioOk;
}

AudioStatus AudioQueueCore::setCookie(std::span<const std::byte> cookie)
{
    const Lock lock(lock_);
    if (disposed_)
        return kAudioDisposed;
    cookie_.assign(cookie.begin(), cookie.end());
    cookieChanged_ = true;
    return kAudioOk;
}

AudioStatus AudioQueueCore::setVolume(float volume)
{
    const Lock lock(lock_);
    if (disposed_)
        return kAudioDisposed;
    player_.setVolume(volume > 0 ? std::min(volume, 1.0F) : 0.0F);
    return kAudioOk;
}

AudioStatus AudioQueueCore::dispose()
{
    const Lock lock(lock_);
    disposed_ = true;
    buffers_.giveUpAll();
    startOver();
    wake_->wake();
    return kAudioOk;
}

void AudioQueueCore::feed()
{
    while (step()) {
    }
}

/// One thing that is to be done now, or a sleep. @return false at the end of the queue
bool AudioQueueCore::step()
{
    Lock lock(lock_);
    if (disposed_)
        return false;
    player_.tend();
    if (std::exchange(feederRun_, run_) != run_) {
        decoder_.reset();
        decoded_.clear();
        decodedUsed_ = 0;
        buffers_.breakOff();
    }
    if (std::exchange(cookieChanged_, false))
        decoder_.setCookie(cookie_);
    if (!running_ || paused_)
        return sleep(std::move(lock));
    if (decodedUsed_ < decoded_.size())
        return writeDecoded() || sleep(std::move(lock));
    if (buffers_.takePacket(packet_))
        return decodePacket(std::move(lock));
    if (buffers_.enqueued() > 1)
        return giveUpFrontBuffer(std::move(lock));
    if (std::exchange(flushAsked_, false))
        return finishDecoding(std::move(lock));
    if (stopping_)
        return seeToTheEnd(std::move(lock));
    // The last buffer stays until it is heard, lest the queue seem dry while it sounds.
    if (buffers_.enqueued() > 0 && player_.unheard() == 0ms)
        return giveUpFrontBuffer(std::move(lock));
    return sleep(std::move(lock));
}

bool AudioQueueCore::sleep(Lock lock)
{
    auto look = player_.rest();
    if (running_ && !paused_ && buffers_.enqueued() == 1) {
        const auto lastIsHeard = std::max(player_.unheard(), kShortestLook);
        look = std::min(look.value_or(lastIsHeard), lastIsHeard);
    }
    lock.unlock();
    wake_->wait(look);
    return true;
}

bool AudioQueueCore::writeDecoded()
{
    if (player_.format() != converter_.format()) { // the decoder knows better than the stream's header
        outputFormat_ = converter_.format();
        player_.open(outputFormat_);
        player_.setRunning(true);
    }
    const auto room = player_.room() * static_cast<std::size_t>(outputFormat_.channels);
    const auto samples = std::span(decoded_).subspan(decodedUsed_);
    const auto now = samples.first(std::min(room, samples.size()));
    player_.write(now);
    decodedUsed_ += now.size();
    return !now.empty();
}

bool AudioQueueCore::decodePacket(Lock lock)
{
    lock.unlock();
    decoded_.clear();
    decodedUsed_ = 0;
    decoder_.decode(packet_, [this](const AVFrame& frame) { converter_.convert(frame, decoded_); });
    return true;
}

bool AudioQueueCore::finishDecoding(Lock lock)
{
    lock.unlock();
    decoded_.clear();
    decodedUsed_ = 0;
    decoder_.finish([this](const AVFrame& frame) { converter_.convert(frame, decoded_); });
    return true;
}

bool AudioQueueCore::giveUpFrontBuffer(Lock lock)
{
    AudioQueueBuffer& buffer = buffers_.giveUpFront();
    lock.unlock();
    callBufferComplete(buffer);
    return true;
}

/// All that was enqueued is with the player, and no more comes.
bool AudioQueueCore::seeToTheEnd(Lock lock)
{
    if (!std::exchange(finishing_, true))
        player_.finish();
    if (!player_.finished())
        return sleep(std::move(lock));
    const auto last = buffers_.giveUpAll();
    startOver();
    const bool tell = listening_;
    lock.unlock();
    for (AudioQueueBuffer* buffer : last)
        callBufferComplete(*buffer);
    if (tell)
        callRunningChanged(false);
    return true;
}

} // namespace zib
