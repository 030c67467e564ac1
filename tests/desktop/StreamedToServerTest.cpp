// SPDX-License-Identifier: GPL-3.0-or-later
// Songs from the network to a real sound server. Hunts for songs that say they wait while they sound, for
// gaps that nothing tells of, and for a server or a device that takes the program along when it goes or
// hangs.
#include "platform/desktop/PulseOutput.h"
#include "tests/desktop/StreamedSong.h"
#include "tests/support/PrivatePulse.h"

#include <QElapsedTimer>

#include <functional>

namespace zib::test {
namespace {

/// Made first, so that what connects finds it.
struct PrivateServer {
    PrivatePulse ear;
};

class StreamedToServerTest : protected PrivateServer, public StreamedSongTest {
  protected:
    StreamedToServerTest()
        : StreamedSongTest(std::make_unique<PulseOutput>())
    {
    }
    void SetUp() override { ASSERT_TRUE(ear.start()); }

    void recordFor(double seconds)
    {
        const auto until = ear.recordedFrames() + static_cast<std::size_t>(seconds * kToneRate);
        ASSERT_TRUE(eventually([&] { return ear.recordedFrames() >= until; }));
    }
    bool playsTo(double seconds)
    {
        return eventually([&] { return streamer->progress() >= seconds || streamer->isIdle(); }) &&
               !streamer->isIdle();
    }
    void expectStopsAtOnce()
    {
        QElapsedTimer clock;
        clock.start();
        streamer->stop();
        EXPECT_LT(clock.elapsed(), 500);
        EXPECT_TRUE(streamer->isIdle());
        EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    }
};

/// The tone as a WAVE file of that shape, in two channels.
QByteArray waveFile(const char* codec, int rate, double seconds)
{
    return ffmpeg({QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
                   QStringLiteral("aevalsrc=exprs='0.5*sin(2*PI*440*t)|0.5*sin(2*PI*440*t)':d=%1:s=%2")
                       .arg(seconds)
                       .arg(rate),
                   QStringLiteral("-c:a"), QLatin1String(codec), QStringLiteral("-f"), QStringLiteral("wav"),
                   QStringLiteral("-")});
}

TEST_F(StreamedToServerTest, LargeSamplesPlayWithoutAWaitOrAGap)
{
    constexpr double seconds = 4;
    struct Case {
        const char* codec;
        int rate;
        qint64 bytesPerSecond;
    };
    for (const auto& [codec, rate, bytesPerSecond] :
         {Case{"pcm_s16le", 44100, 176400}, Case{"pcm_s24le", 96000, 576000}}) {
        SCOPED_TRACE(codec);
        const QByteArray file = waveFile(codec, rate, seconds);
        ear.startRecording();
        // The rest comes when the streamer has no more, and the server has something left to play.
        start("/song.wav",
              {.body = file, .stallAt = 2 * bytesPerSecond, .stall = std::chrono::milliseconds(1850)});
        ASSERT_TRUE(ends());
        recordFor(0.5);
        const auto recorded = ear.stopRecording();
        EXPECT_EQ(states.count(State::Buffering), 0);
        EXPECT_EQ(streamer->stopReason(), StopReason::StoppingEof);

        const auto heard = sounding(recorded);
        EXPECT_NEAR(static_cast<double>(heard.size()), seconds * kToneRate, 0.05 * kToneRate);
        EXPECT_LT(longestSilence(heard).frames, 20U);
        EXPECT_NEAR(pitch(heard), 440, 0.1);
        for (std::size_t at = 0; at + kToneRate / 4 <= heard.size(); at += kToneRate / 4)
            EXPECT_NEAR(pitch(heard.subspan(at, kToneRate / 4)), 440, 0.5) << at;
    }
}

/// What may happen to the server while a song plays, and what brings it back.
struct Disturbance {
    const char* name;
    std::function<void(PrivatePulse&)> begin;
    std::function<void(PrivatePulse&)> end = [](PrivatePulse&) {};

    friend void PrintTo(const Disturbance& disturbance, std::ostream* out) { *out << disturbance.name; }
};

void control(const PrivatePulse& server, const char* arguments)
{
    server.control(QString::fromLatin1(arguments).split(QLatin1Char(' ')));
}

void makeOtherDefault(const PrivatePulse& server)
{
    control(server, "load-module module-null-sink sink_name=other rate=48000");
    control(server, "set-default-sink other");
}

const Disturbance kDisturbances[] = {
    {"Killed", [](PrivatePulse& server) { server.kill(); },
     [](PrivatePulse& server) { EXPECT_TRUE(server.start()); }},
    {"Frozen", [](PrivatePulse& server) { server.freeze(); }, [](PrivatePulse& server) { server.thaw(); }},
    {"Suspended", [](PrivatePulse& server) { control(server, "suspend-sink ear 1"); },
     [](PrivatePulse& server) { control(server, "suspend-sink ear 0"); }},
    {"OtherDefault", makeOtherDefault},
    {"DeviceGone",
     [](PrivatePulse& server) {
         makeOtherDefault(server);
         control(server, "unload-module 1");
     }},
    {"OnlyDeviceGone", [](PrivatePulse& server) { control(server, "unload-module 1"); },
     [](PrivatePulse& server) { makeOtherDefault(server); }},
};

class DisturbedServerTest : public StreamedToServerTest, public testing::WithParamInterface<Disturbance> {
  protected:
    /// What the main thread does of itself, for so long; none of it may wait for the server.
    void useFor(double seconds)
    {
        QElapsedTimer whole;
        whole.start();
        while (static_cast<double>(whole.elapsed()) < seconds * 1000) {
            QElapsedTimer clock;
            clock.start();
            streamer->setVolume(static_cast<float>(whole.elapsed() % 200) / 200);
            EXPECT_GE(streamer->progress(), 0);
            QCoreApplication::processEvents();
            EXPECT_LT(clock.elapsed(), 500);
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        streamer->setVolume(1);
    }
};
INSTANTIATE_TEST_SUITE_P(All, DisturbedServerTest, testing::ValuesIn(kDisturbances),
                         [](const auto& disturbance) { return std::string(disturbance.param.name); });

TEST_P(DisturbedServerTest, SongGoesOnAndStopsAtOnce)
{
    start("/song.wav", {.body = waveFile("pcm_s16le", kToneRate, 60)});
    ASSERT_TRUE(playsTo(1));
    GetParam().begin(ear);
    useFor(1);
    GetParam().end(ear);
    ASSERT_TRUE(playsTo(streamer->progress() + 1));
    EXPECT_TRUE(streamer->isPlaying());
    expectStopsAtOnce();
}

TEST_P(DisturbedServerTest, SongStopsAtOnceMeanwhileAndAnotherPlaysThen)
{
    const QByteArray file = waveFile("pcm_s16le", kToneRate, 60);
    start("/song.wav", {.body = file});
    ASSERT_TRUE(playsTo(1));
    GetParam().begin(ear);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    expectStopsAtOnce();
    start("/song.wav", {.body = file});
    useFor(0.5);
    expectStopsAtOnce();
    GetParam().end(ear);
    start("/song.wav", {.body = file});
    ASSERT_TRUE(playsTo(0.5));
    expectStopsAtOnce();
}

} // namespace
} // namespace zib::test
