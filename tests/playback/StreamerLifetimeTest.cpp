// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts hangs, leaks, and callbacks and notifications that reach what is gone: stop() and the destructor in
// every state, from within notifications, and against outputs that still call back.
#include "StreamerFixture.h"

#include <random>

namespace zib {
namespace {

class StreamerLifetimeTest : public StreamerFixture {
  protected:
    void expectNothingLeft()
    {
        EXPECT_EQ(web.runLoopsAlive(), 0);
        EXPECT_EQ(files.alive(), 0);
        for (const auto& heard : queues.outputs())
            EXPECT_TRUE(heard->isDisposed());
        for (const auto& request : web.exchanges())
            EXPECT_TRUE(request->isClosed());
    }
};

/// A state, or a way to be in one, and how a song gets there.
struct Situation {
    const char* name;
    AudioStreamer::State state;
    std::function<void(class StreamerSituationTest&)> reach;

    friend void PrintTo(const Situation& situation, std::ostream* out) { *out << situation.name; }
};

class StreamerSituationTest : public StreamerLifetimeTest, public testing::WithParamInterface<Situation> {
  public:
    using StreamerFixture::allRead;
    using StreamerFixture::exchange;
    using StreamerFixture::make;
    using StreamerFixture::output;
    using StreamerFixture::queues;
    using StreamerFixture::respondAndSend;
    using StreamerFixture::startPlaying;
    using StreamerFixture::startRequest;
    using StreamerFixture::streamer;

