// SPDX-License-Identifier: GPL-3.0-or-later
// Songs from the network to a real sound server. Hunts for songs that say they wait while they sound, for
// gaps that nothing tells of, and for a server or a device that takes the program along when it goes or
// hangs.
#include "platform/desktop/PulseOutput.h"
#include "tests/desktop/AudioFiles.h"
#include "tests/desktop/StreamedSong.h"
#include "tests/support/PrivatePulse.h"

#include <QElapsedTimer>

#include <functional>
#include <iterator>
#include <numbers>

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
    constexpr double seconds = 3;
    struct Case {
        const char* codec;
        int rate;
    };
    for (const auto& [codec, rate] : {Case{"pcm_s16le", 44100}, Case{"pcm_s24le", 96000}}) {
        SCOPED_TRACE(codec);
        const QByteArray file = waveFile(codec, rate, seconds);
        ear.startRecording();
        start("/song.wav", {.body = file});
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

constexpr double kSweepFrom = 300; // hertz
constexpr double kSweep = 100;     // hertz a second

/// A rising tone, whose pitch tells the second of the song.
QByteArray sweepFile()
{
    constexpr int seconds = 40;
    std::vector<float> samples(seconds * std::size_t{kToneRate});
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double time = static_cast<double>(i) / kToneRate;
        samples[i] = static_cast<float>(
            0.5 * std::sin(2 * std::numbers::pi * (kSweepFrom * time + kSweep / 2 * time * time)));
    }
    return audiofiles::waveFile(audiofiles::chunk("fmt ", audiofiles::waveFormat(1, 2, kToneRate, 16)) +
                                audiofiles::chunk("data", pcm16(samples, 2)));
}

/// Which seconds of the sweep sound in the recording, one for each stretch of that length without a break.
constexpr std::size_t kStretch = kToneRate / 20;
std::vector<double> secondsHeard(std::span<const float> recorded)
{
    std::vector<double> seconds;
    for (std::size_t at = 0; at + kStretch <= recorded.size(); at += kStretch) {
        const auto stretch = recorded.subspan(at, kStretch);
        if (longestSilence(stretch).frames < 10)
            seconds.push_back((pitch(stretch) - kSweepFrom) / kSweep);
    }
    return seconds;
}

/// What may happen to the server while a song plays, and what brings it back.
struct Disturbance {
    const char* name;
    double mostLost; ///< seconds of the song that may not be heard
    std::function<void(PrivatePulse&)> begin;
    std::function<void(PrivatePulse&)> end = [](PrivatePulse&) {};

    friend void PrintTo(const Disturbance& disturbance, std::ostream* out) { *out << disturbance.name; }
};

void control(const PrivatePulse& server, const char* arguments)
{
    server.control(QString::fromLatin1(arguments).split(QLatin1Char(' ')));
}

const QString kOther = QStringLiteral("other");

void makeOtherDefault(PrivatePulse& server)
{
    control(server, "load-module module-null-sink sink_name=other rate=48000");
    server.startRecording(kOther);
    control(server, "set-default-sink other");
}

/// So much of a song a device may hold, which is gone with it.
constexpr double kDevice = 0.25;
/// The song goes on without being heard, until the server is looked for again.
constexpr double kUnheard = 3;

const Disturbance kDisturbances[] = {
    {"Killed", kUnheard, [](PrivatePulse& server) { server.kill(); },
     [](PrivatePulse& server) {
         EXPECT_TRUE(server.start());
         server.startRecording();
     }},
    {"Frozen", 0.1, [](PrivatePulse& server) { server.freeze(); },
     [](PrivatePulse& server) { server.thaw(); }},
    {"Suspended", 0.1, [](PrivatePulse& server) { control(server, "suspend-sink ear 1"); },
     [](PrivatePulse& server) { control(server, "suspend-sink ear 0"); }},
    {"OtherDefault", kDevice, makeOtherDefault},
    {"DeviceGone", kDevice,
     [](PrivatePulse& server) {
         makeOtherDefault(server);
         control(server, "unload-module 1");
     }},
    {"OnlyDeviceGone", kUnheard, [](PrivatePulse& server) { control(server, "unload-module 1"); },
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
            streamer->setVolume(0.5F + static_cast<float>(whole.elapsed() % 200) / 400);
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
    ear.startRecording();
    start("/song.wav", {.body = sweepFile()});
    ASSERT_TRUE(playsTo(1));
    GetParam().begin(ear);
    useFor(1);
    GetParam().end(ear);
    const double goesOn = streamer->progress();
    ASSERT_TRUE(playsTo(goesOn + GetParam().mostLost + 1));
    EXPECT_TRUE(streamer->isPlaying());
    expectStopsAtOnce();

    // The first recorder is moved with the song, but not at the same moment.
    auto heard = secondsHeard(ear.stopRecording());
    std::ranges::copy(secondsHeard(ear.stopRecording(kOther)), std::back_inserter(heard));
    std::ranges::sort(heard);
    ASSERT_FALSE(heard.empty());
    EXPECT_GT(heard.back(), goesOn + 0.5);
    constexpr double step = double{kStretch} / kToneRate;
    for (std::size_t i = 1; i < heard.size(); ++i)
        EXPECT_LT(heard[i] - heard[i - 1], step + GetParam().mostLost + step) << heard[i];
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
