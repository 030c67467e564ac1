// SPDX-License-Identifier: GPL-3.0-or-later
// What a streamer answers about itself.
#include "playback/AudioStreamer.h"
#include "playback/detail/AudioStreamerInternals.h"

#include <utility>

namespace zib {

AudioStreamer::State AudioStreamer::state() const
{
    const std::scoped_lock lock(lock_);
    return state_;
}

AudioStreamer::StopReason AudioStreamer::stopReason() const
{
    const std::scoped_lock lock(lock_);
    return stopReason_;
}

AudioStreamer::ErrorCode AudioStreamer::errorCode() const
{
    const std::scoped_lock lock(lock_);
    return errorCode_;
}

quint32 AudioStreamer::bitRate() const
{
    const std::scoped_lock lock(lock_);
    return bitRate_;
}

void AudioStreamer::setBitRate(quint32 bitRate)
{
    const std::scoped_lock lock(lock_);
    bitRate_ = bitRate;
}

QHash<QByteArray, QByteArray> AudioStreamer::httpHeaders() const
{
    const std::scoped_lock lock(lock_);
    return httpHeaders_;
}

double AudioStreamer::progress()
{
    const Lock lock(*this);
    if (sampleRate_ > 0 && !isFinishing() &&
        (state_ == State::Playing || state_ == State::Paused || state_ == State::Buffering)) {
        double sampleTime = 0;
        err_ = audioQueue_->currentTime(sampleTime);
        if (err_ == kAudioQueueStopped)
            return lastProgress_;
        if (err_ != kAudioOk)
            failWithErrorCode(ErrorCode::GetAudioTimeFailed);
        lastProgress_ = std::max(0.0, seekTime_ + sampleTime / sampleRate_);
    }
    return lastProgress_;
}

double AudioStreamer::duration() const
{
    const std::scoped_lock lock(lock_);
    const double bitsPerSecond = calculatedBitRate();
    if (bitsPerSecond == 0 || fileLength_ == 0)
        return 0;
    return static_cast<double>(fileLength_ - dataOffset_) / (bitsPerSecond * 0.125);
}

double AudioStreamer::calculatedBitRate() const
{
    const std::scoped_lock lock(lock_);
    // Fewer packets than this say too little: the first ones often hold headers or silence.
    constexpr std::uint64_t minimumPackets = 50;
    if (packetDuration_ != 0 && processedPacketsCount_ > minimumPackets) {
        const std::uint64_t wholeBytes = processedPacketsSizeTotal_ / processedPacketsCount_;
        return static_cast<double>(wholeBytes) * 8 / packetDuration_;
    }
    return bitRate_;
}

bool AudioStreamer::isPlaying() const
{
    return state() == State::Playing;
}

bool AudioStreamer::isPaused() const
{
    return state() == State::Paused;
}

bool AudioStreamer::isIdle() const
{
    return state() == State::Initialized;
}

bool AudioStreamer::isWaiting() const
{
    const std::scoped_lock lock(lock_);
    return isFinishing() || state_ == State::StartingFileThread || state_ == State::WaitingForData ||
           state_ == State::WaitingForQueueToStart || state_ == State::Buffering;
}

bool AudioStreamer::isFinishing() const
{
    const std::scoped_lock lock(lock_);
    return (errorCode_ != ErrorCode::None && state_ != State::Initialized) ||
           ((state_ == State::Stopping || state_ == State::Stopped) && stopReason_ != StopReason::Temporary);
}

QString AudioStreamer::stringForErrorCode(ErrorCode code)
{
    static const std::array texts = {
        QLatin1String("No error."),
        QLatin1String("Network connection failed"),
        QLatin1String("File stream get property failed."),
        QLatin1String("File stream seek failed."),
        QLatin1String("Parse bytes failed."),
        QLatin1String("Open audio file stream failed."),
        QLatin1String("Close audio file stream failed."),
        QLatin1String("No audio data found."),
        QLatin1String("Audio queue creation failed."),
        QLatin1String("Audio buffer allocation failed."),
        QLatin1String("Queueing of audio buffer failed."),
        QLatin1String("Audio queue add listener failed."),
        QLatin1String("Audio queue remove listener failed."),
        QLatin1String("Audio queue start failed."),
        QLatin1String("Audio queue dispose failed."), // a pause that failed reads the same, on purpose
        QLatin1String("Audio queue buffers don't match."),
        QLatin1String("Audio queue dispose failed."),
        QLatin1String("Audio queue stop failed."),
        QLatin1String("Audio queue flush failed."),
        QLatin1String("Audio playback failed"),
        QLatin1String("Audio queue get current time failed."),
        QLatin1String("Audio packets are larger than kAQDefaultBufSize."),
    };
    const auto index = static_cast<std::size_t>(code);
    return index < texts.size() ? texts.at(index) : QLatin1String("Audio playback failed");
}

AudioFileType AudioStreamer::hintForFileExtension(QStringView extension)
{
    static constexpr std::array<std::pair<QLatin1String, AudioFileType>, 8> hints = {{
        {QLatin1String("mp3"), AudioFileType::Mp3},
        {QLatin1String("wav"), AudioFileType::Wave},
        {QLatin1String("aifc"), AudioFileType::AifC},
        {QLatin1String("aiff"), AudioFileType::Aiff},
        {QLatin1String("m4a"), AudioFileType::M4a},
        {QLatin1String("mp4"), AudioFileType::Mpeg4},
        {QLatin1String("caf"), AudioFileType::Caf},
        {QLatin1String("aac"), AudioFileType::AdtsAac},
    }};
    for (const auto& [known, type] : hints)
        if (extension == known)
            return type;
    return AudioFileType::Mp3;
}

} // namespace zib
