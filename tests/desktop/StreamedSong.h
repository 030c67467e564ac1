// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/CurlReadStreams.h"
#include "platform/desktop/DesktopAudioQueue.h"
#include "platform/desktop/DesktopSound.h"
#include "platform/desktop/parsers/AudioFileStreamParsers.h"
#include "tests/playback/StreamerFixture.h"
#include "tests/support/SoundRecorder.h"
#include "tests/support/TestHttpServer.h"
#include "tests/support/Tones.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace zib::test {

inline constexpr double kSeconds = 12;
inline constexpr double kSpeed = 15;
inline constexpr std::ptrdiff_t kChannels = 2;

struct Format {
    const char* name;
    const char* path;
    const char* encoding;
    std::ptrdiff_t packetFrames;
};
inline constexpr Format kConstant{"ConstantRate", "/song.mp3", "-b:a 128k -f mp3", 1152};
inline constexpr Format kVariable{"VariableRate", "/song.mp3", "-q:a 4 -f mp3", 1152};
inline constexpr Format kWave{"Wave", "/song.wav", "-c:a pcm_s16le -f wav", 1};

/// Noise that is loud and soft by turns, so that a variable rate varies and no moment is like another.
inline QByteArray encode(const Format& format)
{
    QStringList arguments{QStringLiteral("-f"),
                          QStringLiteral("lavfi"),
                          QStringLiteral("-i"),
                          QStringLiteral("aevalsrc=exprs='0.6*(random(0)-0.5)*(0.05+gt(mod(t\\,1)\\,0.5))'"
                                         ":d=%1:s=44100")
                              .arg(kSeconds),
                          QStringLiteral("-ac"),
                          QString::number(kChannels)};
    arguments += QString::fromLatin1(format.encoding).split(QLatin1Char(' '));
    return ffmpeg(arguments << QStringLiteral("-"));
}

/// One channel as another program decodes the file, whole packets: nothing is trimmed at either end.
inline std::vector<float> decode(const QByteArray& file)
{
    const QByteArray bytes =
        ffmpeg({QStringLiteral("-flags2"), QStringLiteral("+skip_manual"), QStringLiteral("-i"),
                QStringLiteral("-"), QStringLiteral("-map_channel"), QStringLiteral("0.0.0"),
                QStringLiteral("-f"), QStringLiteral("f32le"), QStringLiteral("-")},
               file);
    std::vector<float> samples(static_cast<std::size_t>(bytes.size()) / sizeof(float));
    std::memcpy(samples.data(), bytes.constData(), samples.size() * sizeof(float));
    return samples;
}

/// How alike the samples are: 1 for the same.
inline double correlation(std::span<const float> a, std::span<const float> b)
{
    double product = 0;
    double squaresA = 0;
    double squaresB = 0;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        product += static_cast<double>(a[i]) * b[i];
        squaresA += static_cast<double>(a[i]) * a[i];
        squaresB += static_cast<double>(b[i]) * b[i];
    }
    return product / std::sqrt(std::max(squaresA * squaresB, 1e-12));
}

/// Where in the reference the heard samples begin: the place from `from` to `to` that is most like them. A
/// stretch some packets in is compared, since a decoder needs those to find its feet.
inline std::ptrdiff_t placeOf(std::span<const float> heard, std::span<const float> reference,
                              std::ptrdiff_t from, std::ptrdiff_t to)
{
    constexpr std::ptrdiff_t skipped = 4 * 1152;
    constexpr std::ptrdiff_t compared = 2048;
    if (std::ssize(heard) < skipped + compared)
        return to + 1;
    const auto probe = heard.subspan(skipped, compared);
    std::ptrdiff_t best = to + 1;
    double most = 0.5;
    from = std::max(from, -skipped);
    to = std::min(to, std::ssize(reference) - skipped - compared);
    for (std::ptrdiff_t place = from; place <= to; ++place) {
        const auto there = reference.subspan(static_cast<std::size_t>(place + skipped), compared);
        if (const double likeness = correlation(probe, there); likeness > most) {
            most = likeness;
            best = place;
        }
    }
    return best;
}

/// Expects the samples to be those of the reference in one piece. @return where they begin there
inline std::ptrdiff_t expectOnePiece(std::span<const float> heard, std::span<const float> reference,
                                     std::ptrdiff_t from, std::ptrdiff_t to)
{
    const std::ptrdiff_t place = placeOf(heard, reference, from, to);
    EXPECT_LE(place, to) << "it is nowhere there";
    if (place > to)
        return place;
    const auto a = heard.subspan(static_cast<std::size_t>(std::max<std::ptrdiff_t>(-place, 0)));
    const auto b = reference.subspan(static_cast<std::size_t>(std::max<std::ptrdiff_t>(place, 0)));
    EXPECT_GE(correlation(a, b), 0.999);
    return place;
}

