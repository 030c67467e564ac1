// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/DesktopAudioQueue.h"

#include "platform/desktop/AudioDecoder.h"
#include "platform/desktop/DesktopSound.h"
#include "platform/desktop/SoundPlayer.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <mutex>
#include <utility>

namespace zib {

namespace {

/// Bytes of packets of constant size that are decoded at once.
constexpr std::size_t kChunk = 32768;

std::size_t constantPacketBytes(const AudioStreamDescription& format)
{
    if (format.bytesPerPacket > 0 || format.formatId != audioformat::LinearPcm)
        return format.bytesPerPacket;
    return format.bytesPerFrame > 0 ? format.bytesPerFrame
                                    : (format.bitsPerChannel + 7) / 8 * format.channelsPerFrame;
}

struct Buffer {
    AudioQueueBuffer face;
    std::unique_ptr<std::byte[]> bytes;
    std::vector<AudioPacketDescription> packets;
    std::size_t nextPacket = 0;
    std::size_t nextByte = 0; ///< where packets of constant size go on
    bool enqueued = false;
};

/// What a queue and its feeder share. The feeder may outlive the queue by the callback that it is in.
class QueueCore {
  public:
    QueueCore(DesktopSound& sound, AudioQueue& handle, const AudioStreamDescription& format,
              std::weak_ptr<AudioQueueClient> client);

    void listen();
    AudioStatus allocate(std::uint32_t bytes, AudioQueueBuffer*& buffer);
    AudioStatus enqueue(AudioQueueBuffer& face, std::span<const AudioPacketDescription> packets);
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
    void callBufferComplete(Buffer& buffer);
    void startOver();
    bool step();
    bool sleep(Lock lock);
    bool writeDecoded();
    bool feedFrontBuffer(Lock lock);
    bool seeToTheEnd(Lock lock);
    bool takePacket(Buffer& buffer);
    bool takeConstantPackets(Buffer& buffer);

    const AudioStreamDescription format_;
    AudioQueue& handle_; ///< as an address only, once disposed of
    const std::weak_ptr<AudioQueueClient> client_;
    const std::shared_ptr<WakeSignal> wake_ = std::make_shared<WakeSignal>();

