// SPDX-License-Identifier: GPL-3.0-or-later
// The streaming thread: its loop, the request and its events, seeking, the end.
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "playback/AudioStreamer.h"
#include "playback/detail/AudioStreamerInternals.h"
#include "services/utilities/MusicFolderGuard.h"
#include "services/utilities/PathUtilities.h"
#include "services/utilities/SongPaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QUrl>

#include <chrono>

namespace zib {

using namespace std::chrono_literals;

void AudioStreamer::startInternal()
{
    auto loop = ports_.readStreams.makeRunLoop();
    const LoopEnd end = prepareInternal(*loop) ? runInternal(*loop) : LoopEnd::CleanUp;
    {
        // These belong to this thread, whatever else is left behind.
        const Lock lock(*this);
        runLoop_ = nullptr;
        closeReadStream();
    }
    loop.reset();
    if (end == LoopEnd::CleanUp) {
        cleanUp();
    } else {
        // stop() finds the mark and does the clean-up in this thread's place.
        const Lock lock(*this);
        leftWithoutCleanUp_ = true;
    }
    idleCondition_.notify_all();
}

/// @return whether the request is on its way and the loop is to be run.
bool AudioStreamer::prepareInternal(RunLoop& loop)
{
    const Lock lock(*this);
    if (state_ != State::StartingFileThread) {
        if (state_ != State::Stopping && state_ != State::Stopped)
            qCWarning(playbackLog, "### Not starting audio thread. State code is: %ld",
                      static_cast<long>(state_));
        return false;
    }
    runLoop_ = &loop;
    return openReadStream();
}

AudioStreamer::LoopEnd AudioStreamer::runInternal(RunLoop& loop)
{
    for (;;) {
        const bool couldRun = loop.runFor(250ms);
        const Lock lock(*this);
        if (seekWasRequested_) {
            internalSeekToTime(requestedSeekTime_);
            seekWasRequested_ = false;
        }
        if (state_ == State::Playing && ring_.used() == 0) {
            err_ = audioQueue_->pause();
            if (err_ != kAudioOk) {
                failWithErrorCode(ErrorCode::AudioQueuePauseFailed);
                return LoopEnd::LeaveAtOnce;
            }
            setState(State::Buffering);
        }
        if (!couldRun || runLoopShouldExit())
            return LoopEnd::CleanUp;
    }
}

bool AudioStreamer::openReadStream()
{
    if (std::this_thread::get_id() != internalThread_.get_id()) {
        qCCritical(playbackLog) << "File stream download must be started on the internalThread";
        return false;
    }
    if (stream_) {
        qCCritical(playbackLog) << "Download stream already initialized";
        return false;
    }
    const QUrl url(location_, QUrl::StrictMode);
    if (!url.isValid() || url.isEmpty()) {
        qCWarning(playbackLog).noquote()
            << QStringLiteral("Streamer failed creating URL from string: %1").arg(location_);
        return false;
    }

    HttpReadRequest request;
    request.url = location_.toUtf8();
    request.followRedirects = true;
    // Songs are found all over the web, often behind expired or self-made certificates; they hold no secret.
    request.acceptAnyCertificate = request.url.contains("https");
    if (fileLength_ > 0 && seekByteOffset_ > 0) {
        // The last byte asked for is one past the end, which servers cut off.
        request.headers.append({"Range", "bytes=" + QByteArray::number(seekByteOffset_) + '-' +
                                             QByteArray::number(fileLength_)});
        discontinuous_ = true;
    }

    const auto presentFailure = [this] {
        presentAlertWithTitle(
            QCoreApplication::translate("Errors", "File Error"),
            QCoreApplication::translate("Errors", "Unable to configure network read stream."));
        return false;
    };
    stream_ = ports_.readStreams.makeReadStream(request);
    if (!stream_)
        return presentFailure();
    hasHttpHeaders_ = false;
    requestBytes_ = 0;
    setState(State::WaitingForData);
    if (!stream_->open()) {
        stream_.reset();
        return presentFailure();
    }
    stream_->setClient([this](HttpReadStream& stream, HttpReadStream::Event eventType) {
        handleReadFromStream(stream, eventType);
    });
    stream_->scheduleOn(*runLoop_);
    return true;
}

void AudioStreamer::closeReadStream()
{
    if (!stream_)
        return;
    stream_->close();
    stream_.reset();
}

void AudioStreamer::handleReadFromStream(HttpReadStream& stream, HttpReadStream::Event eventType)
{
    if (&stream != stream_.get())
        return;
    switch (eventType) {
    case HttpReadStream::Event::ErrorOccurred:
        failWithErrorCode(ErrorCode::AudioDataNotFound);
        break;
    case HttpReadStream::Event::HasBytesAvailable:
        handleBytesAvailable(stream);
        break;
    case HttpReadStream::Event::EndEncountered:
        handleEnd();
        break;
    }
}

void AudioStreamer::handleBytesAvailable(HttpReadStream& stream)
{
    {
        const Lock lock(*this);
        takeResponseHeaders(stream);
    }
    if (!audioFileStream_ && !openAudioFileStream())
        return;

    std::array<std::byte, kAQDefaultBufSize> bytes;
    std::size_t length = 0;
    bool discontinuous = false;
    {
        const Lock lock(*this);
        if (isFinishing() || !stream.hasBytesAvailable())
            return;
        char* const begin = reinterpret_cast<char*>(bytes.data());
        const std::int64_t count = stream.read(begin, bytes.size());
        if (count < 0)
            failWithErrorCode(ErrorCode::AudioDataNotFound);
        if (count <= 0)
            return;
        receivedData_.append(begin, count);
        requestBytes_ += count;
        length = static_cast<std::size_t>(count);
        discontinuous = discontinuous_;
    }
    // Without the lock: the packets may have to wait for a free buffer.
    const AudioStatus status = audioFileStream_->parseBytes(std::span(bytes).first(length), discontinuous);
    if (status != kAudioOk) {
        const Lock lock(*this);
        err_ = status;
        failWithErrorCode(ErrorCode::FileStreamParseBytesFailed);
    }
}

void AudioStreamer::takeResponseHeaders(const HttpReadStream& stream)
{
    if (std::exchange(hasHttpHeaders_, true))
        return;
    httpHeaders_ = stream.responseHeaders();
    if (seekByteOffset_ != 0)
        return;
    fileLength_ = 0;
    for (auto field = httpHeaders_.constBegin(); field != httpHeaders_.constEnd(); ++field)
        if (field.key().compare("Content-Length", Qt::CaseInsensitive) == 0)
            fileLength_ = std::max<std::int64_t>(0, field.value().toLongLong());
}

bool AudioStreamer::openAudioFileStream()
{
    const QString extension = pathExtension(QUrl(location_).path());
    AudioStatus status = kAudioOk;
    audioFileStream_ = ports_.fileStreams.open(hintForFileExtension(extension), *this, status);
    if (audioFileStream_)
        return true;
    const Lock lock(*this);
    err_ = status;
    failWithErrorCode(ErrorCode::FileStreamOpenFailed);
    return false;
}

void AudioStreamer::handleEnd()
{
    bool hasPartialBuffer = false;
    {
        const Lock lock(*this);
        if (isFinishing())
            return;
        hasPartialBuffer = bytesFilled_ > 0;
        if (hasPartialBuffer && state_ == State::WaitingForData)
            setState(State::FlushingEof);
    }
    if (hasPartialBuffer)
        enqueueBuffer();

    const Lock lock(*this);
    if (isFinishing())
        return;
    const bool heardNothing = state_ == State::WaitingForData;
    if (heardNothing && !soughtItsEnd()) {
        failWithErrorCode(ErrorCode::AudioDataNotFound);
        return;
    }
    if (heardNothing || !audioQueue_) {
        setState(State::Stopped);
        stopReason_ = StopReason::StoppingEof;
        return;
    }
    err_ = audioQueue_->flush();
    if (err_ != kAudioOk) {
        failWithErrorCode(ErrorCode::AudioQueueFlushFailed);
        return;
    }
    setState(State::Stopping);
    stopReason_ = StopReason::StoppingEof;
    err_ = audioQueue_->stop(false);
    if (err_ != kAudioOk)
        failWithErrorCode(ErrorCode::AudioQueueFlushFailed);
}

/// Lengths are estimates, so listeners seek to where no packet begins any more. When the file's rest has come
/// whole, the song is not broken but over, as it would be for who had listened to there.
bool AudioStreamer::soughtItsEnd() const
{
    return seekByteOffset_ > 0 && requestBytes_ >= fileLength_ - seekByteOffset_;
}

void AudioStreamer::internalSeekToTime(double seconds)
{
    const double bitsPerSecond = calculatedBitRate();
    if (bitsPerSecond == 0 || fileLength_ <= 0)
        return;
    const auto audioBytes = static_cast<double>(fileLength_ - dataOffset_);
    seekByteOffset_ =
        std::min(truncated(static_cast<double>(dataOffset_) + seconds / duration() * audioBytes),
                 fileLength_ - 2 * std::int64_t(packetBufferSize_));
    seekTime_ = seconds;
    if (audioFileStream_ && packetDuration_ > 0 && bitsPerSecond > 0) {
        std::int64_t packetByteOffset = 0;
        bool estimated = false;
        const std::int64_t packet = truncated(std::floor(seconds / packetDuration_));
        err_ = audioFileStream_->seek(packet, packetByteOffset, estimated);
        // A place beyond the file, as a table of another file may tell, would be refused by the server.
        if (err_ == kAudioOk && !estimated && packetByteOffset < fileLength_ - dataOffset_) {
            seekTime_ -=
                static_cast<double>(seekByteOffset_ - dataOffset_ - packetByteOffset) * 8 / bitsPerSecond;
            seekByteOffset_ = packetByteOffset + dataOffset_;
        }
    }
    closeReadStream();
    bytesFilled_ = 0; // of the old place
    packetsFilled_ = 0;
    setState(State::Stopping);
    stopReason_ = StopReason::Temporary;
    if (audioQueue_) {
        err_ = audioQueue_->stop(true);
        if (err_ != kAudioOk) {
            failWithErrorCode(ErrorCode::AudioQueueStopFailed);
            return;
        }
    }
    openReadStream();
}

void AudioStreamer::cleanUp()
{
    bool records = false;
    {
        const Lock lock(*this);
        records = releaseStreaming();
    }
    if (records)
        recordStream(); // without the lock: the disk may be slow
    const Lock lock(*this);
    bytesFilled_ = 0;
    packetsFilled_ = 0;
    seekByteOffset_ = 0;
    packetBufferSize_ = 0;
    setState(State::Initialized);
}

/// @return whether the stream is to be recorded.
bool AudioStreamer::releaseStreaming()
{
    if (audioFileStream_) {
        err_ = audioFileStream_->close();
        audioFileStream_.reset();
        if (err_ != kAudioOk)
            failWithErrorCode(ErrorCode::FileStreamCloseFailed);
    }
    if (audioQueue_) {
        err_ = audioQueue_->dispose();
        if (err_ != kAudioOk)
            failWithErrorCode(ErrorCode::AudioQueueDisposeFailed);
        audioQueue_.reset();
    }
    queueClient_.reset();
    ring_.clear();
    httpHeaders_.clear();
    return stopReason_ == StopReason::StoppingEof && !didSeekDuringPlayback_ &&
           ports_.defaults.boolean(settings::RecordAudioStreams);
}

void AudioStreamer::recordStream()
{
    const QByteArray data = [this] {
        const Lock lock(*this);
        return receivedData_;
    }();
    const SongPaths paths(ports_.defaults);
    bool written = false;
    if (const auto path = pathInMusicFolder(paths.musicFolder(), paths.filePath(track_))) {
        if (!QDir().mkpath(QFileInfo(*path).path()))
            qCWarning(playbackLog) << "Failed creating directory";
        QSaveFile file(*path);
        written = file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.commit();
    } else {
        qCWarning(playbackLog).noquote() << path.error();
    }
    if (written) {
        tellDelegate(&AudioStreamerDelegate::exportedFile);
        return;
    }
    queueOnThreadOf(ports_.defaults, [&defaults = ports_.defaults] {
        defaults.setValue(settings::BriefStatusMessage,
                          QCoreApplication::translate("AudioStreamer", "Export failed"));
    });
}

} // namespace zib
