// SPDX-License-Identifier: GPL-3.0-or-later
// A day of listening in short. Hunts for what each packet or each song leaves behind: memory, threads, files.
#include "tests/desktop/StreamedSong.h"

#include <QDir>

#include <malloc.h>

namespace zib::test {
namespace {

/// Bytes that are allocated, of all threads.
std::ptrdiff_t allocated()
{
    const auto info = mallinfo2();
    return static_cast<std::ptrdiff_t>(info.uordblks + info.hblkhd);
}

qsizetype entriesOf(const char* folder)
{
    return QDir(QLatin1String(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

/// Nothing is recorded, since that would need memory.
class LongPlayTest : public StreamedSongTest {
  protected:
    explicit LongPlayTest(double speed = kSpeed)
        : StreamedSongTest(std::make_unique<NullOutput>(speed))
    {
    }
    bool playsTo(double seconds)
    {
        return eventually([&] { return streamer->progress() >= seconds || streamer->isIdle(); }) &&
               !streamer->isIdle();
    }
};

class HourTest : public LongPlayTest {
  protected:
    HourTest()
        : LongPlayTest(1000)
    {
    }
};

TEST_F(HourTest, MemoryStaysLevelButForTheSong)
{
    const QByteArray part =
        encode({"", "/part.mp3", "-ac 1 -b:a 64k -write_xing 0 -id3v2_version 0", 576, 22050});
    start("/song.mp3", {.body = part.repeated(400)});
    // The streamer keeps what it reads. That doubles its room at 16 MiB, which are read by now, and at 32.
    ASSERT_TRUE(playsTo(2200));
    const auto before = allocated();
    for (double second = 2300; second <= 3400; second += 100)
        ASSERT_TRUE(playsTo(second));
    EXPECT_LT(allocated() - before, 512 * 1024);
    ASSERT_TRUE(ends());
    EXPECT_EQ(streamer->stopReason(), StopReason::StoppingEof);
}

TEST_F(LongPlayTest, ManySongsLeaveNothingBehind)
{
    const QByteArray file = encode(kConstant);
    server.serve("/song.mp3", {.body = file, .honoursRanges = true});
    constexpr auto stall = std::chrono::seconds(3); // not longer, since the test's server holds it out
    server.serve("/stalling.mp3", {.body = file, .stallAt = file.size() / 4, .stall = stall});
    server.serve("/late.mp3", {.body = file, .stallAt = 0, .stall = stall});
    server.serve("/short.mp3", {.body = file.first(file.size() / 4)});
    const auto reaches = [&](const char* path, State state) {
        make(server.url(path));
        streamer->start();
        return eventually([&] { return streamer->state() == state || streamer->isIdle(); });
    };
    const auto cycle = [&](int round) {
        if (round % 25 == 0) { // seldom, since it takes its time
            ASSERT_TRUE(reaches("/stalling.mp3", State::Buffering));
        } else if (round % 5 == 0) {
            ASSERT_TRUE(reaches("/short.mp3", State::Stopping));
        } else if (round % 5 == 1) {
            ASSERT_TRUE(reaches("/late.mp3", State::WaitingForData));
        } else {
            ASSERT_TRUE(reaches("/song.mp3", State::Playing));
        }
        if (round % 5 == 3)
            streamer->pause(); // the seek waits until it goes on
        if (round % 5 > 2)
            streamer->seekToTime(kSeekTo);
        if (round % 5 == 4) {
            ASSERT_TRUE(eventually([&] { return !streamer->isPlaying(); }));
        }
        streamer->stop();
        ASSERT_TRUE(streamer->isIdle());
        ASSERT_EQ(streamer->errorCode(), ErrorCode::None);
        streamer.reset();
        QCoreApplication::processEvents();
    };
    const auto threads = [] { return entriesOf("/proc/self/task"); };
    const auto files = [] { return entriesOf("/proc/self/fd"); };
    const auto threadsAtFirst = threads();
    for (int round = 0; round < 10; ++round)
        cycle(round); // what is made once and kept
    ASSERT_TRUE(eventually([&] { return threads() == threadsAtFirst; })) << threads();
    const auto filesAtFirst = files();
    const auto before = allocated();
    for (int round = 0; round < 500; ++round)
        cycle(round);
    EXPECT_TRUE(eventually([&] { return threads() == threadsAtFirst && files() == filesAtFirst; }))
        << threads() << " threads, " << threadsAtFirst << " at first; " << files() << " files, "
        << filesAtFirst << " at first";
    constexpr std::ptrdiff_t requestsKept = 500 * 4096; // by the test's server
    EXPECT_LT(allocated() - before, requestsKept);
}

} // namespace
} // namespace zib::test
