// SPDX-License-Identifier: GPL-3.0-or-later
// What is heard at a real sound server: the wrong latency, a pause that plays on, a volume that comes late, a
// time that runs ahead of the sound, and a server that goes away in the middle of a song.
#include "platform/desktop/DesktopAudioQueue.h"
#include "platform/desktop/DesktopMovie.h"
#include "platform/desktop/DesktopSound.h"
#include "tests/support/PrivatePulse.h"
#include "tests/support/QueueListener.h"
#include "tests/support/Tones.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <algorithm>

namespace zib::test {
namespace {

/// When a stream starts or is rewritten, the server takes back silence that the recorder has got already: so
/// much may be missing there, in frames, though a listener would hear it.
constexpr double kUnrecorded = 0.05 * kToneRate;

class PulseOutputTest : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(server.start()); }

    std::unique_ptr<AudioQueue> open(const AudioStreamDescription& format)
    {
        AudioStatus status = kAudioOk;
        auto queue = queues.newOutput(format, listener, status);
        EXPECT_TRUE(queue);
        if (queue)
            queue->addIsRunningListener();
        return queue;
    }
    static double timeOf(AudioQueue& queue)
    {
        double time = -1;
        return queue.currentTime(time) == kAudioOk ? time : -1;
    }
    /// @return whether the queue's time came there
    static bool playUntil(AudioQueue& queue, double frames)
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 60000) {
            if (timeOf(queue) >= frames)
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        return false;
    }
    void recordFor(double seconds)
    {
        const auto until = server.recordedFrames() + static_cast<std::size_t>(seconds * kToneRate);
        while (server.recordedFrames() < until)
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }

    PrivatePulse server;
    DesktopSound sound;
    DesktopAudioQueues queues{sound};
    std::shared_ptr<QueueListener> listener = std::make_shared<QueueListener>();
};

TEST_F(PulseOutputTest, ASongIsHeardWholeAndItsEndToldAfterwards)
{
    const auto packets = mp3Packets(440, 2);
    for (const bool mpeg : {false, true}) {
        SCOPED_TRACE(mpeg ? "MPEG audio" : "PCM");
        auto queue = open(mpeg ? mp3Format() : pcmFormat());
        server.startRecording();
        if (mpeg)
            ASSERT_EQ(enqueuePackets(*queue, packets), kAudioOk);
        else
            ASSERT_EQ(enqueue(*queue, pcm16(tone(440, 2), 2)), kAudioOk);
        ASSERT_EQ(queue->start(), kAudioOk);
        ASSERT_EQ(queue->flush(), kAudioOk);
        ASSERT_EQ(queue->stop(false), kAudioOk);
        ASSERT_TRUE(listener->waitForEnd());
        recordFor(0.5);
        const auto recorded = server.stopRecording();
        const auto heard = sounding(recorded);
        // An encoder puts up to three frames of 1152 before and after.
        EXPECT_NEAR(static_cast<double>(heard.size()), 2 * kToneRate, kUnrecorded + (mpeg ? 3 * 1152 : 0));
        const auto middle = heard.subspan(heard.size() / 8, heard.size() * 3 / 4);
        EXPECT_NEAR(pitch(middle), 440, 0.3) << "a gap or a repeat would change it";
        EXPECT_NEAR(loudness(middle), 0.354, 0.02); // this encoder takes a twentieth off
    }
}

TEST_F(PulseOutputTest, APauseIsSilentSoonAndLosesNothing)
{
    auto queue = open(pcmFormat());
    ASSERT_EQ(enqueue(*queue, pcm16(tone(440, 3), 2)), kAudioOk);
    server.startRecording();
    ASSERT_EQ(queue->start(), kAudioOk);
    ASSERT_TRUE(playUntil(*queue, kToneRate));
    ASSERT_EQ(queue->pause(), kAudioOk);
    const double paused = timeOf(*queue);
    recordFor(1);
    EXPECT_EQ(timeOf(*queue), paused);
    ASSERT_EQ(queue->start(), kAudioOk);
    ASSERT_EQ(queue->stop(false), kAudioOk);
    ASSERT_TRUE(listener->waitForEnd());
    recordFor(0.5);
    const auto recorded = server.stopRecording();
    const auto heard = sounding(recorded);

    const Silence silence = longestSilence(heard);
    EXPECT_GT(silence.frames, 0.5 * kToneRate);
    EXPECT_NEAR(static_cast<double>(silence.begin), paused, 0.08 * kToneRate) << "how soon it was heard";
    EXPECT_NEAR(static_cast<double>(heard.size() - silence.frames), 3 * kToneRate, 2 * kUnrecorded);
    EXPECT_NEAR(pitch(heard.subspan(silence.begin + silence.frames + 100)), 440, 1);
}