/// Plays to the recorder, and notes where each stream began.
class NotedOutput : public NullOutput {
  public:
    NotedOutput(double speed, SoundRecorder& recorder, std::atomic<std::size_t>& lastBeginning)
        : NullOutput(speed, recorder.ear())
        , recorder_(recorder)
        , lastBeginning_(lastBeginning)
    {
    }
    std::unique_ptr<SoundStream> open(const SoundFormat& format, std::shared_ptr<WakeSignal> feeder) override
    {
        lastBeginning_ = recorder_.frames();
        return NullOutput::open(format, std::move(feeder));
    }

  private:
    SoundRecorder& recorder_;
    std::atomic<std::size_t>& lastBeginning_;
};

/// A streamer over the real web, parsers and queues, its sound sped up, recorded and not heard.
class StreamedSongTest : public testing::Test {
  protected:
    using State = AudioStreamer::State;
    using StopReason = AudioStreamer::StopReason;
    using ErrorCode = AudioStreamer::ErrorCode;

    /// @param speed how much faster than the clock the song is heard
    explicit StreamedSongTest(double speed = kSpeed)
        : speed_(speed)
    {
    }
    void make(const QByteArray& url)
    {
        streamer = AudioStreamer::initWithDict(
            Record::make({{keys::Name, QStringLiteral("Song")}, {keys::Location, QString::fromLatin1(url)}}),
            &delegate, {web, parsers, queues, alerts, defaults});
    }
    /// Streams what the server replies to that path.
    void start(const QByteArray& path, const TestReply& reply)
    {
        make(server.serve(path, reply));
        streamer->start();
    }
    bool ends()
    {
        return eventually([this] { return streamer->isIdle(); });
    }
    /// Waits until that much has been heard; also returns at the end.
    bool hears(double seconds)
    {
        return eventually([&] {
            return recorder.frames() >= static_cast<std::size_t>(seconds * kToneRate) || streamer->isIdle();
        });
    }
    void expectFailure(ErrorCode code)
    {
        ASSERT_TRUE(ends());
        EXPECT_EQ(streamer->errorCode(), code);
        EXPECT_TRUE(eventually([this] { return !delegate.notFound.isEmpty(); }));
        EXPECT_EQ(delegate.notFound.size(), 1);
    }
    void expectWhole(const QByteArray& file, std::ptrdiff_t packetFrames)
    {
        const auto heard = recorder.channel(0);
        const auto reference = decode(file);
        ASSERT_GT(std::ssize(reference), std::ptrdiff_t(kSeconds * kToneRate) - 1);
        EXPECT_LE(std::abs(std::ssize(heard) - std::ssize(reference)), packetFrames);
        expectOnePiece(heard, reference, -2 * 1152, 2 * 1152);
    }

    /// Seeks to the song's middle after two seconds and listens to the end.
    void seekToTheMiddleAndListen()
    {
        ASSERT_TRUE(hears(2));
        ASSERT_FALSE(streamer->isIdle());
        streamer->seekToTime(kSeconds / 2);
        ASSERT_TRUE(ends());
        EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    }
    /// Expects the sound to have gone on from the song's middle, and to its end, after a seek there.
    void expectSoundFromTheMiddle(const QByteArray& file)
    {
        const auto reference = decode(file);
        const auto heard = recorder.channel(0);
        const auto before = std::span(heard).first(lastBeginning);
        const auto after = std::span(heard).subspan(lastBeginning);
        expectOnePiece(before, reference, -2 * 1152, 2 * 1152);
        constexpr auto middle = std::ptrdiff_t(kSeconds / 2 * kToneRate);
        constexpr auto tenth = std::ptrdiff_t(kToneRate / 10);
        // First come what was at hand before the seek, and packets that lean on ones that were not fetched.
        constexpr std::ptrdiff_t lead = 12 * 1152;
        ASSERT_GT(std::ssize(after), lead);
        const auto settled = after.subspan(lead);
        const auto place =
            expectOnePiece(settled, reference, middle - kToneRate + lead, middle + kToneRate + lead) - lead;
        EXPECT_NEAR(static_cast<double>(place), middle, tenth);
        EXPECT_LE(std::abs(place + std::ssize(after) - std::ssize(reference)), 1152) << "to the end";
    }

  private:
    const double speed_;

  protected:
    SoundRecorder recorder;
    std::atomic<std::size_t> lastBeginning = 0;
    DesktopSound sound{std::make_unique<NotedOutput>(speed_, recorder, lastBeginning),
                       std::make_unique<NullOutput>(speed_)};
    DesktopAudioQueues queues{sound};
    CurlReadStreams web;
    AudioFileStreamParsers parsers;
    FakeAlerts alerts;
    FakeUserDefaults defaults;
    RecordingDelegate delegate;
    TestHttpServer server;
    std::unique_ptr<AudioStreamer> streamer;
};

} // namespace zib::test
