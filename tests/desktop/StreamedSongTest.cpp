// SPDX-License-Identifier: GPL-3.0-or-later
// A song's whole way from the network to the ear. Hunts for what no part shows alone: sound lost or repeated
// where two parts meet, a seek that lands elsewhere, an end that nobody tells of, threads left behind.
#include "tests/desktop/StreamedSong.h"

#include <QDir>
#include <QElapsedTimer>

#include <limits>

namespace zib::test {
namespace {

class WholeSongTest : public StreamedSongTest, public testing::WithParamInterface<Format> {};
INSTANTIATE_TEST_SUITE_P(Formats, WholeSongTest, testing::Values(kConstant, kVariable, kWave),
                         [](const auto& format) { return std::string(format.param.name); });

TEST_P(WholeSongTest, IsHeardToItsEnd)
{
    const QByteArray file = encode(GetParam());
    start(GetParam().path, {.body = file});
    ASSERT_TRUE(ends());
    EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    EXPECT_EQ(streamer->stopReason(), StopReason::StoppingEof);
    expectWhole(file, GetParam().packetFrames);
}

TEST_P(WholeSongTest, LosesNothingByPauses)
{
    const QByteArray file = encode(GetParam());
    start(GetParam().path, {.body = file});
    int pauses = 0;
    for (double second = 2; second < kSeconds - 2; second += 2) {
        ASSERT_TRUE(hears(second));
        ASSERT_TRUE(eventually([this] { return streamer->isPlaying() || streamer->isIdle(); }));
        streamer->pause();
        if (!streamer->isPaused())
            continue; // it has just run dry, or has been read to its end
        ++pauses;
        const auto heard = recorder.frames();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        EXPECT_EQ(recorder.frames(), heard);
        streamer->start();
    }
    EXPECT_GE(pauses, 1);
    ASSERT_TRUE(ends());
    expectWhole(file, GetParam().packetFrames);
}

/// Where a second lies in a file of a variable rate is an estimate.
class SeekInSongTest : public WholeSongTest {};
INSTANTIATE_TEST_SUITE_P(Formats, SeekInSongTest, testing::Values(kConstant, kWave),
                         [](const auto& format) { return std::string(format.param.name); });

TEST_P(SeekInSongTest, GoesOnFromTheMiddleAfterASeek)
{
    const QByteArray file = encode(GetParam());
    start(GetParam().path, {.body = file, .honoursRanges = true});
    seekToTheMiddleAndListen();
    EXPECT_EQ(server.requests().size(), 2U);
    expectSoundFromTheMiddle(file);
}

TEST_F(StreamedSongTest, EndsWithAnErrorWhereTheConnectionDoes)
{
    const QByteArray file = encode(kConstant);
    start(kConstant.path, {.body = file, .closeAt = file.size() / 2});
    expectFailure(ErrorCode::AudioDataNotFound);
    const auto heard = recorder.channel(0);
    EXPECT_LT(heard.size(), kSeconds * kToneRate * 0.55);
    expectOnePiece(heard, decode(file), -2 * 1152, 2 * 1152);
}

TEST_F(StreamedSongTest, TellsOfAnswersWithoutASong)
{
    const struct {
        const char* name;
        TestReply reply;
    } cases[] = {
        {"not found, with a page", {.body = "<html><body>Not found</body></html>", .status = 404}},
        {"empty", {.body = ""}},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        delegate.notFound.clear();
        start("/song.mp3", one.reply);
        expectFailure(ErrorCode::AudioDataNotFound);
        EXPECT_EQ(recorder.frames(), 0U);
    }
}

TEST_F(StreamedSongTest, StopsAtOnceWhenTheServerNeverAnswers)
{
    // The quickest of some: a loaded machine may hold one up, but waiting for the server would hold up all.
    qint64 quickest = std::numeric_limits<qint64>::max();
    for (int i = 0; i < 5; ++i) {
        const auto requests = server.requests().size();
        start("/song.mp3", {.neverAnswers = true});
        ASSERT_TRUE(eventually([&] { return server.requests().size() > requests; }));
        QElapsedTimer clock;
        clock.start();
        streamer->stop();
        quickest = std::min(quickest, clock.elapsed());
        EXPECT_TRUE(streamer->isIdle());
    }
    EXPECT_LE(quickest, 500);
    EXPECT_TRUE(delegate.notFound.isEmpty());
}

qsizetype entriesOf(const char* folder)
{
    return QDir(QLatin1String(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

TEST_F(StreamedSongTest, LeavesNothingBehind)
{
    const QByteArray file = encode(kConstant);
    const auto cycle = [&](int round) {
        start(kConstant.path, {.body = file});
        if (round % 3 > 0) {
            ASSERT_TRUE(eventually([&] {
                return streamer->state() == (round % 3 == 1 ? State::WaitingForData : State::Playing) ||
                       streamer->isPlaying();
            }));
        }
        streamer->stop();
        ASSERT_TRUE(streamer->isIdle());
        streamer.reset();
    };
    const auto threads = [] { return entriesOf("/proc/self/task"); };
    const auto files = [] { return entriesOf("/proc/self/fd"); };
    const auto threadsAtFirst = threads();
    cycle(2); // what is made once and kept
    ASSERT_TRUE(eventually([&] { return threads() == threadsAtFirst; })) << threads();
    const auto filesAtFirst = files();
    for (int round = 0; round < 50; ++round)
        cycle(round);
    EXPECT_TRUE(eventually([&] { return threads() == threadsAtFirst && files() == filesAtFirst; }))
        << threads() << " threads, " << threadsAtFirst << " at first; " << files() << " files, "
        << filesAtFirst << " at first";
}

} // namespace
} // namespace zib::test
