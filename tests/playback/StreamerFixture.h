// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/SettingsKeys.h"
#include "playback/AudioStreamer.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeAudioFileStreams.h"
#include "tests/fakes/FakeAudioQueues.h"
#include "tests/fakes/FakeHttpReadStreams.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/support/LogCapture.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QStringList>
#include <QThread>

#include <gtest/gtest.h>

#include <ostream>

#include "records/PropertyValue.h"

namespace zib {

inline void PrintTo(AudioStreamer::State state, std::ostream* out)
{
    *out << "state " << static_cast<int>(state);
}
inline void PrintTo(AudioStreamer::ErrorCode code, std::ostream* out)
{
    *out << "error " << static_cast<int>(code);
}

/// Runs the main thread's events until that holds; false when it does not come to hold in a generous time.
template <typename Condition>
bool eventually(Condition condition)
{
    const QDeadlineTimer deadline(std::chrono::seconds(30));
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents();
        QThread::usleep(200);
    }
    return true;
}

/// Keeps what the library would be told.
class RecordingDelegate : public AudioStreamerDelegate {
  public:
    void fileNotFound(const Record& track) override { notFound.append(track); }
    void exportedFile(const Record& track) override { exported.append(track); }

    QList<Record> notFound;
    QList<Record> exported;
};

/// A streamer over fakes. By default the parser reads packets of 26.1 ms into buffers of 4096 bytes.
class StreamerFixture : public testing::Test {
  protected:
    using State = AudioStreamer::State;
    using StopReason = AudioStreamer::StopReason;
    using ErrorCode = AudioStreamer::ErrorCode;

    // 4 of these fill a buffer, so that 15 buffers are handed over as the 61st arrives.
    static constexpr int packetBytes = 1000;
    static constexpr int packetsPerBuffer = 4;
    static constexpr int packetsToPlay = 15 * packetsPerBuffer + 1;

    void make(const QString& location = QStringLiteral("http://music.example/song.mp3"))
    {
        track = Record::make({{keys::Id, QStringLiteral("0123456789abcdef")},
                              {keys::Name, QStringLiteral("Song")},
                              {keys::Artist, QStringLiteral("Artist")},
                              {keys::Album, QStringLiteral("Album")},
                              {keys::Location, location}});
        streamer = AudioStreamer::initWithDict(track, &delegate, ports);
        QObject::connect(streamer.get(), &AudioStreamer::ASStatusChangedNotification,
                         [this](AudioStreamer* changed) { notified.append(changed->state()); });
    }
    /// Starts and waits until the request is under way.
    void startRequest()
    {
        if (!streamer)
            make();
        const std::size_t before = requests();
        streamer->start();
        ASSERT_TRUE(eventually([&] { return requests() == before + 1; }));
        ASSERT_TRUE(reaches(State::WaitingForData));
    }
    /// As a server would that knows the length of the file.
    void respondAndSend(const QByteArray& bytes, qint64 length = 1000000)
    {
        exchange().respond({{"Content-Length", QByteArray::number(length)}});
        exchange().send(bytes);
    }
    /// Up to Playing, the ring not quite full.
    void startPlaying(qint64 length = 1000000)
    {
        startRequest();
        respondAndSend(FakeAudioFile::packets(packetsToPlay, packetBytes), length);
        ASSERT_TRUE(reaches(State::Playing));
        ASSERT_TRUE(allRead());
    }
    bool reaches(State state)
    {
        return eventually([&] { return streamer->state() == state; });
    }
    /// The streaming thread has taken all that was sent and has nothing at hand.
    bool allRead()
    {
        return eventually([this] { return exchange().unreadBytes() == 0; });
    }

    [[nodiscard]] std::size_t requests() const { return web.exchanges().size(); }
    [[nodiscard]] FakeHttpExchange& exchange() const { return *web.exchanges().back(); }
    [[nodiscard]] std::shared_ptr<FakeOutput> output() const
    {
        const auto outputs = queues.outputs();
        return outputs.empty() ? nullptr : outputs.back();
    }

    FakeHttpReadStreams web;
    FakeAudioFileStreams files;
    FakeAudioQueues queues;
    FakeAlerts alerts;
    FakeUserDefaults defaults;
    RecordingDelegate delegate;
    AudioStreamerPorts ports{web, files, queues, alerts, defaults};
    Record track;
    QList<State> notified; ///< the state as each notification came
    std::unique_ptr<AudioStreamer> streamer;
};

} // namespace zib
