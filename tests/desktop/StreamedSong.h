// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/CurlReadStreams.h"
#include "platform/desktop/DesktopAudioQueue.h"
#include "platform/desktop/DesktopSound.h"
#include "platform/desktop/parsers/AudioFileStreamParsers.h"
#include "platform/desktop/parsers/FittedFileStreams.h"
#include "tests/playback/StreamerFixture.h"
#include "tests/support/SoundRecorder.h"
#include "tests/support/TestHttpServer.h"
#include "tests/support/Tones.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace zib::test {

inline constexpr double kSeconds = 9;
inline constexpr double kSeekFrom = 4; // by then the rate has been measured in every format
inline constexpr double kSeekTo = 6.5;
inline constexpr double kSpeed = 15;

struct Format {
    const char* name;
    const char* path;
    const char* encoding;
    std::ptrdiff_t packetFrames;
    int rate = kToneRate;   ///< at which it is heard
    double seekError = 0.1; ///< seconds: more where bytes tell little about time
    int stalls = 3;         ///< that show: fewer where much is gathered before it goes on, 0 where all is

    friend void PrintTo(const Format& format, std::ostream* out) { *out << format.name; }
};
inline constexpr Format kConstant{"Mp3", "/song.mp3", "-b:a 128k", 1152};
inline constexpr Format kWave{"Wave", "/song.wav", "-c:a pcm_s16le", 1};

/// Noise that is loud and soft by turns, so that a variable rate varies and no moment is like another; stereo
/// unless the format says otherwise.
inline QByteArray encode(const Format& format)
{
    const QTemporaryDir folder;
    const QString path = folder.path() + QLatin1String(format.path);
    QStringList arguments{QStringLiteral("-f"),
                          QStringLiteral("lavfi"),
                          QStringLiteral("-i"),
                          QStringLiteral("aevalsrc=exprs='0.6*(random(0)-0.5)*(0.05+gt(mod(t\\,1)\\,0.5))'"
                                         ":d=%1:s=%2")
                              .arg(kSeconds)
                              .arg(format.rate),
                          QStringLiteral("-ac"),
                          QStringLiteral("2")};
    arguments += QString::fromLatin1(format.encoding).split(QLatin1Char(' '));
    ffmpeg(arguments << path);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << format.name;
    return file.readAll();
}

/// One channel as another program decodes the file, whole packets: nothing is trimmed at either end.
inline std::vector<float> decode(const QByteArray& song)
{
    QTemporaryFile file;
    EXPECT_TRUE(file.open() && file.write(song) == song.size() && file.flush());
    QStringList arguments;
    if (song.mid(4, 4) == "ftyp")
        arguments << QStringLiteral("-ignore_editlist") << QStringLiteral("1");
    arguments << QStringLiteral("-flags2") << QStringLiteral("+skip_manual") << QStringLiteral("-i")
              << file.fileName() << QStringLiteral("-map_channel") << QStringLiteral("0.0.0")
              << QStringLiteral("-f") << QStringLiteral("f32le") << QStringLiteral("-");
    const QByteArray bytes = ffmpeg(arguments);
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
    constexpr std::ptrdiff_t compared = 1024;
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
        : sound(std::make_unique<NotedOutput>(speed, recorder, lastBeginning),
                std::make_unique<NullOutput>(speed))
    {
    }
    /// To be heard there, or in silence while it is not there.
    explicit StreamedSongTest(std::unique_ptr<SoundOutput> output)
        : sound(std::move(output), std::make_unique<NullOutput>())
    {
    }
    void make(const QByteArray& url)
    {
        streamer = AudioStreamer::initWithDict(
            Record::make({{keys::Name, QStringLiteral("Song")}, {keys::Location, QString::fromLatin1(url)}}),
            &delegate, {web, fileStreams, queues, alerts, defaults});
        states.clear();
        QObject::connect(streamer.get(), &AudioStreamer::ASStatusChangedNotification, streamer.get(),
                         [this](AudioStreamer* changed) { states.append(changed->state()); });
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
            const auto frames = static_cast<double>(recorder.frames());
            return (frames > 0 && frames >= seconds * recorder.format().rate) || streamer->isIdle();
        });
    }
    void expectFailure(ErrorCode code)
    {
        ASSERT_TRUE(ends());
        EXPECT_EQ(streamer->errorCode(), code);
        EXPECT_TRUE(eventually([this] { return !delegate.notFound.isEmpty(); }));
        EXPECT_EQ(delegate.notFound.size(), 1);
    }
    void expectWhole(const QByteArray& file, const Format& format)
    {
        EXPECT_EQ(recorder.format().rate, format.rate);
        const auto heard = recorder.channel(0);
        const auto reference = decode(file);
        ASSERT_GT(std::ssize(reference), std::ptrdiff_t(kSeconds * format.rate) - 1);
        EXPECT_LE(std::abs(std::ssize(heard) - std::ssize(reference)), format.packetFrames);
        expectOnePiece(heard, reference, -2 * 1152, 2 * 1152);
    }

    /// Seeks, from kSeekFrom to kSeekTo, and listens to the end.
    void seekAndListen()
    {
        ASSERT_TRUE(hears(kSeekFrom));
        ASSERT_FALSE(streamer->isIdle());
        streamer->seekToTime(kSeekTo);
        ASSERT_TRUE(ends());
        EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    }
    /// Expects the sound to have gone on from there, and to the song's end.
    void expectSoundAfterTheSeek(const QByteArray& file, const Format& format)
    {
        const auto reference = decode(file);
        const auto heard = recorder.channel(0);
        const auto before = std::span(heard).first(lastBeginning);
        const auto after = std::span(heard).subspan(lastBeginning);
        expectOnePiece(before, reference, -2 * 1152, 2 * 1152);
        const auto target = std::ptrdiff_t(kSeekTo * format.rate);
        const auto near = std::ptrdiff_t(format.seekError * format.rate);
        // First come packets that lean on ones that were not fetched; MP3 may lean on the last 511 bytes.
        const bool mp3 = QByteArrayView(format.path).endsWith(".mp3");
        const std::ptrdiff_t lead = (mp3 ? 6 : 2) * format.packetFrames;
        ASSERT_GT(std::ssize(after), lead);
        const auto settled = after.subspan(static_cast<std::size_t>(lead));
        const auto place =
            expectOnePiece(settled, reference, target - near + lead, target + near + lead) - lead;
        EXPECT_LE(std::abs(place + std::ssize(after) - std::ssize(reference)), format.packetFrames)
            << "to the end";
    }

    SoundRecorder recorder;
    std::atomic<std::size_t> lastBeginning = 0;
    DesktopSound sound;
    DesktopAudioQueues queues{sound};
    CurlReadStreams web;
    AudioFileStreamParsers parsers;
    FittedFileStreams fileStreams{parsers};
    FakeAlerts alerts;
    FakeUserDefaults defaults;
    RecordingDelegate delegate;
    TestHttpServer server;
    QList<State> states; ///< of the streamer, as each change was told
    std::unique_ptr<AudioStreamer> streamer;
};

} // namespace zib::test
