// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts a state machine that loses its way between the network, the output and the person: a song that never
// starts, never ends, ends too early, or says something else than it does.
#include "StreamerFixture.h"

namespace zib {
namespace {

class StreamerPlaybackTest : public StreamerFixture {};

TEST_F(StreamerPlaybackTest, PlaysASongFromRequestToIdle)
{
    startPlaying();
    EXPECT_EQ(output()->queuedBuffers(), 15U);
    EXPECT_TRUE(output()->isRunning());
    EXPECT_TRUE(streamer->isPlaying());
    EXPECT_FALSE(streamer->isWaiting());

    exchange().end();
    ASSERT_TRUE(eventually([this] { return output()->queuedBuffers() == 16; }));
    EXPECT_EQ(streamer->state(), State::Playing) << "a full ring is waited for";
    output()->playBuffer();
    ASSERT_TRUE(reaches(State::Stopping)); // heard to its end first
    EXPECT_EQ(streamer->stopReason(), StopReason::StoppingEof);
    EXPECT_TRUE(output()->wasCalled(QueueCall::Flush));
    EXPECT_FALSE(output()->wasCalled(QueueCall::StopNow));
    EXPECT_EQ(output()->queuedBuffers(), 15U);
    output()->playAll();
    ASSERT_TRUE(reaches(State::Initialized));

    eventually([this] { return notified.size() >= 7; });
    EXPECT_EQ(notified.size(), 7) << "one notification a change";
    EXPECT_EQ(notified.first(), State::StartingFileThread);
    EXPECT_EQ(notified.last(), State::Initialized);
    EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    EXPECT_TRUE(output()->isDisposed());
    EXPECT_TRUE(exchange().isClosed());
    EXPECT_EQ(web.runLoopsAlive(), 0);
    EXPECT_EQ(files.alive(), 0);
    EXPECT_TRUE(delegate.notFound.isEmpty());
    QByteArray heard;
    for (const auto& buffer : output()->everythingEnqueued())
        heard += buffer.bytes;
    EXPECT_EQ(heard, FakeAudioFile::packets(packetsToPlay, packetBytes));
}

TEST_F(StreamerPlaybackTest, TheRequestIsForTheLocationAndFollowsRedirects)
{
    struct Case {
        const char* location;
        bool acceptsAnyCertificate;
        AudioFileType hint;
    };
    const Case cases[] = {
        {"http://music.example/a%20b.mp3?x=1", false, AudioFileType::Mp3},
        {"https://music.example/a.m4a", true, AudioFileType::M4a},
        {"http://music.example/https/a.wav", true, AudioFileType::Wave},
        {"http://music.example/a.WAV", false, AudioFileType::Mp3},
        {"http://music.example/stream", false, AudioFileType::Mp3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.location);
        make(QLatin1String(c.location));
        const std::size_t before = requests();
        streamer->start();
        ASSERT_TRUE(eventually([&] { return requests() > before; }));
        EXPECT_EQ(exchange().request().url, c.location);
        EXPECT_TRUE(exchange().request().followRedirects);
        EXPECT_EQ(exchange().request().acceptAnyCertificate, c.acceptsAnyCertificate);
        EXPECT_TRUE(exchange().request().headers.isEmpty());
        respondAndSend(FakeAudioFile::packets(1, packetBytes));
        ASSERT_TRUE(eventually([this] { return files.alive() > 0; }));
        EXPECT_EQ(files.lastHint(), c.hint);
        streamer->stop();
    }
}

TEST_F(StreamerPlaybackTest, ExtensionsGiveHints)
{
    const std::pair<const char*, AudioFileType> cases[] = {
        {"mp3", AudioFileType::Mp3},   {"wav", AudioFileType::Wave},    {"aifc", AudioFileType::AifC},
        {"aiff", AudioFileType::Aiff}, {"m4a", AudioFileType::M4a},     {"mp4", AudioFileType::Mpeg4},
        {"caf", AudioFileType::Caf},   {"aac", AudioFileType::AdtsAac}, {"", AudioFileType::Mp3},
        {"AIFF", AudioFileType::Mp3},  {"ogg", AudioFileType::Mp3},
    };
    for (const auto& [extension, hint] : cases)
        EXPECT_EQ(AudioStreamer::hintForFileExtension(QString::fromLatin1(extension)), hint) << extension;
}

TEST_F(StreamerPlaybackTest, NothingPlaysBeforeFifteenBuffersAreQueued)
{
    startRequest();
    respondAndSend(FakeAudioFile::packets(packetsToPlay - 1, packetBytes));
    ASSERT_TRUE(allRead());
    ASSERT_TRUE(eventually([this] { return output() && output()->queuedBuffers() == 14; }));
    EXPECT_EQ(streamer->state(), State::WaitingForData);
    EXPECT_TRUE(streamer->isWaiting());
    exchange().send(FakeAudioFile::packets(1, packetBytes));
    EXPECT_TRUE(reaches(State::Playing));
}

TEST_F(StreamerPlaybackTest, AShortSongIsHeardEvenIfTheOutputSaysLateThatItRuns)
{
    queues.reportsRunning = false;
    startRequest();
    respondAndSend(FakeAudioFile::packets(6, packetBytes));
    exchange().end();
    ASSERT_TRUE(reaches(State::Stopping));
    output()->reportRunning(true);
    EXPECT_EQ(streamer->state(), State::Stopping);
    output()->playAll();
    EXPECT_TRUE(reaches(State::Initialized));
    EXPECT_EQ(output()->everythingEnqueued().size(), 2U);
}

TEST_F(StreamerPlaybackTest, WaitsForTheOutputToRun)
{
    queues.reportsRunning = false;
    startRequest();
    respondAndSend(FakeAudioFile::packets(packetsToPlay, packetBytes));
    ASSERT_TRUE(reaches(State::WaitingForQueueToStart));
    EXPECT_TRUE(streamer->isWaiting());
    std::thread outputThread([this] { output()->reportRunning(true); });
    outputThread.join();
    EXPECT_EQ(streamer->state(), State::Playing);
}

TEST_F(StreamerPlaybackTest, AStarvedSongIsPausedUntilFifteenBuffersAreBack)
{
    startPlaying();
    output()->playAll();
    ASSERT_TRUE(reaches(State::Buffering));
    EXPECT_TRUE(output()->isPaused());
    EXPECT_TRUE(streamer->isWaiting());
    exchange().send(FakeAudioFile::packets(13 * packetsPerBuffer, packetBytes));
    ASSERT_TRUE(eventually([this] { return output()->queuedBuffers() == 13; }));
    EXPECT_EQ(streamer->state(), State::Buffering);
    exchange().send(FakeAudioFile::packets(2 * packetsPerBuffer, packetBytes));
    EXPECT_TRUE(reaches(State::Playing));
    EXPECT_FALSE(output()->isPaused());
}

TEST_F(StreamerPlaybackTest, ASongThatStarvesBeforeItsEndIsStillHeardToTheEnd)
{
    startPlaying();
    output()->playAll();
    ASSERT_TRUE(reaches(State::Buffering));
    exchange().send(FakeAudioFile::packets(6, packetBytes));
    exchange().end();
    ASSERT_TRUE(reaches(State::Stopping));
    output()->playAll();
    EXPECT_TRUE(reaches(State::Initialized));
}

TEST_F(StreamerPlaybackTest, PauseAndStartToggle)
{
    startPlaying();
    QCoreApplication::processEvents();
    notified.clear();
    streamer->pause();
    EXPECT_TRUE(streamer->isPaused());
    EXPECT_TRUE(output()->isPaused());
    EXPECT_EQ(notified, QList<State>{State::Paused}) << "told at once, on the main thread";
    streamer->start();
    EXPECT_TRUE(streamer->isPlaying());
    streamer->pause();
    streamer->pause();
    EXPECT_TRUE(streamer->isPlaying());
    EXPECT_FALSE(output()->isPaused());
    EXPECT_EQ(notified.size(), 4);
}

TEST_F(StreamerPlaybackTest, AFullRingHoldsTheNetworkBackUntilABufferIsPlayed)
{
    startPlaying();
    exchange().send(FakeAudioFile::packets(200, packetBytes));
    ASSERT_TRUE(eventually([this] { return output()->queuedBuffers() == 16; }));
    const qsizetype left = exchange().unreadBytes();
    EXPECT_GT(left, 0);
    for (int i = 0; i < 8; ++i)
        output()->playBuffer();
    ASSERT_TRUE(eventually([this] { return output()->queuedBuffers() == 16; }));
    EXPECT_LT(exchange().unreadBytes(), left);
}

TEST_F(StreamerPlaybackTest, StartAndPauseAreIgnoredElsewhere)
{
    make();
    streamer->pause();
    EXPECT_TRUE(streamer->isIdle());
    startRequest();
    streamer->start();
    streamer->pause();
    EXPECT_EQ(streamer->state(), State::WaitingForData);
    EXPECT_EQ(requests(), 1U);
}

TEST_F(StreamerPlaybackTest, VolumeGoesToTheOutputOnceThereIsOne)
{
    make();
    streamer->setVolume(0.5F);
    startPlaying();
    EXPECT_EQ(output()->volume(), 1.0F);
    streamer->setVolume(0.25F);
    EXPECT_EQ(output()->volume(), 0.25F);

    const LogCapture log;
    queues.failures.set(QueueCall::SetVolume, -50);
    streamer->setVolume(0.5F);
    EXPECT_EQ(log.count(QStringLiteral("AudioQueueSetParameter returned -50 when setting the volume.")), 1);
    EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
}

TEST_F(StreamerPlaybackTest, KeepsTheResponseHeadersUntilTheEnd)
{
    startRequest();
    EXPECT_TRUE(streamer->httpHeaders().isEmpty());
    exchange().respond({{"content-length", "4321"}, {"icy-name", "Radio"}});
    exchange().send(FakeAudioFile::packets(2, packetBytes));
    ASSERT_TRUE(eventually([this] { return !streamer->httpHeaders().isEmpty(); }));
    EXPECT_EQ(streamer->httpHeaders().value("icy-name"), "Radio");
    streamer->stop();
    EXPECT_TRUE(streamer->httpHeaders().isEmpty());
}

TEST_F(StreamerPlaybackTest, AnUnexpectedReportOfTheOutputIsOnlyLogged)
{
    startPlaying();
    const LogCapture log;
    output()->reportRunning(true);
    EXPECT_EQ(log.count(QStringLiteral("AudioQueue changed state in unexpected way.")), 1);
    EXPECT_EQ(streamer->state(), State::Playing);
}

TEST_F(StreamerPlaybackTest, StartsOnTheMainThreadOnly)
{
    make();
    const LogCapture log;
    std::thread([this] { streamer->start(); }).join();
    EXPECT_EQ(log.count(QStringLiteral("Playback can only be started from the main thread.")), 1);
    EXPECT_TRUE(streamer->isIdle());
    EXPECT_EQ(requests(), 0U);
}

TEST_F(StreamerPlaybackTest, NoStreamerWithoutARecord)
{
    const LogCapture log;
    EXPECT_EQ(AudioStreamer::initWithDict(Record(), &delegate, ports), nullptr);
    EXPECT_EQ(log.count(QStringLiteral("attempting to create streamer from empty dict!")), 1);
}

} // namespace
} // namespace zib