TEST_F(PulseOutputTest, AVolumeIsHeardAtOnce)
{
    auto queue = open(pcmFormat());
    ASSERT_EQ(queue->setVolume(0.5F), kAudioOk);
    ASSERT_EQ(enqueue(*queue, pcm16(tone(440, 3), 2)), kAudioOk);
    server.startRecording();
    ASSERT_EQ(queue->start(), kAudioOk);
    ASSERT_TRUE(playUntil(*queue, kToneRate));
    ASSERT_EQ(queue->setVolume(1), kAudioOk);
    const double changed = timeOf(*queue);
    ASSERT_EQ(queue->stop(false), kAudioOk);
    ASSERT_TRUE(listener->waitForEnd());
    recordFor(0.5);
    const auto recorded = server.stopRecording();
    const auto heard = sounding(recorded);
    ASSERT_NEAR(static_cast<double>(heard.size()), 3 * kToneRate, 2 * kUnrecorded)
        << "nothing is lost or repeated";
    EXPECT_NEAR(pitch(heard), 440, 5);
    EXPECT_NEAR(loudness(heard.first(kToneRate / 2)), 0.354 / 2, 0.005);
    EXPECT_NEAR(loudness(heard.last(kToneRate)), 0.354, 0.005);
    const auto louder = std::ranges::find_if(heard, [](float sample) { return sample > 0.3F; });
    EXPECT_NEAR(static_cast<double>(louder - heard.begin()), changed, 0.1 * kToneRate);
}

TEST_F(PulseOutputTest, TheTimeIsThatOfTheSound)
{
    auto queue = open(pcmFormat());
    ASSERT_EQ(enqueue(*queue, pcm16(tone(440, 60), 2)), kAudioOk);
    ASSERT_EQ(queue->start(), kAudioOk);
    ASSERT_TRUE(playUntil(*queue, kToneRate / 4.0));
    QElapsedTimer clock;
    clock.start();
    const double from = timeOf(*queue);
    double last = from;
    while (clock.elapsed() < 2000) {
        const double now = timeOf(*queue);
        ASSERT_GE(now, last);
        ASSERT_LT(now - from, clock.elapsed() / 1000.0 * kToneRate + 0.1 * kToneRate);
        last = now;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    EXPECT_NEAR(timeOf(*queue) - from, static_cast<double>(clock.elapsed()) / 1000 * kToneRate,
                0.1 * kToneRate);
    ASSERT_EQ(queue->stop(true), kAudioOk);
    EXPECT_EQ(timeOf(*queue), -1);
    EXPECT_EQ(listener->completed(), 1U);
    ASSERT_EQ(enqueue(*queue, pcm16(tone(440, 60), 2)), kAudioOk);
    ASSERT_EQ(queue->start(), kAudioOk);
    EXPECT_LT(timeOf(*queue), 0.5 * kToneRate) << "a seek begins anew";
    EXPECT_TRUE(playUntil(*queue, 0.1 * kToneRate));
}

TEST_F(PulseOutputTest, WithoutAServerASongTakesItsTime)
{
    server.kill();
    QSignalSpy told(&sound, &DesktopSound::noSoundServer);
    sound.warmUp();
    for (int song = 0; song < 2; ++song) {
        auto queue = open(pcmFormat());
        ASSERT_EQ(enqueue(*queue, pcm16(tone(440, 1), 2)), kAudioOk);
        QElapsedTimer timer;
        timer.start();
        ASSERT_EQ(queue->start(), kAudioOk);
        ASSERT_EQ(queue->stop(false), kAudioOk);
        ASSERT_TRUE(listener->waitForEnd());
        EXPECT_GE(timer.elapsed(), 900);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(told.size(), 1) << "said once";
    EXPECT_FALSE(told.front().front().toString().isEmpty());
}

TEST_F(PulseOutputTest, AMovieIsHeard)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.flac"));
    ffmpeg({QStringLiteral("-f"), QStringLiteral("s16le"), QStringLiteral("-ar"), QStringLiteral("44100"),
            QStringLiteral("-ac"), QStringLiteral("2"), QStringLiteral("-i"), QStringLiteral("-"), path},
           pcm16(tone(440, 1), 2));
    DesktopMovies movies(sound);
    QSignalSpy ended(&movies, &Movies::movieDidEnd);
    QString error;
    const auto movie = movies.open(path, error);
    ASSERT_TRUE(movie) << error.toStdString();
    server.startRecording();
    movie->play();
    ASSERT_TRUE(ended.wait(30000));
    recordFor(0.5);
    const auto recorded = server.stopRecording();
    const auto heard = sounding(recorded);
    EXPECT_NEAR(static_cast<double>(heard.size()), kToneRate, kUnrecorded);
    EXPECT_NEAR(pitch(heard), 440, 1);
}

} // namespace
} // namespace zib::test
