// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioFileStream.h"
#include "platform/AudioQueue.h"
#include "platform/HttpReadStream.h"
#include "playback/BufferRing.h"
#include "records/Record.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>

#include <array>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace zib {

class Alerts;
class UserDefaults;

/// What a streamer tells the library. Main thread. It must outlive the streamers that know it; a message that
/// is still on its way when it dies is dropped.
class AudioStreamerDelegate {
  public:
    virtual ~AudioStreamerDelegate() = default;
    /// The song could not be streamed (to its end).
    virtual void fileNotFound(const Record& /*track*/) {}
    /// The recorded song has been written to its file path.
    virtual void exportedFile(const Record& /*track*/) {}

  private:
    friend class AudioStreamer;
    QObject mailbox_; // messages queue here and not at the streamer, which may be gone before they arrive
};

/// The services that a streamer works over; all outlive it.
struct AudioStreamerPorts {
    HttpReadStreams& readStreams;
    AudioFileStreams& fileStreams;
    AudioQueues& queues;
    Alerts& alerts;
    UserDefaults& defaults;
};

/// Plays one song from an HTTP address while it downloads.
///
/// A private thread reads the network, parses packets and fills the buffers of an output queue; it lives from
/// start() until the state is Initialized again. Made, called and destroyed on the main thread. Its
/// notifications and delegate messages come on the main thread. The destructor stops whatever runs.
class AudioStreamer final : public QObject, private AudioFileStreamClient {
    Q_OBJECT

  public:
    enum class State {
        Initialized = 0,
        StartingFileThread = 1,
        WaitingForData = 2,
        FlushingEof = 3,
        WaitingForQueueToStart = 4,
        Playing = 5,
        Buffering = 6,
        Stopping = 7,
        Stopped = 8,
        Paused = 9,
    };
    enum class StopReason { None = 0, StoppingEof = 1, UserAction = 2, Error = 3, Temporary = 4 };
    enum class ErrorCode {
        None = 0,
        NetworkConnectionFailed = 1,
        FileStreamGetPropertyFailed = 2,
        FileStreamSeekFailed = 3,
        FileStreamParseBytesFailed = 4,
        FileStreamOpenFailed = 5,
        FileStreamCloseFailed = 6,
        AudioDataNotFound = 7,
        AudioQueueCreationFailed = 8,
        AudioQueueBufferAllocationFailed = 9,
        AudioQueueEnqueueFailed = 10,
        AudioQueueAddListenerFailed = 11,
        AudioQueueRemoveListenerFailed = 12,
        AudioQueueStartFailed = 13,
        AudioQueuePauseFailed = 14,
        AudioQueueBufferMismatch = 15,
        AudioQueueDisposeFailed = 16,
        AudioQueueStopFailed = 17,
        AudioQueueFlushFailed = 18,
        AudioStreamerFailed = 19,
        GetAudioTimeFailed = 20,
        AudioBufferTooSmall = 21,
    };

    /// @return null, with a line in the log, when there is no record.
    static std::unique_ptr<AudioStreamer> initWithDict(const Record& dict, AudioStreamerDelegate* delegate,
                                                       const AudioStreamerPorts& ports);
    ~AudioStreamer() override;

    /// Begins streaming from Initialized, resumes from Paused; nothing in any other state.
    void start();
    /// Toggles between Playing and Paused; nothing in any other state.
    void pause();
    /// Stops and waits until the thread is done and the state is Initialized. When the output can't be
    /// stopped it returns at once; the thread then ends by itself.
    void stop();
    /// Asks the streaming thread to go on from there, in seconds; it does so once it has put away the packets
    /// at hand. Nothing comes of it while bit rate or file length are unknown.
    void seekToTime(double seconds);
    /// 0 to 1; nothing before there is an output queue.
    void setVolume(float volume);
    static void setQueue(AudioQueue& queue, float toVolume);

    [[nodiscard]] State state() const;
    [[nodiscard]] StopReason stopReason() const;
    /// The first error that was raised.
    [[nodiscard]] ErrorCode errorCode() const;
    /// Bits a second as set, or unknownBitRate once packets have arrived while it was 0.
    [[nodiscard]] quint32 bitRate() const;
    void setBitRate(quint32 bitRate);
    static constexpr quint32 unknownBitRate = 4294967295;
    /// The response header fields of the current request; empty before they came.
    [[nodiscard]] QHash<QByteArray, QByteArray> httpHeaders() const;
    /// Seconds of the song heard; the last value known while it does not play.
    [[nodiscard]] double progress();
    /// Seconds, an estimate; 0 while bit rate or file length are unknown.
    [[nodiscard]] double duration() const;
    /// Bits a second: measured once more than 50 packets were counted, until then bitRate.
    [[nodiscard]] double calculatedBitRate() const;

    [[nodiscard]] bool isPlaying() const;
    [[nodiscard]] bool isPaused() const;
    [[nodiscard]] bool isIdle() const;
    /// Data or the output are awaited, or it is finishing.
    [[nodiscard]] bool isWaiting() const;
    /// An error was raised or it stops for good.
    [[nodiscard]] bool isFinishing() const;

    static QString stringForErrorCode(ErrorCode code);
    /// Exact, case-sensitive; MPEG layer 3 for any other extension.
    static AudioFileType hintForFileExtension(QStringView extension);

  Q_SIGNALS:
    /// The state has changed. A slot may stop and even destroy the streamer.
    void ASStatusChangedNotification(zib::AudioStreamer* streamer);

  private:
    AudioStreamer(const Record& dict, AudioStreamerDelegate* delegate, const AudioStreamerPorts& ports);
};

} // namespace zib
