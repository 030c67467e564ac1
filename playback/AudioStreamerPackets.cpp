// SPDX-License-Identifier: GPL-3.0-or-later
// From the parser's packets through the ring of buffers into the output queue.
#include "playback/AudioStreamer.h"
#include "playback/detail/AudioStreamerInternals.h"

#include <cstring>
#include <limits>

namespace zib {

void AudioStreamer::propertyFound(AudioFileStream& stream, AudioFileStreamProperty property)
{
    handlePropertyChangeForFileStream(stream, property);
}

void AudioStreamer::packetsProduced(std::span<const std::byte> bytes, std::uint32_t /*packetCount*/,
                                    std::span<const AudioPacketDescription> descriptions)
{
    handleAudioPackets(bytes, descriptions);
}

void AudioStreamer::handlePropertyChangeForFileStream(AudioFileStream& stream,
                                                      AudioFileStreamProperty property)
{
    const Lock lock(*this);
    if (isFinishing())
        return;
    const auto setFileLength = [this] {
        constexpr auto most = std::uint64_t(std::numeric_limits<std::int64_t>::max());
        fileLength_ =
            std::int64_t(std::min(most, std::uint64_t(dataOffset_) + std::min(most, audioDataByteCount_)));
    };
    AudioStatus status = kAudioOk;
    switch (property) {
    case AudioFileStreamProperty::ReadyToProducePackets:
        discontinuous_ = true;
        break;
    case AudioFileStreamProperty::DataOffset:
        status = stream.dataOffset(dataOffset_);
        if (status == kAudioOk && audioDataByteCount_ > 0)
            setFileLength();
        break;
    case AudioFileStreamProperty::AudioDataByteCount:
        status = stream.audioDataByteCount(audioDataByteCount_);
        if (status == kAudioOk)
            setFileLength();
        break;
    case AudioFileStreamProperty::DataFormat:
        if (asbd_.sampleRate == 0)
            status = stream.dataFormat(asbd_);
        break;
    case AudioFileStreamProperty::FormatList:
        status = takeHeAacFormat(stream);
        break;
    case AudioFileStreamProperty::MagicCookie:
        break; // read when the queue is made
    }
    if (status != kAudioOk) {
        err_ = status;
        failWithErrorCode(ErrorCode::FileStreamGetPropertyFailed);
    }
}

AudioStatus AudioStreamer::takeHeAacFormat(const AudioFileStream& stream)
{
    std::vector<AudioFormatListItem> formats;
    const AudioStatus status = stream.formatList(formats);
    if (status != kAudioOk)
        return status;
    // Only every 48th entry is looked at: in practice the first, the one that the parser prefers.
    for (std::size_t i = 0; i < formats.size(); i += sizeof(AudioFormatListItem)) {
        if (formats[i].description.formatId == audioformat::HeAac) {
            asbd_ = formats[i].description;
            break;
        }
    }
    return kAudioOk;
}

void AudioStreamer::handleAudioPackets(std::span<const std::byte> bytes,
                                       std::span<const AudioPacketDescription> packetDescriptions)
{
    {
        const Lock lock(*this);
        if (dropsPackets())
            return;
        if (bitRate_ == 0)
            bitRate_ = unknownBitRate;
        discontinuous_ = false;
        if (!audioQueue_)
            createQueue();
    }
    if (packetDescriptions.empty()) {
        handleConstantBitRateBytes(bytes);
        return;
    }
    for (const AudioPacketDescription& packet : packetDescriptions)
        if (!handlePacket(bytes.subspan(static_cast<std::size_t>(packet.startOffset), packet.dataByteSize),
                          packet.variableFramesInPacket))
            return;
}

/// Also when a seek awaits the streaming thread: what comes is of the old place, and of a file whose index
/// came last it may be the whole song in one call.
bool AudioStreamer::dropsPackets() const
{
    return isFinishing() || (seekWasRequested_ && fileLength_ > 0 && calculatedBitRate() != 0);
}

/// Puts one packet into the buffer being filled. @return false to drop it and the rest of its batch.
bool AudioStreamer::handlePacket(std::span<const std::byte> packet, std::uint32_t variableFrames)
{
    constexpr std::uint64_t packetsToMeasure = 5000;
    bool fits = true;
    {
        const Lock lock(*this);
        if (processedPacketsCount_ < packetsToMeasure) {
            processedPacketsSizeTotal_ += packet.size();
            ++processedPacketsCount_;
        }
        if (dropsPackets())
            return false;
        if (packet.size() > packetBufferSize_)
            failWithErrorCode(ErrorCode::AudioBufferTooSmall);
        fits = packetBufferSize_ - bytesFilled_ >= packet.size();
    }
    if (!fits)
        enqueueBuffer();
    bool full = false;
    {
        const Lock lock(*this);
        if (dropsPackets())
            return false;
        // A packet that would fill the buffer exactly is dropped too; the parser's bound is above any packet.
        if (bytesFilled_ + packet.size() >= packetBufferSize_)
            return false;
        std::memcpy(ring_.buffer(fillBufferIndex_)->data + bytesFilled_, packet.data(), packet.size());
        packetDescs_[packetsFilled_] = {static_cast<std::int64_t>(bytesFilled_), variableFrames,
                                        static_cast<std::uint32_t>(packet.size())};
        bytesFilled_ += packet.size();
        ++packetsFilled_;
        full = packetsFilled_ == packetDescs_.size();
    }
    if (full)
        enqueueBuffer();
    return true;
}

void AudioStreamer::handleConstantBitRateBytes(std::span<const std::byte> bytes)
{
    // Free space is counted against the default size here, however large the buffers are.
    while (!bytes.empty()) {
        bool fits = true;
        {
            const Lock lock(*this);
            fits = bytesFilled_ + bytes.size() <= kAQDefaultBufSize;
        }
        if (!fits)
            enqueueBuffer();
        const Lock lock(*this);
        if (dropsPackets() || bytesFilled_ >= packetBufferSize_)
            return;
        const AudioQueueBuffer& buffer = *ring_.buffer(fillBufferIndex_);
        const std::size_t count = std::min({bytes.size(), kAQDefaultBufSize - bytesFilled_,
                                            static_cast<std::size_t>(buffer.capacity) - bytesFilled_});
        std::memcpy(buffer.data + bytesFilled_, bytes.data(), count);
        bytesFilled_ += count;
        packetsFilled_ = 0;
        bytes = bytes.subspan(count);
    }
}

void AudioStreamer::createQueue()
{
    sampleRate_ = asbd_.sampleRate;
    packetDuration_ = sampleRate_ > 0 ? asbd_.framesPerPacket / sampleRate_ : 0;
    auto client = std::make_shared<QueueClient>(callbackGate_);
    audioQueue_ = ports_.queues.newOutput(asbd_, client, err_);
    if (!audioQueue_) {
        failWithErrorCode(ErrorCode::AudioQueueCreationFailed);
        return;
    }
    queueClient_ = std::move(client);
    err_ = audioQueue_->addIsRunningListener();
    if (err_ != kAudioOk) {
        failWithErrorCode(ErrorCode::AudioQueueAddListenerFailed);
        return;
    }
    packetBufferSize_ = 0;
    if (audioFileStream_->packetSizeUpperBound(packetBufferSize_) != kAudioOk || packetBufferSize_ == 0) {
        packetBufferSize_ = 0;
        if (audioFileStream_->maximumPacketSize(packetBufferSize_) != kAudioOk || packetBufferSize_ == 0)
            packetBufferSize_ = kAQDefaultBufSize;
    }
    if (!allocateBuffers()) {
        failWithErrorCode(ErrorCode::AudioQueueBufferAllocationFailed);
        return;
    }
    copyMagicCookie();
}

bool AudioStreamer::allocateBuffers()
{
    BufferRing::Buffers buffers{};
    for (AudioQueueBuffer*& buffer : buffers) {
        err_ = audioQueue_->allocateBuffer(packetBufferSize_, buffer);
        if (err_ != kAudioOk)
            return false;
    }
    ring_.assign(buffers, queueClient_.get());
    fillBufferIndex_ = 0;
    return true;
}

void AudioStreamer::copyMagicCookie()
{
    std::vector<std::byte> cookie;
    if (audioFileStream_->magicCookie(cookie) == kAudioOk)
        audioQueue_->setMagicCookie(cookie); // a decoder that needs it will say so
}

void AudioStreamer::enqueueBuffer()
{
    std::size_t next = 0;
    {
        const Lock lock(*this);
        if (isFinishing() || !stream_)
            return;
        AudioQueueBuffer& buffer = *ring_.buffer(fillBufferIndex_);
        ring_.handOver(fillBufferIndex_);
        buffer.byteSize = static_cast<std::uint32_t>(bytesFilled_);
        err_ = audioQueue_->enqueueBuffer(buffer, std::span(packetDescs_).first(packetsFilled_));
        if (err_ != kAudioOk) {
            failWithErrorCode(ErrorCode::AudioQueueEnqueueFailed);
            return;
        }
        if (startsQueueWithBuffer() && !startQueue())
            return;
        fillBufferIndex_ = next = (fillBufferIndex_ + 1) % BufferRing::size;
        bytesFilled_ = 0;
        packetsFilled_ = 0;
    }
    ring_.waitUntilFree(next);
}

bool AudioStreamer::startsQueueWithBuffer() const
{
    const bool awaitsBuffers = state_ == State::Buffering || state_ == State::WaitingForData ||
                               state_ == State::FlushingEof ||
                               (state_ == State::Stopped && stopReason_ == StopReason::Temporary);
    return awaitsBuffers && (state_ == State::FlushingEof || ring_.used() == BufferRing::size - 1);
}

bool AudioStreamer::startQueue()
{
    const bool wasBuffering = state_ == State::Buffering;
    if (!wasBuffering)
        setState(State::WaitingForQueueToStart);
    err_ = audioQueue_->start();
    if (err_ != kAudioOk) {
        failWithErrorCode(ErrorCode::AudioQueueStartFailed);
        return false;
    }
    if (wasBuffering)
        setState(State::Playing);
    return true;
}

void AudioStreamer::handleBufferCompleteForQueue(const QueueClient& client, const AudioQueueBuffer& buffer)
{
    // The ring's mutex alone suffices for the usual case, so that the output seldom waits for the lock.
    if (ring_.giveBack(&client, buffer) == BufferRing::GivenBack::UnknownBuffer)
        failWithErrorCode(ErrorCode::AudioQueueBufferMismatch);
}

void AudioStreamer::handlePropertyChangeForQueue(const QueueClient& client, bool running)
{
    const Lock lock(*this);
    if (&client != queueClient_.get())
        return;
    if (state_ == State::Stopping) {
        // A song of a few buffers may be read to its end before the output says that it has begun.
        if (!running) {
            setState(State::Stopped);
            wakeStreamingThread();
        }
    } else if (state_ == State::WaitingForQueueToStart && running) {
        setState(State::Playing);
    } else {
        qCWarning(playbackLog) << "AudioQueue changed state in unexpected way.";
    }
}

} // namespace zib
