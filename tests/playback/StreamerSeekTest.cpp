// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts wrong arithmetic on bytes and seconds, and a seek that loses the song on the way.
#include "StreamerFixture.h"

namespace zib {
namespace {

class StreamerSeekTest : public StreamerFixture {
  protected:
    static constexpr qint64 length = 1000000;
    static constexpr double packetDuration = 1152 / 44100.0;
    static constexpr double bitRate = packetBytes * 8 / packetDuration; // as measured
    static constexpr double songDuration = length / (bitRate / 8);

    /// Seeks and waits for the request that it leads to.
    void seek(double seconds)
    {
        const std::size_t before = requests();
        streamer->seekToTime(seconds);
        ASSERT_TRUE(eventually([&] { return requests() == before + 1; }));
        ASSERT_TRUE(reaches(State::WaitingForData));
    }
    void playAgain()
    {
        exchange().send(FakeAudioFile::packets(packetsToPlay, packetBytes));
        ASSERT_TRUE(reaches(State::Playing));
    }
};

TEST_F(StreamerSeekTest, MeasuresBitRateAndDuration)
{
    make();
    EXPECT_EQ(streamer->duration(), 0);
    EXPECT_EQ(streamer->calculatedBitRate(), 0);
    startRequest();
    respondAndSend(FakeAudioFile::packets(50, packetBytes), length);
    ASSERT_TRUE(eventually([this] { return output() && output()->queuedBuffers() == 12; }));
    // Too few packets to tell: all bits of the bit rate are set, and the duration is next to nothing.
    EXPECT_EQ(streamer->bitRate(), 4294967295U);
    EXPECT_EQ(streamer->calculatedBitRate(), 4294967295.0);
    EXPECT_NEAR(streamer->duration(), 0, 0.01);

    exchange().send(FakeAudioFile::packets(1, packetBytes));
    ASSERT_TRUE(eventually([this] { return streamer->calculatedBitRate() != 4294967295.0; }));
    EXPECT_DOUBLE_EQ(streamer->calculatedBitRate(), bitRate);
    EXPECT_DOUBLE_EQ(streamer->duration(), songDuration);
}

TEST_F(StreamerSeekTest, AveragesPacketSizesInWholeBytesAndStopsCounting)
{
    startRequest();
    exchange().respond({{"Content-Length", "1000000"}});
    std::atomic<bool> done = false;
    std::thread outputThread([&] {
        while (!done) {
            if (const auto heard = output())
                heard->playAll();
            std::this_thread::yield();
        }
    });
    exchange().send(FakeAudioFile::packets(2500, 100) + FakeAudioFile::packets(2500, 101));
    ASSERT_TRUE(allRead());
    ASSERT_TRUE(eventually([this] { return streamer->calculatedBitRate() == 100 * 8 / packetDuration; }));
    exchange().send(FakeAudioFile::packets(5000, 200)); // packet 5001 and on count no more
    ASSERT_TRUE(allRead());
    done = true;
    outputThread.join();
    EXPECT_DOUBLE_EQ(streamer->calculatedBitRate(), 100 * 8 / packetDuration);
}

TEST_F(StreamerSeekTest, ABitRateThatWasSetStandsUntilMeasured)
{
    make();
    streamer->setBitRate(128000);
    startRequest();
    respondAndSend(FakeAudioFile::packets(10, packetBytes), length);
    ASSERT_TRUE(eventually([this] { return output() && output()->queuedBuffers() == 2; }));
    EXPECT_EQ(streamer->bitRate(), 128000U);
    EXPECT_DOUBLE_EQ(streamer->duration(), length / 16000.0);
}

TEST_F(StreamerSeekTest, AsksForTheBytesFromTheExactPacket)
{
    files.file.seekAnswer = {kAudioOk, 499000, false};
    startPlaying(length);
    const int discontinuities = files.discontinuities();
    const double target = songDuration / 2; // byte 500000
    seek(target);
    EXPECT_EQ(exchange().requestHeader("Range"), "bytes=499000-1000000");
    EXPECT_TRUE(web.exchanges().front()->isClosed());
    exchange().respond({{"Content-Length", "501000"}});
    playAgain();
    EXPECT_EQ(files.discontinuities(), discontinuities + 1);
    output()->setFramesHeard(44100 * 2);
    EXPECT_NEAR(streamer->progress(), target - 1000 * 8 / bitRate + 2, 1e-9);
    EXPECT_DOUBLE_EQ(streamer->duration(), songDuration) << "the length is of the file, not of its rest";
    EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
}

TEST_F(StreamerSeekTest, NothingOfTheOldPlaceIsHeardAtTheNew)
{
    startPlaying(length); // a packet is at hand that fills no buffer
    const std::size_t enqueued = output()->everythingEnqueued().size();
    seek(songDuration / 2);
    const QByteArray packet = FakeAudioFile::packet(packetBytes, 'n');
    exchange().send(packet.repeated(packetsToPlay));
    ASSERT_TRUE(reaches(State::Playing));
    const auto buffer = output()->everythingEnqueued().at(enqueued);
    EXPECT_TRUE(buffer.bytes == packet.repeated(packetsPerBuffer));
    EXPECT_EQ(buffer.packets.size(), std::size_t{packetsPerBuffer});
}

TEST_F(StreamerSeekTest, ComputesThePlaceWhereTheParserOnlyEstimatesFailsOrTellsOneBeyondTheFile)
{
    for (const auto& answer :
         {FakeAudioFile::SeekAnswer{kAudioOk, 1, true}, {-1, 1, false}, {kAudioOk, length, false}}) {
        SCOPED_TRACE(answer.status);
        files.file.seekAnswer = answer;
        streamer.reset();
        startPlaying(length);
        seek(songDuration / 4 + 1e-6);
        EXPECT_EQ(exchange().requestHeader("Range"), "bytes=250000-1000000");
        playAgain();
        output()->setFramesHeard(0);
        EXPECT_NEAR(streamer->progress(), songDuration / 4, 1e-3);
        EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    }
}

TEST_F(StreamerSeekTest, CountsFromTheAudioData)
{
    files.file.dataOffset = 2000;
    files.file.seekAnswer = {kAudioOk, 0, true};
    startRequest();
    respondAndSend(QByteArray(2000, 'h') + FakeAudioFile::packets(packetsToPlay, packetBytes), length + 2000);
    ASSERT_TRUE(reaches(State::Playing));
    EXPECT_DOUBLE_EQ(streamer->duration(), songDuration);
    seek(0);
    EXPECT_EQ(exchange().requestHeader("Range"), "bytes=2000-1002000");
}

TEST_F(StreamerSeekTest, StaysTwoBuffersBeforeTheEnd)
{
    files.file.seekAnswer = {kAudioOk, 0, true};
    for (const double target : {songDuration, songDuration * 1000, 1e300}) {
        SCOPED_TRACE(target);
        if (!streamer)
            startPlaying(length);
        seek(target);
        EXPECT_EQ(exchange().requestHeader("Range"),
                  "bytes=" + QByteArray::number(length - 2 * 4096) + "-1000000");
    }
}

TEST_F(StreamerSeekTest, AtTheVeryBeginningAsksForTheWholeFile)
{
    files.file.seekAnswer = {kAudioOk, 0, false};
    startPlaying(length);
    output()->setFramesHeard(44100);
    EXPECT_DOUBLE_EQ(streamer->progress(), 1);
    seek(0);
    EXPECT_EQ(exchange().requestHeader("Range"), "");
    EXPECT_DOUBLE_EQ(streamer->progress(), 1) << "the last one known, while nothing plays";
    playAgain();
    output()->setFramesHeard(0);
    EXPECT_DOUBLE_EQ(streamer->progress(), 0);
}

TEST_F(StreamerSeekTest, ATimeBeforeTheBeginningShowsAsZero)
{
    files.file.seekAnswer = {kAudioOk, 0, true};
    startPlaying(length);
    seek(-10);
    playAgain();
    output()->setFramesHeard(44100);
    EXPECT_EQ(streamer->progress(), 0);
}

TEST_F(StreamerSeekTest, DoesNothingWhileLengthOrBitRateAreUnknown)
{
    const QHash<QByteArray, QByteArray> lengths[] = {
        {}, {{"Content-Length", "0"}}, {{"Content-Length", "-5"}}, {{"Content-Length", "many"}}};
    for (const auto& headers : lengths) {
        streamer.reset();
        startRequest();
        const std::size_t before = requests();
        exchange().respond(headers);
        streamer->seekToTime(5); // no bit rate yet
        exchange().send(FakeAudioFile::packets(packetsToPlay, packetBytes));
        ASSERT_TRUE(reaches(State::Playing));
        EXPECT_EQ(streamer->duration(), 0);
        streamer->seekToTime(5);
        exchange().send(FakeAudioFile::packets(4, packetBytes));
        ASSERT_TRUE(eventually([this] { return output()->queuedBuffers() == 16; }));
        EXPECT_EQ(requests(), before);
        EXPECT_TRUE(streamer->isPlaying());
        streamer->stop();
    }
}

TEST_F(StreamerSeekTest, TheLastOfSeveralSeeksHolds)
{
    files.file.seekAnswer = {kAudioOk, 0, true};
    startPlaying(length);
    for (int i = 1; i <= 10; ++i)
        streamer->seekToTime(songDuration * i / 20 + 1e-6);
    ASSERT_TRUE(eventually([this] { return exchange().requestHeader("Range").startsWith("bytes=500000-"); }));
    playAgain();
    EXPECT_TRUE(streamer->isPlaying());
}

TEST_F(StreamerSeekTest, ASongThatIsDrainingCanBeTakenBack)
{
    files.file.seekAnswer = {kAudioOk, 0, false};
    startPlaying(length);
    output()->playBuffer();
    exchange().end();
    ASSERT_TRUE(reaches(State::Stopping));
    seek(0);
    playAgain();
    EXPECT_FALSE(streamer->isFinishing());
}

TEST_F(StreamerSeekTest, ARestWithoutAudioIsTheSongsEndWhenItCameWhole)
{
    files.file.seekAnswer = {kAudioOk, 0, true};
    const qint64 rest = 2 * 4096;
    const struct {
        const char* name;
        qint64 bytes;
        StopReason reason;
    } cases[] = {
        {"whole", rest, StopReason::StoppingEof},
        {"with a byte missing", rest - 1, StopReason::Temporary},
    };
    for (const auto& [name, bytes, reason] : cases) {
        SCOPED_TRACE(name);
        streamer.reset();
        startPlaying(length);
        seek(songDuration);
        exchange().send(QByteArray(bytes, 'h'));
        exchange().end();
        ASSERT_TRUE(reaches(State::Initialized));
        const bool ended = reason == StopReason::StoppingEof;
        EXPECT_EQ(streamer->stopReason(), reason);
        EXPECT_EQ(streamer->errorCode(), ended ? ErrorCode::None : ErrorCode::AudioDataNotFound);
    }
}

TEST_F(StreamerSeekTest, ARequestThatCannotBeMadeAgainEndsTheSong)
{
    startPlaying(length);
    web.opensStreams = false;
    streamer->seekToTime(3);
    ASSERT_TRUE(reaches(State::Initialized));
    ASSERT_TRUE(eventually([this] { return !alerts.shown.isEmpty(); }));
    EXPECT_EQ(alerts.shown.first().messageText, QStringLiteral("File Error"));
}

TEST_F(StreamerSeekTest, ProgressStandsWhileTheOutputDoesNotRun)
{
    startPlaying(length);
    output()->setFramesHeard(88200);
    EXPECT_DOUBLE_EQ(streamer->progress(), 2);
    queues.failures.set(QueueCall::CurrentTime, kAudioQueueStopped);
    output()->setFramesHeard(132300);
    EXPECT_DOUBLE_EQ(streamer->progress(), 2);
    EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    queues.failures.set(QueueCall::CurrentTime, kAudioOk);
    streamer->pause();
    EXPECT_DOUBLE_EQ(streamer->progress(), 3);
    streamer->stop();
    EXPECT_DOUBLE_EQ(streamer->progress(), 3);
}

} // namespace
} // namespace zib
