// SPDX-License-Identifier: GPL-3.0-or-later
// People's own files: each format must play whole and in time, a seek must land where it was asked for, the
// end must be told once and only when it was heard, and what is no sound must be an error and not a crash.
#include "platform/desktop/DesktopMovie.h"
#include "platform/desktop/DesktopSound.h"
#include "tests/fakes/FakeMovies.h"
#include "tests/support/SoundRecorder.h"
#include "tests/support/Tones.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace zib::test {
namespace {

constexpr int kPatience = 60000; // ms

double seconds(MovieTime time)
{
    return static_cast<double>(time.value) / time.scale;
}

class DesktopMovieTest : public testing::Test {
  protected:
    /// Three seconds: one of 300 Hz, one of 600 Hz, one of 1200 Hz.
    QString song(const char* name, const QStringList& encoder = {})
    {
        auto samples = tone(300, 1);
        for (const double hertz : {600.0, 1200.0}) {
            const auto next = tone(hertz, 1);
            samples.insert(samples.end(), next.begin(), next.end());
        }
        const QString path = folder.filePath(QLatin1String(name));
        ffmpeg(QStringList{QStringLiteral("-f"), QStringLiteral("s16le"), QStringLiteral("-ar"),
                           QStringLiteral("44100"), QStringLiteral("-ac"), QStringLiteral("2"),
                           QStringLiteral("-i"), QStringLiteral("-")} +
                   encoder + QStringList{path},
               pcm16(samples, 2));
        return path;
    }
    std::unique_ptr<Movie> open(const QString& path)
    {
        QString error;
        auto movie = movies.open(path, error);
        EXPECT_EQ(movie != nullptr, error.isEmpty());
        return movie;
    }
    bool waitForEnd(qsizetype ends = 1)
    {
        return (ended.size() >= ends || ended.wait(kPatience)) && ended.size() == ends;
    }
    /// The pitch of what was heard around that time after the given frame.
    [[nodiscard]] double pitchAt(double time, std::size_t from = 0) const
    {
        const auto heard = recorder.channel(0);
        const auto rate = recorder.format().rate;
        const auto first = from + static_cast<std::size_t>((time - 0.1) * rate);
        const auto count = static_cast<std::size_t>(0.2 * rate);
        return first + count <= heard.size() ? pitch(std::span(heard).subspan(first, count), rate) : 0;
    }

