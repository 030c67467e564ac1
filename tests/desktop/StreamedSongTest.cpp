// SPDX-License-Identifier: GPL-3.0-or-later
// A song's whole way from the network to the ear. Hunts for what no part shows alone: sound lost or repeated
// where two parts meet, a seek that lands elsewhere, an end that nobody tells of, threads left behind.
#include "platform/desktop/CurlReadStreams.h"
#include "platform/desktop/DesktopAudioQueue.h"
#include "platform/desktop/DesktopSound.h"
#include "platform/desktop/parsers/AudioFileStreamParsers.h"
#include "tests/playback/StreamerFixture.h"
#include "tests/support/SoundRecorder.h"
#include "tests/support/TestHttpServer.h"
#include "tests/support/Tones.h"

#include <QDir>
#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace zib::test {
namespace {

using State = AudioStreamer::State;
using ErrorCode = AudioStreamer::ErrorCode;

constexpr double kSeconds = 12;
constexpr double kSpeed = 15;
constexpr std::ptrdiff_t kChannels = 2;

struct Format {
    const char* name;
    const char* path;
    const char* encoding;
    std::ptrdiff_t packetFrames;
};
constexpr Format kConstant{"ConstantRate", "/song.mp3", "-b:a 128k -f mp3", 1152};
constexpr Format kVariable{"VariableRate", "/song.mp3", "-q:a 4 -f mp3", 1152};
constexpr Format kWave{"Wave", "/song.wav", "-c:a pcm_s16le -f wav", 1};

/// Noise that is loud and soft by turns, so that a variable rate varies and no moment is like another.
QByteArray encode(const Format& format)
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
std::vector<float> decode(const QByteArray& file)
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
double correlation(std::span<const float> a, std::span<const float> b)
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
std::ptrdiff_t placeOf(std::span<const float> heard, std::span<const float> reference, std::ptrdiff_t from,
                       std::ptrdiff_t to)
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
std::ptrdiff_t expectOnePiece(std::span<const float> heard, std::span<const float> reference,
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
    NotedOutput(SoundRecorder& recorder, std::atomic<std::size_t>& lastBeginning)
        : NullOutput(kSpeed, recorder.ear())
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

class StreamedSongTest : public testing::Test {
  protected:
    void make(const QByteArray& url)
    {
        streamer = AudioStreamer::initWithDict(
            Record::make({{keys::Name, QStringLiteral("Song")}, {keys::Location, QString::fromLatin1(url)}}),
            &delegate, {web, parsers, queues, alerts, defaults});
    }
    void start(const QByteArray& path, const TestReply& reply)
    {
        make(server.serve(path, reply));
        streamer->start();
    }
    bool ends()
    {
        return eventually([this] { return streamer->isIdle(); });
    }
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

    SoundRecorder recorder;
    std::atomic<std::size_t> lastBeginning = 0;
    DesktopSound sound{std::make_unique<NotedOutput>(recorder, lastBeginning),
                       std::make_unique<NullOutput>(kSpeed)};
    DesktopAudioQueues queues{sound};
    CurlReadStreams web;
    AudioFileStreamParsers parsers;
    FakeAlerts alerts;
    FakeUserDefaults defaults;
    RecordingDelegate delegate;
    TestHttpServer server;
    std::unique_ptr<AudioStreamer> streamer;
};

class WholeSongTest : public StreamedSongTest, public testing::WithParamInterface<Format> {};
INSTANTIATE_TEST_SUITE_P(Formats, WholeSongTest, testing::Values(kConstant, kVariable, kWave),
                         [](const auto& format) { return std::string(format.param.name); });

TEST_P(WholeSongTest, IsHeardToItsEnd)
{
    const QByteArray file = encode(GetParam());
    start(GetParam().path, {.body = file});
    ASSERT_TRUE(ends());
    EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    EXPECT_EQ(streamer->stopReason(), AudioStreamer::StopReason::StoppingEof);
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
    ASSERT_TRUE(hears(2));
    ASSERT_FALSE(streamer->isIdle());
    streamer->seekToTime(kSeconds / 2);
    ASSERT_TRUE(ends());
    EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    ASSERT_EQ(server.requests().size(), 2U);

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
