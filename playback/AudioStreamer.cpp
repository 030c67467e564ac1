// SPDX-License-Identifier: GPL-3.0-or-later
// The operations for the main thread, the state and what is told of it.
#include "playback/AudioStreamer.h"

#include "platform/Alerts.h"
#include "playback/detail/AudioStreamerInternals.h"

#include <QCoreApplication>
#include <QPointer>

#include <chrono>
#include <system_error>

namespace zib {

Q_LOGGING_CATEGORY(playbackLog, "zib.playback")

std::unique_ptr<AudioStreamer> AudioStreamer::initWithDict(const Record& dict,
                                                           AudioStreamerDelegate* delegate,
                                                           const AudioStreamerPorts& ports)
{
    if (dict.isNull()) {
        qCWarning(playbackLog) << "attempting to create streamer from empty dict!";
        return nullptr;
    }
    return std::unique_ptr<AudioStreamer>(new AudioStreamer(dict, delegate, ports));
}

AudioStreamer::AudioStreamer(const Record& dict, AudioStreamerDelegate* delegate,
                             const AudioStreamerPorts& ports)
    : ports_(ports)
    , trackDict_(dict)
    , track_(dict.snapshot())
    , location_(track_.string(keys::Location))
    , delegate_(delegate)
    , callbackGate_(std::make_shared<CallbackGate>(*this))
{
}

AudioStreamer::~AudioStreamer()
{
    {
        const std::scoped_lock lock(lock_); // tells nobody
        if (state_ != State::Initialized)
            state_ = State::Stopped;
        stopReason_ = StopReason::UserAction;
        seekWasRequested_ = false;
        ring_.giveUpWaiting();
        wakeStreamingThread();
    }
    if (internalThread_.joinable())
        internalThread_.join();
    callbackGate_->close();
}

void AudioStreamer::start()
{
    const Lock lock(*this);
    if (state_ == State::Paused) {
        pause();
        return;
    }
    if (state_ != State::Initialized)
        return;
    if (!isOnMainThread()) {
        qCCritical(playbackLog) << "Playback can only be started from the main thread.";
        return;
    }
    if (internalThread_.joinable())
        internalThread_.join(); // it takes no lock after it has set Initialized
    setState(State::StartingFileThread);
    didSeekDuringPlayback_ = false;
    ring_.resumeWaiting();
    try {
        internalThread_ = std::thread([this] { startInternal(); });
    } catch (const std::system_error&) {
        failWithErrorCode(ErrorCode::AudioStreamerFailed);
        setState(State::Initialized);
    }
}

void AudioStreamer::pause()
{
    const Lock lock(*this);
    if (state_ == State::Playing) {
        err_ = audioQueue_->pause();
        if (err_ != kAudioOk)
            failWithErrorCode(ErrorCode::AudioQueuePauseFailed);
        else
            setState(State::Paused);
    } else if (state_ == State::Paused) {
        err_ = audioQueue_->start();
        if (err_ != kAudioOk)
            failWithErrorCode(ErrorCode::AudioQueueStartFailed);
        else
            setState(State::Playing);
    }
}

void AudioStreamer::stop()
{
    const QPointer<AudioStreamer> alive(this);
    {
        const Lock lock(*this);
        if (audioQueue_ && (state_ == State::Playing || state_ == State::Paused ||
                            state_ == State::Buffering || state_ == State::WaitingForQueueToStart)) {
            setState(State::Stopping);
            stopReason_ = StopReason::UserAction;
            err_ = audioQueue_->stop(true);
            if (err_ != kAudioOk) {
                failWithErrorCode(ErrorCode::AudioQueueStopFailed);
                return;
            }
            // A queue that had not begun to run has nothing to report.
            setState(State::Stopped);
        } else if (state_ != State::Initialized) {
            setState(State::Stopped);
            stopReason_ = StopReason::UserAction;
        }
        seekWasRequested_ = false;
        ring_.giveUpWaiting();
        wakeStreamingThread();
    }
    using namespace std::chrono_literals;
    while (alive && !isIdle()) {
        bool abandoned = false;
        {
            const Lock lock(*this);
            abandoned = std::exchange(leftWithoutCleanUp_, false);
        }
        if (abandoned) {
            cleanUp();
        } else {
            std::unique_lock idle(idleMutex_);
            idleCondition_.wait_for(idle, 100ms);
        }
    }
}

void AudioStreamer::seekToTime(double seconds)
{
    const Lock lock(*this);
    seekWasRequested_ = true;
    didSeekDuringPlayback_ = true;
    requestedSeekTime_ = seconds;
    wakeStreamingThread();
}

void AudioStreamer::setVolume(float volume)
{
    const Lock lock(*this);
    if (audioQueue_)
        setQueue(*audioQueue_, volume);
}

void AudioStreamer::setQueue(AudioQueue& queue, float toVolume)
{
    const AudioStatus status = queue.setVolume(toVolume);
    if (status != kAudioOk)
        qCWarning(playbackLog, "AudioQueueSetParameter returned %d when setting the volume.", status);
}

void AudioStreamer::setState(State state)
{
    if (state_ == state)
        return;
    state_ = state;
    if (isOnMainThread())
        ++unpublishedStateChanges_;
    else
        queueOnThreadOf(*this, [this] { publish(1); });
}

void AudioStreamer::publish(int stateChanges)
{
    const QPointer<AudioStreamer> alive(this);
    for (; stateChanges > 0 && alive; --stateChanges)
        Q_EMIT ASStatusChangedNotification(this);
}

void AudioStreamer::failWithErrorCode(ErrorCode code)
{
    const Lock lock(*this);
    if (errorCode_ != ErrorCode::None)
        return;
    errorCode_ = code;
    const QString text = stringForErrorCode(code);
    if (err_ == kAudioOk) {
        qCWarning(playbackLog).noquote() << text;
    } else {
        QString characters;
        for (int shift = 24; shift >= 0; shift -= 8) {
            const auto character = static_cast<char>(static_cast<std::uint32_t>(err_) >> shift);
            // A plain number holds no text, and its zero bytes would cut the line off.
            characters += QLatin1Char(character >= ' ' && character <= '~' ? character : '.');
        }
        qCWarning(playbackLog).noquote() << QStringLiteral("%1 err: %2 %3\n").arg(text, characters).arg(err_);
    }
    if (state_ == State::Playing || state_ == State::Paused || state_ == State::Buffering) {
        setState(State::Stopping);
        stopReason_ = StopReason::Error;
        audioQueue_->stop(true);
    }
    ring_.giveUpWaiting();
    wakeStreamingThread();
    tellDelegate(&AudioStreamerDelegate::fileNotFound);
}

void AudioStreamer::tellDelegate(void (AudioStreamerDelegate::*message)(const Record&))
{
    if (delegate_ == nullptr)
        return;
    queueOnThreadOf(delegate_->mailbox_,
                    [delegate = delegate_, message, track = trackDict_] { (delegate->*message)(track); });
}

void AudioStreamer::presentAlertWithTitle(const QString& title, const QString& message)
{
    Alert alert;
    alert.messageText = title;
    alert.informativeText = message;
    alert.buttons = {QCoreApplication::translate("Errors", "OK")};
    queueOnThreadOf(*this, [&alerts = ports_.alerts, alert] { alerts.runModal(alert); });
}

void AudioStreamer::wakeStreamingThread()
{
    if (runLoop_ != nullptr)
        runLoop_->wake();
}

bool AudioStreamer::runLoopShouldExit() const
{
    return errorCode_ != ErrorCode::None ||
           (state_ == State::Stopped && stopReason_ != StopReason::Temporary);
}

} // namespace zib
