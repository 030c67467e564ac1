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
    class Lock;
    class QueueClient;
    class CallbackGate;

    AudioStreamer(const Record& dict, AudioStreamerDelegate* delegate, const AudioStreamerPorts& ports);

    // State, errors and messages (AudioStreamer.cpp). All but isOnMainThread with the lock held.
    [[nodiscard]] bool isOnMainThread() const { return std::this_thread::get_id() == mainThread_; }
    void setState(State state);
    void failWithErrorCode(ErrorCode code);
    void publish(int stateChanges);
    void tellDelegate(void (AudioStreamerDelegate::*message)(const Record&));
    void presentAlertWithTitle(const QString& title, const QString& message);
    void wakeStreamingThread();
    [[nodiscard]] bool runLoopShouldExit() const;

    // The streaming thread (AudioStreamerThread.cpp), which calls these without the lock unless they say so.
    enum class LoopEnd { CleanUp, LeaveAtOnce };
    void startInternal();
    bool prepareInternal(RunLoop& loop);
    LoopEnd runInternal(RunLoop& loop);
    bool openReadStream();                   // lock held
    void closeReadStream();                  // lock held
    void internalSeekToTime(double seconds); // lock held
    void cleanUp();                          // also on the main thread, once the thread is gone
    bool releaseStreaming();                 // lock held
    void recordStream();
    void handleReadFromStream(HttpReadStream& stream, HttpReadStream::Event eventType);
    void handleBytesAvailable(HttpReadStream& stream);
    void handleEnd();
    [[nodiscard]] bool soughtItsEnd() const;                // lock held
    void takeResponseHeaders(const HttpReadStream& stream); // lock held
    bool openAudioFileStream();

    // From bytes to the output queue (AudioStreamerPackets.cpp): the streaming thread, without the lock.
    void propertyFound(AudioFileStream& stream, AudioFileStreamProperty property) override;
    void handlePropertyChangeForFileStream(AudioFileStream& stream, AudioFileStreamProperty property);
    [[nodiscard]] AudioStatus takeHeAacFormat(const AudioFileStream& stream);
    void packetsProduced(std::span<const std::byte> bytes, std::uint32_t packetCount,
                         std::span<const AudioPacketDescription> descriptions) override;
    void handleAudioPackets(std::span<const std::byte> bytes,
                            std::span<const AudioPacketDescription> packetDescriptions);
    [[nodiscard]] bool dropsPackets() const; // lock held
    bool handlePacket(std::span<const std::byte> packet, std::uint32_t variableFrames);
    void handleConstantBitRateBytes(std::span<const std::byte> bytes);
    void createQueue();                   // lock held
    [[nodiscard]] bool allocateBuffers(); // lock held
    void copyMagicCookie();               // lock held
    void enqueueBuffer();
    [[nodiscard]] bool startsQueueWithBuffer() const; // lock held
    bool startQueue();                                // lock held

    // The output queue's callbacks, on any thread.
    void handleBufferCompleteForQueue(const QueueClient& client, const AudioQueueBuffer& buffer);
    void handlePropertyChangeForQueue(const QueueClient& client, bool running);

    const AudioStreamerPorts ports_;
    const Record trackDict_; // the record itself, for messages only: the main thread may be changing it
    const Record track_;     // as it was at the beginning, for the streaming thread
    const QString location_; // of the track
    AudioStreamerDelegate* const delegate_;
    const std::thread::id mainThread_ = std::this_thread::get_id();
    const std::shared_ptr<CallbackGate> callbackGate_;

    // Locks. lock_ guards every field below it but those that say otherwise. It is recursive, since an output
    // queue calls back from within a call. It is never held while waiting, nor while slots run, and it comes
    // before the mutex of the ring. On the main thread slots run once the last hold is let go.
    mutable std::recursive_mutex lock_;
    int lockDepth_ = 0;
    int unpublishedStateChanges_ = 0; // made on the main thread under the current hold

    BufferRing ring_; // has a mutex of its own
    std::thread internalThread_;
    std::mutex idleMutex_; // for the condition alone: whoever waits looks at the state in steps
    std::condition_variable idleCondition_;

    State state_ = State::Initialized;
    StopReason stopReason_ = StopReason::None;
    ErrorCode errorCode_ = ErrorCode::None;
    AudioStatus err_ = kAudioOk;
    bool leftWithoutCleanUp_ = false; // by the streaming thread

    RunLoop* runLoop_ = nullptr;                       // while the streaming thread may be woken
    std::unique_ptr<HttpReadStream> stream_;           // made and closed by the streaming thread
    std::unique_ptr<AudioFileStream> audioFileStream_; // the streaming thread's, which takes no lock for it
    std::unique_ptr<AudioQueue> audioQueue_;
    std::shared_ptr<QueueClient> queueClient_;

    QHash<QByteArray, QByteArray> httpHeaders_;
    bool hasHttpHeaders_ = false;   // those of the current request
    QByteArray receivedData_;       // every byte read, for the recording
    std::int64_t requestBytes_ = 0; // read of the current request

    AudioStreamDescription asbd_;
    double sampleRate_ = 0;
    double packetDuration_ = 0; // seconds
    bool discontinuous_ = false;

    // The buffer being filled. The streaming thread's, which reads them without the lock while it copies.
    std::array<AudioPacketDescription, kPacketsPerBuffer> packetDescs_{};
    std::size_t fillBufferIndex_ = 0;
    std::uint32_t packetBufferSize_ = 0;
    std::size_t bytesFilled_ = 0;
    std::size_t packetsFilled_ = 0;

    quint32 bitRate_ = 0;
    std::int64_t dataOffset_ = 0;
    std::int64_t fileLength_ = 0; // 0 while unknown
    std::uint64_t audioDataByteCount_ = 0;
    std::uint64_t processedPacketsCount_ = 0;
    std::uint64_t processedPacketsSizeTotal_ = 0;

    std::int64_t seekByteOffset_ = 0; // where the current request begins
    double seekTime_ = 0;             // and the time there
    bool seekWasRequested_ = false;
    bool didSeekDuringPlayback_ = false; // since start
    double requestedSeekTime_ = 0;
    double lastProgress_ = 0;
};

} // namespace zib