    std::mutex lock_; ///< guards what follows; never held during a callback
    SoundPlayer player_;
    SoundFormat outputFormat_;
    std::vector<std::unique_ptr<Buffer>> buffers_;
    std::deque<Buffer*> pending_;
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
    std::vector<std::byte> partOfPacket_; ///< of a constant size, begun in the buffer before
    std::vector<float> decoded_;
    std::size_t decodedUsed_ = 0;
};

QueueCore::QueueCore(DesktopSound& sound, AudioQueue& handle, const AudioStreamDescription& format,
                     std::weak_ptr<AudioQueueClient> client)
    : format_(format)
    , handle_(handle)
    , client_(std::move(client))
    , player_(sound, wake_)
    , outputFormat_{static_cast<int>(std::lround(format.sampleRate)),
                    format.channelsPerFrame <= 8 ? static_cast<int>(format.channelsPerFrame) : 2}
    , decoder_(format)
{
    player_.open(outputFormat_); // gets ready while the first packets arrive
}

void QueueCore::callRunningChanged(bool running)
{
    if (const auto client = client_.lock())
        client->isRunningChanged(handle_, running);
}

void QueueCore::callBufferComplete(Buffer& buffer)
{
    if (const auto client = client_.lock())
        client->bufferComplete(handle_, buffer.face);
}

void QueueCore::listen()
{
    const Lock lock(lock_);
    listening_ = true;
}

AudioStatus QueueCore::allocate(std::uint32_t bytes, AudioQueueBuffer*& face)
{
    const Lock lock(lock_);
    if (disposed_)
        return kAudioDisposed;
    auto buffer = std::make_unique<Buffer>();
    buffer->bytes = std::make_unique<std::byte[]>(bytes);
    buffer->face = {buffer->bytes.get(), bytes, 0};
    face = &buffer->face;
    buffers_.push_back(std::move(buffer));
    return kAudioOk;
}

AudioStatus QueueCore::enqueue(AudioQueueBuffer& face, std::span<const AudioPacketDescription> packets)
{
    const Lock lock(lock_);
    if (disposed_)
        return kAudioDisposed;
    const auto ours = std::ranges::find_if(buffers_, [&face](const auto& b) { return &b->face == &face; });
    if (ours == buffers_.end() || (*ours)->enqueued || face.byteSize > face.capacity ||
        (packets.empty() && constantPacketBytes(format_) == 0))
        return kAudioBadParameter;
    Buffer& buffer = **ours;
    buffer.packets.assign(packets.begin(), packets.end());
    buffer.nextPacket = buffer.nextByte = 0;
    buffer.enqueued = true;
    pending_.push_back(&buffer);
    if (!player_.isOpen())
        player_.open(outputFormat_);
    wake_->wake();
    return kAudioOk;
}

AudioStatus QueueCore::start()
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

AudioStatus QueueCore::pause()
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
void QueueCore::startOver()
{
    running_ = paused_ = stopping_ = finishing_ = flushAsked_ = false;
    ++run_;
    player_.close();
}

AudioStatus QueueCore::stopNow()
{
    std::deque<Buffer*> given;
    bool stopped = false;
    {
        const Lock lock(lock_);
        if (disposed_)
            return kAudioDisposed;
        given.swap(pending_);
        for (Buffer* buffer : given)
            buffer->enqueued = false;
        stopped = running_ && listening_;
        startOver();
        wake_->wake();
    }
    for (Buffer* buffer : given)
        callBufferComplete(*buffer);
    if (stopped)
        callRunningChanged(false);
    return kAudioOk;
}

AudioStatus QueueCore::stopWhenHeard()
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

AudioStatus QueueCore::flush()
{
    const Lock lock(lock_);
    if (disposed_)
        return kAudioDisposed;
    flushAsked_ = true;
    wake_->wake();
    return kAudioOk;
}

AudioStatus QueueCore::currentTime(double& sampleTime)
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

AudioStatus QueueCore::setCookie(std::span<const std::byte> cookie)
{
    const Lock lock(lock_);
    if (disposed_)
        return kAudioDisposed;
    cookie_.assign(cookie.begin(), cookie.end());
    cookieChanged_ = true;
    return kAudioOk;
}

AudioStatus QueueCore::setVolume(float volume)
{
    const Lock lock(lock_);
    if (disposed_)
        return kAudioDisposed;
    player_.setVolume(volume > 0 ? std::min(volume, 1.0F) : 0.0F);
    return kAudioOk;
}

AudioStatus QueueCore::dispose()
{
    const Lock lock(lock_);
    disposed_ = true;
    pending_.clear();
    startOver();
    wake_->wake();
    return kAudioOk;
}

void QueueCore::feed()
{
    while (step()) {
    }
}

/// One thing that is to be done now, or a sleep. @return false at the end of the queue
bool QueueCore::step()
{
    Lock lock(lock_);
    if (disposed_)
        return false;
    player_.tend();
    if (std::exchange(feederRun_, run_) != run_) {
        decoder_.reset();
        decoded_.clear();
        decodedUsed_ = 0;
        partOfPacket_.clear();
    }
    if (std::exchange(cookieChanged_, false))
        decoder_.setCookie(cookie_);
    if (!running_ || paused_)
        return sleep(std::move(lock));
    if (decodedUsed_ < decoded_.size())
        return writeDecoded() || sleep(std::move(lock));
    if (!pending_.empty())
        return feedFrontBuffer(std::move(lock));
    if (std::exchange(flushAsked_, false)) {
        lock.unlock();
        decoded_.clear();
        decodedUsed_ = 0;
        decoder_.finish([this](const AVFrame& frame) { converter_.convert(frame, decoded_); });
        return true;
    }
    return seeToTheEnd(std::move(lock));
}

bool QueueCore::sleep(Lock lock)
{
    const auto look = player_.rest();
    lock.unlock();
    wake_->wait(look);
    return true;
}

bool QueueCore::writeDecoded()
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

bool QueueCore::feedFrontBuffer(Lock lock)
{
    Buffer& buffer = *pending_.front();
    if (takePacket(buffer)) {
        lock.unlock();
        decoded_.clear();
        decodedUsed_ = 0;
        decoder_.decode(packet_, [this](const AVFrame& frame) { converter_.convert(frame, decoded_); });
        return true;
    }
    pending_.pop_front();
    buffer.enqueued = false;
    lock.unlock();
    callBufferComplete(buffer);
    return true;
}

/// Copies the buffer's next packet, so that the buffer can be given up while it is decoded.
bool QueueCore::takePacket(Buffer& buffer)
{
    if (buffer.packets.empty())
        return takeConstantPackets(buffer);
    while (buffer.nextPacket < buffer.packets.size()) {
        const auto& packet = buffer.packets[buffer.nextPacket++];
        const std::int64_t end = buffer.face.byteSize;
        if (packet.startOffset < 0 || packet.startOffset > end || packet.dataByteSize == 0 ||
            packet.dataByteSize > end - packet.startOffset)
            continue;
        const auto* bytes = buffer.face.data + packet.startOffset;
        packet_.assign(bytes, bytes + packet.dataByteSize);
        return true;
    }
    return false;
}

/// A buffer may end within a packet, which then goes on in the next.
bool QueueCore::takeConstantPackets(Buffer& buffer)
{
    const auto packetBytes = constantPacketBytes(format_);
    while (buffer.nextByte < buffer.face.byteSize) {
        const auto* bytes = buffer.face.data + buffer.nextByte;
        const auto size = std::min<std::size_t>(kChunk, buffer.face.byteSize - buffer.nextByte);
        buffer.nextByte += size;
        packet_.swap(partOfPacket_);
        packet_.insert(packet_.end(), bytes, bytes + size);
        const auto whole = static_cast<std::ptrdiff_t>(packet_.size() - packet_.size() % packetBytes);
        partOfPacket_.assign(packet_.begin() + whole, packet_.end());
        packet_.resize(static_cast<std::size_t>(whole));
        if (whole > 0)
            return true;
    }
    return false;
}

/// All that was enqueued is with the player.
bool QueueCore::seeToTheEnd(Lock lock)
{
    if (!stopping_)
        return sleep(std::move(lock));
    if (!std::exchange(finishing_, true))
        player_.finish();
    if (!player_.finished())
        return sleep(std::move(lock));
    startOver();
    const bool tell = listening_;
    lock.unlock();
    if (tell)
        callRunningChanged(false);
    return true;
}

class DesktopAudioQueue : public AudioQueue {
  public:
    DesktopAudioQueue(DesktopSound& sound, const AudioStreamDescription& format,
                      std::weak_ptr<AudioQueueClient> client)
        : core_(std::make_shared<QueueCore>(sound, *this, format, std::move(client)))
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
    const std::shared_ptr<QueueCore> core_;
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
