// SPDX-License-Identifier: GPL-3.0-or-later
// Songs from servers and links that misbehave. Hunts for a song that breaks off, repeats or goes on at the
// wrong place where the listener could have been spared it, and for a failure that nobody is told of.
#include "tests/desktop/StreamedSong.h"

#include <QElapsedTimer>

#include <functional>
#include <limits>

namespace zib::test {
namespace {

constexpr qint64 kSongBytesPerSecond = 128'000 / 8;

/// A fault that a listener need not notice, or only by a wait.
struct Endured {
    const char* name;
    std::function<void(TestReply&)> spoil;
    bool runsDry = false; ///< so that the streamer must tell

    friend void PrintTo(const Endured& fault, std::ostream* out) { *out << fault.name; }
};

class EnduredFaultTest : public StreamedSongTest, public testing::WithParamInterface<Endured> {};
INSTANTIATE_TEST_SUITE_P(
    All, EnduredFaultTest,
    testing::Values(
        Endured{"LinkHalfFasterThanTheSong",
                [](TestReply& reply) { reply.limit(qint64(1.5 * kSpeed) * kSongBytesPerSecond); }},
        Endured{"LinkSlowerThanTheSong",
                [](TestReply& reply) { reply.limit(qint64(kSpeed) * kSongBytesPerSecond / 2); }, true},
        Endured{"Stall",
                [](TestReply& reply) {
                    reply.stallAt = reply.body.size() / 2;
                    reply.stall = std::chrono::milliseconds(1500);
                },
                true},
        Endured{"Bursts",
                [](TestReply& reply) {
                    reply.pieceBytes = 3 * kSongBytesPerSecond;
                    reply.piecePause = std::chrono::milliseconds(200);
                }},
        Endured{"PiecesOfFewBytes",
                [](TestReply& reply) {
                    reply.pieceBytes = 97;
                    reply.piecePause = std::chrono::milliseconds(0);
                }},
        Endured{"NoLength", [](TestReply& reply) { reply.announcedLength = TestReply::kNoLength; }}),
    [](const auto& fault) { return std::string(fault.param.name); });

TEST_P(EnduredFaultTest, SongIsHeardWhole)
{
    const QByteArray file = encode(kConstant);
    TestReply reply{.body = file};
    GetParam().spoil(reply);
    start(kConstant.path, reply);
    ASSERT_TRUE(ends());
    EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    EXPECT_EQ(streamer->stopReason(), StopReason::StoppingEof);
    EXPECT_TRUE(delegate.notFound.isEmpty());
    expectWhole(file, kConstant);
    if (GetParam().runsDry) {
        const auto dry = states.indexOf(State::Buffering);
        EXPECT_GT(dry, states.indexOf(State::Playing));
        EXPECT_GT(states.indexOf(State::Playing, dry), dry);
    }
}

class StreamFaultsTest : public StreamedSongTest {};

TEST_F(StreamFaultsTest, ASeekInASongOfUnknownLengthDoesNothing)
{
    const QByteArray file = encode({"", kConstant.path, "-b:a 128k -write_xing 0", 0});
    start(kConstant.path, {.body = file, .announcedLength = TestReply::kNoLength});
    seekAndListen();
    EXPECT_EQ(streamer->duration(), 0);
    EXPECT_EQ(server.requests().size(), 1U);
    expectWhole(file, kConstant);
}

TEST_F(StreamFaultsTest, ALengthTooSmallEndsTheSongThere)
{
    const QByteArray file = encode(kConstant);
    start(kConstant.path, {.body = file, .announcedLength = file.size() / 2});
    ASSERT_TRUE(ends());
    EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    EXPECT_EQ(streamer->stopReason(), StopReason::StoppingEof);
    const auto heard = recorder.channel(0);
    EXPECT_NEAR(static_cast<double>(heard.size()), kSeconds / 2 * kToneRate, 4 * 1152);
    expectOnePiece(heard, decode(file), -2 * 1152, 2 * 1152);
}

TEST_F(StreamFaultsTest, FailuresAreToldOfOnce)
{
    const QByteArray file = encode(kConstant);
    QByteArray noise(200'000, Qt::Uninitialized);
    quint32 seed = 1;
    for (char& byte : noise)
        byte = static_cast<char>((seed = seed * 1664525 + 1013904223) >> 24);
    const QByteArray page = "<!DOCTYPE html><html><body>" + QByteArray("Sign in. ").repeated(5000);
    const struct {
        const char* name;
        const char* path;
        TestReply reply;
        bool heard = false;
        ErrorCode code = ErrorCode::AudioDataNotFound;
    } cases[] = {
        {"a length too large", "/song.mp3", {.body = file, .announcedLength = file.size() + 1}, true},
        {"a page in place of a song", "/song.mp3", {.body = page}},
        {"a page in place of a wave", "/song.wav", {.body = page}},
        {"a page in place of a file of boxes", "/song.m4a", {.body = page}},
        {"noise", "/song.mp3", {.body = noise}, false, ErrorCode::FileStreamParseBytesFailed},
        {"server error", "/song.mp3", {.body = file, .status = 503}},
        {"empty", "/song.mp3", {.body = ""}},
        {"a wave's head alone", "/song.wav", {.body = encode(kWave).first(44)}},
        {"never answers", "/song.mp3", {.neverAnswers = true}},
        {"stalls for good", "/song.mp3", {.body = file, .stallAt = file.size() / 2}, true},
    };
    web = CurlReadStreams(std::chrono::milliseconds(1000));
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        delegate.notFound.clear();
        const auto before = recorder.frames();
        start(one.path, one.reply);
        expectFailure(one.code);
        EXPECT_EQ(recorder.frames() > before, one.heard);
        EXPECT_TRUE(alerts.shown.isEmpty());
    }
}

/// In real time, so that a state lasts until it is seen.
class StopTest : public StreamedSongTest {
  protected:
    StopTest()
        : StreamedSongTest(1)
    {
    }
};

TEST_F(StopTest, TakesNoTimeInAnyState)
{
    const QByteArray file = encode(kConstant);
    TestReply stalling{.body = file, .stallAt = file.size() / 8};
    const struct {
        State state;
        TestReply reply;
    } cases[] = {
        {State::StartingFileThread, {.body = file}},
        {State::WaitingForData, {.neverAnswers = true}},
        {State::Playing, {.body = file}},
        {State::Buffering, stalling},
        {State::Paused, {.body = file}},
        {State::Stopping, {.body = file.first(file.size() / 8)}},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(testing::PrintToString(one.state));
        // The quickest of some: a loaded machine may hold one up.
        qint64 quickest = std::numeric_limits<qint64>::max();
        for (int i = 0; i < 3; ++i) {
            start(kConstant.path, one.reply);
            if (one.state == State::Paused) {
                ASSERT_TRUE(eventually([this] { return streamer->isPlaying(); }));
                streamer->pause();
            }
            ASSERT_TRUE(eventually([&] { return streamer->state() == one.state; }));
            QElapsedTimer clock;
            clock.start();
            streamer->stop();
            quickest = std::min(quickest, clock.elapsed());
            EXPECT_TRUE(streamer->isIdle());
            EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
            if (one.state != State::Stopping) {
                EXPECT_EQ(streamer->stopReason(), StopReason::UserAction);
            }
        }
        EXPECT_LE(quickest, 500);
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(delegate.notFound.isEmpty());
}

} // namespace
} // namespace zib::test