    void send(int packets) { respondAndSend(FakeAudioFile::packets(packets, packetBytes)); }
    void fillRing()
    {
        startPlaying();
        exchange().send(FakeAudioFile::packets(300, packetBytes));
        ASSERT_TRUE(eventually([this] { return output()->queuedBuffers() == 16; }));
    }
    void drain()
    {
        startPlaying();
        output()->playBuffer();
        exchange().end();
    }
};

TEST_P(StreamerSituationTest, StopEndsIt)
{
    GetParam().reach(*this);
    ASSERT_TRUE(reaches(GetParam().state));
    streamer->stop();
    EXPECT_TRUE(streamer->isIdle());
    expectNothingLeft();
    EXPECT_EQ(streamer->errorCode() != ErrorCode::None, GetParam().state == State::Stopped);
    streamer->stop(); // once more is harmless
}

TEST_P(StreamerSituationTest, TheDestructorEndsIt)
{
    GetParam().reach(*this);
    ASSERT_TRUE(reaches(GetParam().state));
    notified.clear();
    streamer.reset();
    expectNothingLeft();
    QCoreApplication::processEvents();
    EXPECT_TRUE(notified.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    All, StreamerSituationTest,
    testing::Values(
        Situation{"Initialized", AudioStreamer::State::Initialized, [](auto& test) { test.make(); }},
        Situation{"TheServerNeverAnswers", AudioStreamer::State::WaitingForData,
                  [](auto& test) { test.startRequest(); }},
        Situation{"SomeBuffersFilled", AudioStreamer::State::WaitingForData,
                  [](auto& test) {
                      test.startRequest();
                      test.send(20);
                      ASSERT_TRUE(test.allRead());
                  }},
        Situation{"TheOutputNeverRuns", AudioStreamer::State::WaitingForQueueToStart,
                  [](auto& test) {
                      test.queues.reportsRunning = false;
                      test.startRequest();
                      test.send(61);
                  }},
        Situation{"TheOutputNeverRunsAndTheRingIsFull", AudioStreamer::State::WaitingForQueueToStart,
                  [](auto& test) {
                      test.queues.reportsRunning = false;
                      test.startRequest();
                      test.send(300);
                      ASSERT_TRUE(
                          eventually([&] { return test.output() && test.output()->queuedBuffers() == 16; }));
                  }},
        Situation{"Playing", AudioStreamer::State::Playing, [](auto& test) { test.startPlaying(); }},
        Situation{"PlayingWithAFullRing", AudioStreamer::State::Playing, [](auto& test) { test.fillRing(); }},
        Situation{"Buffering", AudioStreamer::State::Buffering,
                  [](auto& test) {
                      test.startPlaying();
                      test.output()->playAll();
                  }},
        Situation{"Paused", AudioStreamer::State::Paused,
                  [](auto& test) {
                      test.startPlaying();
                      test.streamer->pause();
                  }},
        Situation{"PausedWithAFullRing", AudioStreamer::State::Paused,
                  [](auto& test) {
                      test.fillRing();
                      test.streamer->pause();
                      test.streamer->seekToTime(1);
                  }},
        Situation{"HeardToItsEnd", AudioStreamer::State::Stopping, [](auto& test) { test.drain(); }},
        Situation{"LeftBehind", AudioStreamer::State::Stopped,
                  [](auto& test) {
                      test.startPlaying();
                      test.queues.failures.set(QueueCall::Pause, -1);
                      test.output()->playAll();
                  }}),
    [](const testing::TestParamInfo<Situation>& test) { return std::string(test.param.name); });

TEST_F(StreamerLifetimeTest, CanBeStoppedAndDestroyedAsSoonAsItIsStarted)
{
    for (int i = 0; i < 50; ++i) {
        make();
        streamer->start();
        if (i % 2 == 0)
            streamer->stop();
        streamer.reset();
    }
    QCoreApplication::processEvents();
    expectNothingLeft();
}

TEST_F(StreamerLifetimeTest, ASlotMayDestroyTheStreamer)
{
    // The changes to Playing are made on the streaming thread, the others on the main thread. The first state
    // may have passed by the time its notification comes: there any notification will do.
    for (const State when : {State::StartingFileThread, State::Playing, State::Paused}) {
        make();
        QObject::connect(streamer.get(), &AudioStreamer::ASStatusChangedNotification, streamer.get(),
                         [&](AudioStreamer* changed) {
                             if (when == State::StartingFileThread || changed->state() == when)
                                 streamer.reset();
                         });
        const std::size_t before = requests();
        streamer->start();
        if (streamer) {
            ASSERT_TRUE(eventually([&] { return requests() > before; }));
            respondAndSend(FakeAudioFile::packets(packetsToPlay, packetBytes));
            ASSERT_TRUE(eventually([this] { return !streamer || streamer->isPlaying(); }));
            if (when == State::Paused)
                streamer->pause();
            ASSERT_TRUE(eventually([this] { return !streamer; }));
        }
        expectNothingLeft();
    }
}

TEST_F(StreamerLifetimeTest, ASlotMayStopTheStreamerThatFailsOnTheMainThread)
{
    startPlaying();
    QObject::connect(streamer.get(), &AudioStreamer::ASStatusChangedNotification, streamer.get(),
                     [this] { streamer.reset(); });
    queues.failures.set(QueueCall::CurrentTime, -1);
    EXPECT_EQ(streamer->progress(), 0);
    EXPECT_EQ(streamer, nullptr);
    expectNothingLeft();
}

TEST_F(StreamerLifetimeTest, CallbacksOfADisposedOutputAreIgnored)
{
    startPlaying();
    const auto oldClient = output()->client();
    FakeQueueFailures failures;
    FakeAudioQueue someQueue(std::make_shared<FakeOutput>(AudioStreamDescription{}, oldClient), failures,
                             false);
    AudioQueueBuffer buffer;
    const auto callLate = [&] {
        oldClient->bufferComplete(someQueue, buffer);
        oldClient->isRunningChanged(someQueue, true);
        oldClient->isRunningChanged(someQueue, false);
    };
    streamer->stop();
    callLate();
    EXPECT_EQ(streamer->errorCode(), ErrorCode::None);

    const std::size_t before = requests();
    streamer->start(); // the same streamer with a new output
    ASSERT_TRUE(eventually([&] { return requests() > before; }));
    respondAndSend(FakeAudioFile::packets(packetsToPlay, packetBytes));
    ASSERT_TRUE(reaches(State::Playing));
    callLate();
    EXPECT_TRUE(streamer->isPlaying());
    EXPECT_EQ(streamer->errorCode(), ErrorCode::None);

    streamer.reset();
    callLate();
}

TEST_F(StreamerLifetimeTest, AnOutputMayCallBackWhileTheStreamerDies)
{
    std::atomic<bool> done = false;
    std::thread outputThread([&] {
        while (!done) {
            const auto heard = output();
            const auto client = heard ? heard->client() : nullptr;
            if (!client)
                continue;
            AudioQueueBuffer stranger;
            FakeQueueFailures failures;
            FakeAudioQueue someQueue(std::make_shared<FakeOutput>(AudioStreamDescription{}, client), failures,
                                     false);
            client->bufferComplete(someQueue, stranger);
            client->isRunningChanged(someQueue, false);
        }
    });
    for (int i = 0; i < 100; ++i) {
        make();
        const std::size_t before = requests();
        streamer->start();
        while (requests() == before)
            QThread::usleep(50);
        respondAndSend(FakeAudioFile::packets(packetsToPlay, packetBytes));
        QThread::usleep(static_cast<unsigned long>(i) * 20);
        streamer.reset();
    }
    done = true;
    outputThread.join();
    expectNothingLeft();
}

TEST_F(StreamerLifetimeTest, MessagesToADelegateThatDiedAreDropped)
{
    auto mortal = std::make_unique<RecordingDelegate>();
    make();
    streamer = AudioStreamer::initWithDict(track, mortal.get(), ports);
    streamer->start();
    while (requests() == 0) // without running events
        QThread::usleep(50);
    exchange().fail();
    while (streamer->errorCode() == ErrorCode::None || !streamer->isIdle())
        QThread::usleep(50);
    streamer.reset();
    mortal.reset();
    QCoreApplication::processEvents();
    expectNothingLeft();
}

TEST_F(StreamerLifetimeTest, WorksWithoutADelegate)
{
    make();
    streamer = AudioStreamer::initWithDict(track, nullptr, ports);
    startRequest();
    exchange().fail();
    EXPECT_TRUE(reaches(State::Initialized));
}

// The main thread, the server and the output do what they like, in any order; stop() ends it all the same.
TEST_F(StreamerLifetimeTest, AnythingInAnyOrderCanBeStopped)
{
    files.file.seekAnswer = {kAudioOk, 5000, false};
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const auto chance = [](std::mt19937& source, unsigned outOf) { return source() % outOf == 0; };
        make();
        const std::size_t before = requests();
        std::atomic<bool> done = false;
        std::thread server([&, source = std::mt19937(seed + 1000)]() mutable {
            while (!done) {
                const auto all = web.exchanges();
                if (all.size() > before) {
                    FakeHttpExchange& request = *all.back();
                    if (request.unreadBytes() < 20000) {
                        request.respond({{"Content-Length", "1000000"}});
                        request.send(FakeAudioFile::packets(static_cast<int>(source() % 20), packetBytes));
                    }
                    if (chance(source, 400))
                        request.end();
                    else if (chance(source, 800))
                        request.fail();
                }
                QThread::usleep(50);
            }
        });
        std::thread outputThread([&, source = std::mt19937(seed + 2000)]() mutable {
            while (!done) {
                if (const auto heard = output(); heard && !chance(source, 3))
                    heard->playBuffer();
                QThread::usleep(30);
            }
        });
        for (int i = 0; i < 300; ++i) {
            switch (random() % 9) {
            case 0:
                streamer->start();
                break;
            case 1:
                streamer->pause();
                break;
            case 2:
                if (chance(random, 10))
                    streamer->stop();
                break;
            case 3:
                if (chance(random, 4))
                    streamer->seekToTime(random() % 30);
                break;
            case 4:
                EXPECT_GE(streamer->progress(), 0);
                break;
            case 5:
                EXPECT_GE(streamer->duration(), 0);
                break;
            case 6:
                streamer->setVolume(0.5F);
                break;
            default:
                QCoreApplication::processEvents();
                QThread::usleep(random() % 300);
            }
        }
        streamer->stop();
        // An error may have kept it from waiting: the thread ends by itself then.
        EXPECT_TRUE(reaches(State::Initialized));
        done = true;
        server.join();
        outputThread.join();
        streamer.reset();
        expectNothingLeft();
    }
}

} // namespace
} // namespace zib
