// SPDX-License-Identifier: GPL-3.0-or-later
// Songs from the network to a real sound server, whose buffer is longer than what a streamer keeps of a song
// of large samples. Hunts for songs that say they wait while they sound, and for gaps that nothing tells of.
#include "platform/desktop/CurlReadStreams.h"
#include "platform/desktop/DesktopAudioQueue.h"
#include "platform/desktop/DesktopSound.h"
#include "platform/desktop/parsers/AudioFileStreamParsers.h"
#include "tests/playback/StreamerFixture.h"
#include "tests/support/PrivatePulse.h"
#include "tests/support/TestHttpServer.h"
#include "tests/support/Tones.h"

#include <algorithm>

namespace zib::test {
namespace {

using State = AudioStreamer::State;

class StreamedToServerTest : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(ear.start()); }

    void start(const QByteArray& path, const TestReply& reply)
    {
        const QByteArray url = server.serve(path, reply);
        streamer = AudioStreamer::initWithDict(
            Record::make({{keys::Name, QStringLiteral("Song")}, {keys::Location, QString::fromLatin1(url)}}),
            &delegate, {web, parsers, queues, alerts, defaults});
        QObject::connect(streamer.get(), &AudioStreamer::ASStatusChangedNotification,
                         [this](AudioStreamer* changed) { states.push_back(changed->state()); });
        streamer->start();
    }

    PrivatePulse ear;
    DesktopSound sound;
    DesktopAudioQueues queues{sound};
    CurlReadStreams web;
    AudioFileStreamParsers parsers;
    FakeAlerts alerts;
    FakeUserDefaults defaults;
    RecordingDelegate delegate;
    TestHttpServer server;
    std::vector<State> states;
    std::unique_ptr<AudioStreamer> streamer;
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
    constexpr double kSeconds = 5;
    struct Case {
        const char* codec;
        int rate;
        qint64 bytesPerSecond;
    };
    for (const auto& [codec, rate, bytesPerSecond] :
         {Case{"pcm_s16le", 44100, 176400}, Case{"pcm_s24le", 96000, 576000}}) {
        SCOPED_TRACE(codec);
        const QByteArray file = waveFile(codec, rate, kSeconds);
        states.clear();
        ear.startRecording();
        // The rest comes when the streamer has no more, and the server has something left to play.
        start("/song.wav",
              {.body = file, .stallAt = 2 * bytesPerSecond, .stall = std::chrono::milliseconds(1850)});
        ASSERT_TRUE(eventually([this] { return streamer->isIdle(); }));
        const auto until = ear.recordedFrames() + kToneRate / 2;
        ASSERT_TRUE(eventually([&] { return ear.recordedFrames() >= until; }));
        const auto recorded = ear.stopRecording();
        EXPECT_EQ(std::ranges::count(states, State::Buffering), 0);
        EXPECT_EQ(streamer->stopReason(), AudioStreamer::StopReason::StoppingEof);

        const auto heard = sounding(recorded);
        EXPECT_NEAR(static_cast<double>(heard.size()), kSeconds * kToneRate, 0.05 * kToneRate);
        EXPECT_LT(longestSilence(heard).frames, 20U);
        EXPECT_NEAR(pitch(heard), 440, 0.1);
        for (std::size_t at = 0; at + kToneRate / 4 <= heard.size(); at += kToneRate / 4)
            EXPECT_NEAR(pitch(heard.subspan(at, kToneRate / 4)), 440, 0.5) << at;
    }
}

} // namespace
} // namespace zib::test