    QTemporaryDir folder;
    SoundRecorder recorder;
    DesktopSound sound{std::make_unique<NullOutput>(10, recorder.ear()), std::make_unique<NullOutput>(10)};
    DesktopMovies movies{sound};
    QSignalSpy ended{&movies, &Movies::movieDidEnd};
};

struct Format {
    const char* file;
    QStringList encoder;
    double slack; ///< seconds by which the encoder may lengthen it
};

std::vector<Format> formats()
{
    const auto codec = [](const char* name) {
        return QStringList{QStringLiteral("-c:a"), QLatin1String(name)};
    };
    return {
        {"a.wav", {}, 0.001},
        {"a.aiff", {}, 0.001},
        {"a.flac", {}, 0.001},
        {"cbr.mp3", {QStringLiteral("-b:a"), QStringLiteral("128k")}, 0.06},
        {"vbr.mp3", {QStringLiteral("-q:a"), QStringLiteral("4")}, 0.06},
        {"a.ogg", codec("libvorbis"), 0.06},
        {"a.opus", codec("libopus"), 0.06},
        {"aac.m4a", codec("aac"), 0.1},
        {"alac.m4a", codec("alac"), 0.001},
        {"a.aac", codec("aac"), 0.15},
    };
}

TEST_F(DesktopMovieTest, PlaysEveryFormatWholeAndInTime)
{
    qsizetype ends = 0;
    for (const Format& format : formats()) {
        SCOPED_TRACE(format.file);
        const auto before = recorder.frames();
        auto movie = open(song(format.file, format.encoder));
        ASSERT_TRUE(movie);
        EXPECT_NEAR(seconds(movie->duration()), 3, format.slack);
        EXPECT_EQ(movie->rate(), 0);
        movie->play();
        EXPECT_EQ(movie->rate(), 1);
        ASSERT_TRUE(waitForEnd(++ends));
        EXPECT_EQ(ended.back().front().value<Movie*>(), movie.get());
        EXPECT_EQ(movie->rate(), 0);
        const double heard = static_cast<double>(recorder.frames() - before) / recorder.format().rate;
        EXPECT_NEAR(heard, 3, format.slack);
        EXPECT_NEAR(seconds(movie->currentTime()), heard, 0.002);
        for (const auto& [time, hertz] : {std::pair{0.5, 300.0}, {1.5, 600.0}, {2.5, 1200.0}})
            EXPECT_NEAR(pitchAt(time, before), hertz, hertz / 50) << time;
    }
}

TEST_F(DesktopMovieTest, ASeekLandsWhereItWasAskedFor)
{
    qsizetype ends = 0;
    for (const Format& format : formats()) {
        SCOPED_TRACE(format.file);
        auto movie = open(song(format.file, format.encoder));
        ASSERT_TRUE(movie);
        for (const double target : {1.5, 0.5}) {
            const auto before = recorder.frames();
            movie->setCurrentTime({static_cast<qint64>(target * 600), 600});
            EXPECT_NEAR(seconds(movie->currentTime()), target, 0.01) << "told at once";
            movie->play();
            ASSERT_TRUE(waitForEnd(++ends));
            const double heard = static_cast<double>(recorder.frames() - before) / recorder.format().rate;
            EXPECT_NEAR(heard, 3 - target, 0.1 + format.slack);
            // The last second begins where it must, whatever the encoder put after it.
            EXPECT_NEAR(pitchAt(2.2 - target, before), 1200, 24);
            EXPECT_NEAR(pitchAt(1.8 - target, before), 600, 12);
        }
    }
}

TEST_F(DesktopMovieTest, PausesGoesOnAndPlaysAgainAfterTheEnd)
{
    auto movie = open(song("a.wav"));
    ASSERT_TRUE(movie);
    movie->play();
    while (seconds(movie->currentTime()) < 1)
        QThread::yieldCurrentThread();
    movie->setRate(0);
    const auto at = movie->currentTime().value;
    const auto frames = recorder.frames();
    EXPECT_EQ(at, static_cast<qint64>(frames * 1000 / kToneRate)) << "the time counts what was heard";
    QThread::msleep(30);
    EXPECT_EQ(movie->currentTime().value, at);
    EXPECT_EQ(recorder.frames(), frames);
    EXPECT_EQ(movie->rate(), 0);
    movie->setRate(0.3F); // any other rate is normal speed
    EXPECT_EQ(movie->rate(), 1);
    ASSERT_TRUE(waitForEnd(1));
    EXPECT_EQ(recorder.frames(), 3U * kToneRate) << "nothing is lost or repeated";

    movie->play();
    ASSERT_TRUE(waitForEnd(2));
    EXPECT_EQ(recorder.frames(), 6U * kToneRate);
    movie->stop();
    movie->gotoBeginning();
    EXPECT_EQ(movie->currentTime().value, 0);
    movie->play();
    ASSERT_TRUE(waitForEnd(3));
    EXPECT_EQ(recorder.frames(), 9U * kToneRate);
}

TEST_F(DesktopMovieTest, AnEndThatWasOvertakenIsNotTold)
{
    auto movie = open(song("a.wav"));
    ASSERT_TRUE(movie);
    movie->play();
    while (movie->rate() != 0) // without the event loop, which would tell the end
        QThread::msleep(1);
    movie->gotoBeginning();
    EXPECT_FALSE(ended.wait(50));
    movie->play();
    while (movie->rate() != 0)
        QThread::msleep(1);
    movie.reset();
    EXPECT_FALSE(ended.wait(50));
    EXPECT_TRUE(ended.empty());
}

TEST_F(DesktopMovieTest, ASlotMayDestroyTheMovie)
{
    auto movie = open(song("a.wav"));
    ASSERT_TRUE(movie);
    QObject::connect(&movies, &Movies::movieDidEnd, &movies, [&movie] { movie.reset(); });
    movie->setCurrentTime({29, 10});
    movie->play();
    ASSERT_TRUE(waitForEnd());
    EXPECT_FALSE(movie);
}

TEST_F(DesktopMovieTest, TheVolumeIsHeard)
{
    auto movie = open(song("a.wav"));
    ASSERT_TRUE(movie);
    movie->setVolume(0.5F);
    movie->play();
    ASSERT_TRUE(waitForEnd());
    const auto heard = recorder.channel(0);
    EXPECT_NEAR(loudness(heard), 0.354 / 2, 0.005);
}

TEST_F(DesktopMovieTest, WhatHoldsNoSoundIsAnError)
{
    const auto write = [this](const char* name, const QByteArray& bytes) {
        QFile file(folder.filePath(QLatin1String(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    };
    QByteArray garbage(100000, '\0');
    quint32 noise = 1;
    for (char& byte : garbage)
        byte = static_cast<char>((noise = noise * 1664525 + 1013904223) >> 24);
    QFile sound16(song("a.wav"));
    ASSERT_TRUE(sound16.open(QIODevice::ReadOnly));
    const QByteArray wav = sound16.readAll();
    const QByteArray pipe = folder.filePath(QStringLiteral("pipe.mp3")).toUtf8();
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);

    const QString bad[] = {
        folder.filePath(QStringLiteral("missing.mp3")),
        folder.path(),
        QString::fromUtf8(pipe),
        QString(),
        write("empty.mp3", {}),
        write("text.mp3", QByteArray("not a song\n").repeated(1000)),
        write("noise.wav", garbage),
        write("head only.wav", wav.left(30)),
        // A list of songs is none, and must not open what it names.
        write("list.m3u8",
              "#EXTM3U\n#EXTINF:3,\n" + folder.filePath(QStringLiteral("a.wav")).toUtf8() + "\n"),
        write("list.ffconcat", "ffconcat version 1.0\nfile 'a.wav'\n"),
    };
    for (const QString& path : bad) {
        QString error;
        EXPECT_EQ(movies.open(path, error), nullptr) << path.toStdString();
        EXPECT_FALSE(error.isEmpty()) << path.toStdString();
    }
}

TEST_F(DesktopMovieTest, ATornFilePlaysAsFarAsItGoes)
{
    QFile whole(song("whole.mp3"));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    QFile torn(folder.filePath(QStringLiteral("a strange: name?*.mp3")));
    ASSERT_TRUE(torn.open(QIODevice::WriteOnly));
    torn.write(whole.read(whole.size() / 2));
    torn.close();
    auto movie = open(torn.fileName());
    ASSERT_TRUE(movie);
    movie->play();
    ASSERT_TRUE(waitForEnd());
    EXPECT_NEAR(static_cast<double>(recorder.frames()) / kToneRate, 1.5, 0.2);
}

// What the player relies on of any movie, the real one and the fake.
template <typename Movies>
struct MovieWorld;

template <>
struct MovieWorld<FakeMovies> {
    FakeMovies movies;
};

template <>
struct MovieWorld<DesktopMovies> {
    DesktopSound sound{std::make_unique<NullOutput>(10), std::make_unique<NullOutput>(10)};
    DesktopMovies movies{sound};
};

template <typename Movies>
class MovieContract : public testing::Test {
  protected:
    MovieWorld<Movies> world;
    QTemporaryDir folder;
};
using Both = testing::Types<FakeMovies, DesktopMovies>;
TYPED_TEST_SUITE(MovieContract, Both);

TYPED_TEST(MovieContract, RateTimeAndDuration)
{
    const QString path = this->folder.filePath(QStringLiteral("a.wav"));
    ffmpeg({QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
            QStringLiteral("sine=frequency=440:duration=100"), path});
    QString error;
    const auto movie = this->world.movies.open(path, error);
    ASSERT_TRUE(movie) << error.toStdString();
    EXPECT_NEAR(seconds(movie->duration()), 100, 0.1);
    EXPECT_EQ(movie->rate(), 0.0F);
    EXPECT_EQ(movie->currentTime().value, 0);
    movie->setRate(1);
    EXPECT_EQ(movie->rate(), 1.0F);
    movie->setCurrentTime({60, 1});
    EXPECT_EQ(movie->rate(), 1.0F) << "a seek plays on";
    movie->stop();
    EXPECT_EQ(movie->rate(), 0.0F);
    EXPECT_GE(seconds(movie->currentTime()), 60);
    EXPECT_GT(movie->currentTime().scale, 0);
    movie->play();
    EXPECT_EQ(movie->rate(), 1.0F);
    movie->setRate(0);
    movie->gotoBeginning();
    EXPECT_EQ(seconds(movie->currentTime()), 0);
    EXPECT_EQ(movie->rate(), 0.0F);
    movie->setVolume(2);
}

} // namespace
} // namespace zib::test
