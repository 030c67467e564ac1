// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts failures that go unnoticed, are reported wrongly or more than once, or leave the streamer hanging.
#include "StreamerFixture.h"

namespace zib {
namespace {

using ErrorCode = AudioStreamer::ErrorCode;

constexpr auto failure = static_cast<AudioStatus>(fourCharacters("fail"));

class StreamerErrorsTest : public StreamerFixture {};

/// One way to fail: what is set up before the song begins and what provokes it then.
struct Failing {
    const char* name;
    ErrorCode code;
    QString log;
    std::function<void(FakeAudioFile&, FakeQueueFailures&)> prepare = nullptr;
    std::function<void(FakeHttpExchange&)> provokeByServer = nullptr;
    std::function<void(AudioStreamer&, FakeAudioQueues&)> provokeWhilePlaying = nullptr;
    bool endsByItself = true;

    friend void PrintTo(const Failing& failing, std::ostream* out) { *out << failing.name; }
};

class StreamerFailingTest : public StreamerFixture, public testing::WithParamInterface<Failing> {};

TEST_P(StreamerFailingTest, IsRaisedOnceLoggedAndTold)
{
    const Failing& failing = GetParam();
    const LogCapture log;
    if (failing.prepare)
        failing.prepare(files.file, queues.failures);
    startRequest();
    if (failing.provokeByServer) {
        failing.provokeByServer(exchange());
    } else {
        respondAndSend(FakeAudioFile::packets(packetsToPlay, packetBytes));
        if (failing.provokeWhilePlaying) {
            ASSERT_TRUE(reaches(State::Playing));
            ASSERT_TRUE(allRead());
            failing.provokeWhilePlaying(*streamer, queues);
        }
    }
    ASSERT_TRUE(eventually([&] { return streamer->errorCode() != ErrorCode::None; }));
    if (failing.endsByItself) {
        EXPECT_TRUE(reaches(State::Initialized));
    }
    streamer->stop();
    EXPECT_TRUE(streamer->isIdle());
    EXPECT_EQ(streamer->errorCode(), failing.code);
    EXPECT_TRUE(eventually([this] { return !delegate.notFound.isEmpty(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(delegate.notFound.size(), 1);
    EXPECT_TRUE(delegate.notFound.first().isSame(track));
    EXPECT_EQ(log.count(failing.log), 1) << qPrintable(log.lines().join(QLatin1Char('\n')));
    EXPECT_TRUE(alerts.shown.isEmpty());
    EXPECT_EQ(web.runLoopsAlive(), 0);
    EXPECT_EQ(files.alive(), 0);
    EXPECT_TRUE(!output() || output()->isDisposed());
}

auto fails(QueueCall call)
{
    return [call](FakeAudioFile&, FakeQueueFailures& failures) { failures.set(call, failure); };
}

auto failsNow(QueueCall call, std::function<void(AudioStreamer&, FakeAudioQueues&)> then)
{
    return [call, then = std::move(then)](AudioStreamer& streamer, FakeAudioQueues& queues) {
        queues.failures.set(call, failure);
        then(streamer, queues);
    };
}

void playAll(AudioStreamer& /*streamer*/, FakeAudioQueues& queues)
{
    queues.outputs().back()->playAll();
}

void sendShortSong(FakeHttpExchange& exchange)
{
    exchange.respond({});
    exchange.send(FakeAudioFile::packets(6, 1000));
    exchange.end();
}

QString withStatus(const char* text)
{
    return QLatin1String(text) + QStringLiteral(" err: fail 1717660012\n");
}

INSTANTIATE_TEST_SUITE_P(
    All, StreamerFailingTest,
    testing::Values(
        Failing{"FormatCannotBeRead", ErrorCode::FileStreamGetPropertyFailed,
                withStatus("File stream get property failed."),
                [](FakeAudioFile& file, FakeQueueFailures&) {
                    file.propertyFailures[AudioFileStreamProperty::DataFormat] = failure;
                }},
        Failing{"FormatListCannotBeRead", ErrorCode::FileStreamGetPropertyFailed,
                withStatus("File stream get property failed."),
                [](FakeAudioFile& file, FakeQueueFailures&) {
                    file.formatList.resize(1);
                    file.propertyFailures[AudioFileStreamProperty::FormatList] = failure;
                }},
        Failing{"DataOffsetCannotBeRead", ErrorCode::FileStreamGetPropertyFailed,
                withStatus("File stream get property failed."),
                [](FakeAudioFile& file, FakeQueueFailures&) {
                    file.dataOffset = 1;
                    file.propertyFailures[AudioFileStreamProperty::DataOffset] = failure;
                }},
        Failing{"ByteCountCannotBeRead", ErrorCode::FileStreamGetPropertyFailed,
                withStatus("File stream get property failed."),
                [](FakeAudioFile& file, FakeQueueFailures&) {
                    file.audioDataByteCount = 1;
                    file.propertyFailures[AudioFileStreamProperty::AudioDataByteCount] = failure;
                }},
        Failing{"ParsingFails", ErrorCode::FileStreamParseBytesFailed, withStatus("Parse bytes failed."),
                [](FakeAudioFile& file, FakeQueueFailures&) { file.parseStatus = failure; }},
        Failing{"ParserDoesNotOpen", ErrorCode::FileStreamOpenFailed,
                withStatus("Open audio file stream failed."),
                [](FakeAudioFile& file, FakeQueueFailures&) { file.openStatus = failure; }},
        Failing{"ParserDoesNotClose", ErrorCode::FileStreamCloseFailed,
                withStatus("Close audio file stream failed."),
                [](FakeAudioFile& file, FakeQueueFailures&) { file.closeStatus = failure; }, nullptr,
                [](AudioStreamer& streamer, FakeAudioQueues&) { streamer.stop(); }},
        Failing{"ConnectionBreaks", ErrorCode::AudioDataNotFound, QStringLiteral("No audio data found."),
                nullptr, [](FakeHttpExchange& exchange) { exchange.fail(); }},
        Failing{"ReadFails", ErrorCode::AudioDataNotFound, QStringLiteral("No audio data found."), nullptr,
                [](FakeHttpExchange& exchange) {
                    exchange.answerReadsWith(-1);
                    exchange.send("x");
                }},
        Failing{"NothingComes", ErrorCode::AudioDataNotFound, QStringLiteral("No audio data found."), nullptr,
                [](FakeHttpExchange& exchange) { exchange.end(); }},
        Failing{"TooLittleComes", ErrorCode::AudioDataNotFound, QStringLiteral("No audio data found."),
                nullptr,
                [](FakeHttpExchange& exchange) {
                    exchange.send(FakeAudioFile::packet(1000).left(999));
                    exchange.end();
                }},
        Failing{"EndsWithABufferJustHandedOver", ErrorCode::AudioDataNotFound,
                QStringLiteral("No audio data found."), nullptr,
                [](FakeHttpExchange& exchange) {
                    exchange.send(FakeAudioFile::packets(512, 4));
                    exchange.end();
                }},
        Failing{"NoOutput", ErrorCode::AudioQueueCreationFailed, withStatus("Audio queue creation failed."),
                fails(QueueCall::NewOutput)},
        Failing{"NoBuffers", ErrorCode::AudioQueueBufferAllocationFailed,
                withStatus("Audio buffer allocation failed."), fails(QueueCall::Allocate)},
        Failing{"NoEnqueueing", ErrorCode::AudioQueueEnqueueFailed,
                withStatus("Queueing of audio buffer failed."), fails(QueueCall::Enqueue)},
        Failing{"NoListener", ErrorCode::AudioQueueAddListenerFailed,
                withStatus("Audio queue add listener failed."), fails(QueueCall::AddListener)},
        Failing{"NoStart", ErrorCode::AudioQueueStartFailed, withStatus("Audio queue start failed."),
                fails(QueueCall::Start)},
        Failing{"NoStartAfterAPause", ErrorCode::AudioQueueStartFailed,
                withStatus("Audio queue start failed."), nullptr, nullptr,
                failsNow(QueueCall::Start,
                         [](AudioStreamer& streamer, FakeAudioQueues&) {
                             streamer.pause();
                             streamer.start();
                         })},
        Failing{
            "NoPause", ErrorCode::AudioQueuePauseFailed, withStatus("Audio queue dispose failed."), nullptr,
            nullptr,
            failsNow(QueueCall::Pause, [](AudioStreamer& streamer, FakeAudioQueues&) { streamer.pause(); })},
        // The streaming thread leaves its work behind then: it ends with stop().
        Failing{"NoPauseWhenStarved", ErrorCode::AudioQueuePauseFailed,
                withStatus("Audio queue dispose failed."), nullptr, nullptr,
                failsNow(QueueCall::Pause, playAll), false},
        Failing{"StrangeBuffer", ErrorCode::AudioQueueBufferMismatch,
                QStringLiteral("Audio queue buffers don't match."), nullptr, nullptr,
                [](AudioStreamer&, FakeAudioQueues& queues) {
                    queues.outputs().back()->completeUnknownBuffer();
                }},
        Failing{
            "NoDisposal", ErrorCode::AudioQueueDisposeFailed, withStatus("Audio queue dispose failed."),
            nullptr, nullptr,
            failsNow(QueueCall::Dispose, [](AudioStreamer& streamer, FakeAudioQueues&) { streamer.stop(); })},
        Failing{
            "NoStop", ErrorCode::AudioQueueStopFailed, withStatus("Audio queue stop failed."), nullptr,
            nullptr,
            failsNow(QueueCall::StopNow, [](AudioStreamer& streamer, FakeAudioQueues&) { streamer.stop(); })},
        Failing{"NoStopForASeek", ErrorCode::AudioQueueStopFailed, withStatus("Audio queue stop failed."),
                nullptr, nullptr,
                failsNow(QueueCall::StopNow,
                         [](AudioStreamer& streamer, FakeAudioQueues&) { streamer.seekToTime(1); })},
        Failing{"NoFlush", ErrorCode::AudioQueueFlushFailed, withStatus("Audio queue flush failed."),
                fails(QueueCall::Flush), sendShortSong},
        Failing{"NoStopAtTheEnd", ErrorCode::AudioQueueFlushFailed, withStatus("Audio queue flush failed."),
                fails(QueueCall::StopAtEnd), sendShortSong},
        Failing{
            "NoTime", ErrorCode::GetAudioTimeFailed, withStatus("Audio queue get current time failed."),
            nullptr, nullptr,
            failsNow(QueueCall::CurrentTime,
                     [](AudioStreamer& streamer, FakeAudioQueues&) { EXPECT_EQ(streamer.progress(), 0); })},
        Failing{"PacketLargerThanABuffer", ErrorCode::AudioBufferTooSmall,
                QStringLiteral("Audio packets are larger than kAQDefaultBufSize."),
                [](FakeAudioFile& file, FakeQueueFailures&) { file.packetSizeUpperBound = 999; }}),
    [](const testing::TestParamInfo<Failing>& test) { return std::string(test.param.name); });

TEST_F(StreamerErrorsTest, EveryCodeHasAText)
{
    const QString paused = AudioStreamer::stringForErrorCode(ErrorCode::AudioQueuePauseFailed);
    EXPECT_EQ(AudioStreamer::stringForErrorCode(ErrorCode::AudioQueueDisposeFailed), paused);
    for (const int code : {19, 22, -1})
        EXPECT_EQ(AudioStreamer::stringForErrorCode(ErrorCode(code)),
                  QStringLiteral("Audio playback failed"));
    EXPECT_EQ(AudioStreamer::stringForErrorCode(ErrorCode(1)), QStringLiteral("Network connection failed"));
}

TEST_F(StreamerErrorsTest, AStatusThatIsNoTextIsLoggedAsDots)
{
    const LogCapture log;
    files.file.parseStatus = -50;
    startRequest();
    respondAndSend("x");
    ASSERT_TRUE(reaches(State::Initialized));
    EXPECT_EQ(log.count(QStringLiteral("Parse bytes failed. err: .... -50\n")), 1);
}

TEST_F(StreamerErrorsTest, OnlyTheFirstErrorCounts)
{
    queues.failures.set(QueueCall::Start, failure);
    queues.failures.set(QueueCall::Dispose, -1);
    files.file.closeStatus = -1;
    startRequest();
    respondAndSend(FakeAudioFile::packets(packetsToPlay, packetBytes));
    ASSERT_TRUE(reaches(State::Initialized));
    EXPECT_EQ(streamer->errorCode(), ErrorCode::AudioQueueStartFailed);
    ASSERT_TRUE(eventually([this] { return !delegate.notFound.isEmpty(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(delegate.notFound.size(), 1);
}

TEST_F(StreamerErrorsTest, AnErrorWhilePlayingSilencesAtOnce)
{
    startPlaying();
    QCoreApplication::processEvents();
    notified.clear();
    exchange().fail();
    ASSERT_TRUE(reaches(State::Initialized));
    EXPECT_TRUE(output()->wasCalled(QueueCall::StopNow));
    EXPECT_EQ(streamer->stopReason(), StopReason::Error);
    ASSERT_TRUE(eventually([this] { return notified.size() == 3; })) << "Stopping, Stopped, Initialized";
}

TEST_F(StreamerErrorsTest, AThreadThatLeftItsWorkBehindLeavesTheSongStopped)
{
    startPlaying();
    queues.failures.set(QueueCall::Pause, failure);
    output()->playAll();
    ASSERT_TRUE(reaches(State::Stopped));
    ASSERT_TRUE(eventually([this] { return web.runLoopsAlive() == 0; }));
    EXPECT_TRUE(exchange().isClosed());
    EXPECT_TRUE(streamer->isFinishing());
    EXPECT_FALSE(output()->isDisposed());
    streamer.reset(); // without stop()
    EXPECT_TRUE(output()->isDisposed());
    EXPECT_EQ(files.alive(), 0);
}

TEST_F(StreamerErrorsTest, ARequestThatCannotBeMadeShowsAnAlert)
{
    for (const bool makesStream : {false, true}) {
        SCOPED_TRACE(makesStream);
        web.makesStreams = makesStream;
        web.opensStreams = false;
        alerts.shown.clear();
        make();
        streamer->start();
        ASSERT_TRUE(reaches(State::Initialized));
        ASSERT_TRUE(eventually([this] { return !alerts.shown.isEmpty(); }));
        EXPECT_EQ(alerts.shown.size(), 1);
        EXPECT_EQ(alerts.shown.first().messageText, QStringLiteral("File Error"));
        EXPECT_EQ(alerts.shown.first().informativeText,
                  QStringLiteral("Unable to configure network read stream."));
        EXPECT_EQ(alerts.shown.first().buttons, QStringList{QStringLiteral("OK")});
        EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
        EXPECT_TRUE(delegate.notFound.isEmpty());
    }
}

TEST_F(StreamerErrorsTest, ALocationThatIsNoAddressIsOnlyLogged)
{
    for (const QString& location : {QString(), QStringLiteral("http://music.example/with space.mp3")}) {
        const LogCapture log;
        make(location);
        streamer->start();
        ASSERT_TRUE(reaches(State::Initialized));
        EXPECT_EQ(log.count(QStringLiteral("Streamer failed creating URL from string: %1").arg(location)), 1);
        EXPECT_EQ(requests(), 0U);
        EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    }
}

} // namespace
} // namespace zib
