// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for songs that hurt or differ: clipped, offset, silent or too loud sound, clicks at either end,
// samples that depend on the thread; and for files that lie about themselves, are rendered twice or are left
// half made.
#include "catalogue/DemoCatalogue.h"
#include "catalogue/demo/Artists.h"
#include "catalogue/demo/CoverPainter.h"
#include "catalogue/demo/Loudness.h"
#include "catalogue/demo/Performer.h"
#include "catalogue/demo/Wavetables.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <future>
#include <unistd.h>

namespace zib::demo {
namespace {

const std::atomic<bool> goOn = false;

Stereo toStereo(const std::vector<std::int16_t>& samples)
{
    Stereo song(samples.size() / 2);
    for (std::size_t i = 0; i < song.frames(); ++i) {
        song.left[i] = static_cast<float>(samples[2 * i]) / 32768.0F;
        song.right[i] = static_cast<float>(samples[2 * i + 1]) / 32768.0F;
    }
    return song;
}

std::string digestOf(const std::vector<std::int16_t>& samples)
{
    const QByteArrayView bytes(reinterpret_cast<const char*>(samples.data()),
                               static_cast<qsizetype>(samples.size() * sizeof(std::int16_t)));
    return QCryptographicHash::hash(bytes.toByteArray(), QCryptographicHash::Md5).toHex().toStdString();
}

/// The longest run of samples that are all zero, in seconds.
double longestSilence(const std::vector<std::int16_t>& samples)
{
    std::size_t run = 0;
    std::size_t longest = 0;
    for (const std::int16_t sample : samples) {
        run = sample == 0 ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return static_cast<double>(longest) / 2 / sampleRate;
}

class Sound : public testing::TestWithParam<const char*> {};

TEST_P(Sound, IsCleanAndOfOneLoudness)
{
    const std::vector<std::int16_t> samples = perform(compose({GetParam(), 40, 5, 9}), goOn);
    ASSERT_EQ(samples.size(), 2U * 40 * sampleRate);
    int peak = 0;
    double sum = 0;
    for (const int sample : samples) {
        peak = std::max(peak, std::abs(sample));
        sum += sample;
    }
    EXPECT_LT(peak, 0.85 * 32768);
    EXPECT_LT(std::abs(sum / static_cast<double>(samples.size())), 4.0);
    EXPECT_LT(longestSilence(samples), 1.0);
    EXPECT_NEAR(loudnessOf(toStereo(samples)), -17.0, 1.2);
    for (const std::size_t end : {std::size_t{0}, samples.size() - 20})
        for (std::size_t i = end; i < end + 20; ++i)
            EXPECT_LT(std::abs(samples[i]), 200) << "a click at sample " << i;
}

INSTANTIATE_TEST_SUITE_P(Styles, Sound, testing::Values("ambient", "jazz", "lo-fi", "techno", "waltz"));

TEST(Sounds, AreTheSameInEveryThreadAndForEver)
{
    const auto play = [] { return digestOf(perform(compose({"folk", 40, 1, 2}), goOn)); };
    auto other = std::async(std::launch::async, play);
    const std::string here = play();
    EXPECT_EQ(here, other.get());
    // Whoever changes a sound raises composerVersion in DemoCatalogue.cpp and renews this.
    EXPECT_EQ(here, "d374eb13a6547ba182ee14193a776a51");
}

TEST(Sounds, EndWhenTheyShall)
{
    const std::atomic<bool> stop = true;
    EXPECT_TRUE(perform(compose({"folk", 40, 1, 2}), stop).empty());
}

TEST(Covers, ArePicturesOfTheirOwn)
{
    QSet<QByteArray> pictures;
    int tracks = 0;
    for (const Style& style : allStyles()) {
        const QStringList tags = {QString::fromStdString(std::string(style.tag))};
        const QByteArray picture = paintCover(tags, 3);
        const QImage image = QImage::fromData(picture);
        EXPECT_EQ(image.size(), QSize(coverSize, coverSize));
        EXPECT_LT(picture.size(), 150000) << "too heavy to lie in every song";
        EXPECT_EQ(picture, paintCover(tags, 3));
        pictures.insert(picture);
        pictures.insert(paintCover(tags, 4));
        tracks += 2;
    }
    EXPECT_EQ(pictures.size(), tracks);
}

TrackPlan shortest(Encoding encoding)
{
    const auto plans = demoPlan().tracks.values();
    TrackPlan best;
    best.track.seconds = 1000;
    for (const TrackPlan& plan : plans)
        if (plan.encoding == encoding &&
            (plan.track.seconds < best.track.seconds ||
             (plan.track.seconds == best.track.seconds && plan.track.id < best.track.id)))
            best = plan;
    return best;
}

QByteArray run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

QStringList filesIn(const QString& folder, const QString& pattern)
{
    QStringList names;
    const auto versions = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& version : versions)
        names += QDir(folder + QLatin1Char('/') + version).entryList({pattern}, QDir::Files);
    return names;
}

class EveryEncoding : public testing::TestWithParam<Encoding> {};

TEST_P(EveryEncoding, DecodesToTheSongAndNamesIt)
{
    const QTemporaryDir folder;
    DemoCatalogue catalogue(folder.path());
    const TrackPlan plan = shortest(GetParam());
    const std::optional<QString> path = catalogue.file(plan.track.id);
    ASSERT_TRUE(path);
    EXPECT_TRUE(path->endsWith(QLatin1Char('.') + plan.track.extension));
    const QByteArray raw =
        run(QStringLiteral("ffmpeg"), {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"),
                                       *path, QStringLiteral("-map"), QStringLiteral("0:a"),
                                       QStringLiteral("-f"), QStringLiteral("s16le"), QStringLiteral("-")});
    std::vector<std::int16_t> samples(static_cast<std::size_t>(raw.size()) / 2);
    std::copy_n(raw.constData(), samples.size() * 2, reinterpret_cast<char*>(samples.data()));
    EXPECT_NEAR(static_cast<double>(samples.size()) / 2 / sampleRate, plan.track.seconds, 0.2);
    EXPECT_NEAR(loudnessOf(toStereo(samples)), -17.0, 1.5);
    EXPECT_LT(*std::max_element(samples.begin(), samples.end()), 32000);

    const QByteArray json =
        run(QStringLiteral("ffprobe"),
            {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-show_format"),
             QStringLiteral("-show_streams"), QStringLiteral("-of"), QStringLiteral("json"), *path});
    const QJsonObject facts = QJsonDocument::fromJson(json).object();
    const QJsonObject format = facts[QLatin1String("format")].toObject();
    if (GetParam() != Encoding::Adts) { // which has no place for names nor for its length
        const QJsonObject tags = format[QLatin1String("tags")].toObject();
        EXPECT_EQ(tags[QLatin1String("title")].toString(), plan.track.title);
        EXPECT_EQ(tags[QLatin1String("artist")].toString(), plan.artist);
        EXPECT_EQ(tags[QLatin1String("album")].toString(), plan.album);
        EXPECT_EQ(tags[QLatin1String("genre")].toString(), plan.genre);
        EXPECT_EQ(tags[QLatin1String("date")].toString(), QString::number(plan.year));
        EXPECT_EQ(tags[QLatin1String("track")].toString(), QString::number(plan.number));
        EXPECT_NEAR(format[QLatin1String("duration")].toString().toDouble(), plan.track.seconds, 1.0);
    }
    const bool pictured = GetParam() != Encoding::Adts && GetParam() != Encoding::Wav;
    EXPECT_EQ(json.contains("\"attached_pic\": 1"), pictured);
}

INSTANTIATE_TEST_SUITE_P(All, EveryEncoding,
                         testing::Values(Encoding::Mp3Constant, Encoding::Mp3Variable, Encoding::M4a,
                                         Encoding::Adts, Encoding::Wav));

TEST(DemoFiles, AreMadeOnceForAllWhoAsk)
{
    const QTemporaryDir folder;
    DemoCatalogue catalogue(folder.path());
    const QString id = shortest(Encoding::Mp3Constant).track.id;
    std::vector<std::future<std::optional<QString>>> listeners;
    for (int i = 0; i < 4; ++i)
        listeners.push_back(std::async(std::launch::async, [&] { return catalogue.file(id); }));
    QSet<QString> unfinished;
    const auto waiting = [&] {
        return listeners[0].wait_for(std::chrono::milliseconds(1)) != std::future_status::ready;
    };
    while (waiting())
        for (const QString& name : filesIn(folder.path(), QStringLiteral("part-*.mp3")))
            unfinished.insert(name);
    for (auto& listener : listeners)
        EXPECT_TRUE(listener.get().value_or(QString()).endsWith(id + QLatin1String(".mp3")));
    EXPECT_LE(unfinished.size(), 1);
    EXPECT_TRUE(filesIn(folder.path(), QStringLiteral("part-*")).isEmpty());
}

TEST(DemoFiles, AreKeptAndFoundAgain)
{
    const QTemporaryDir folder;
    const QString id = shortest(Encoding::Wav).track.id;
    const std::optional<QString> path = DemoCatalogue(folder.path()).file(id);
    ASSERT_TRUE(path);
    const QDateTime longAgo(QDate(2020, 1, 1), QTime(0, 0));
    {
        QFile file(*path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) &&
                    file.setFileTime(longAgo, QFileDevice::FileModificationTime));
    }
    EXPECT_EQ(DemoCatalogue(folder.path()).file(id), path);
    EXPECT_EQ(QFileInfo(*path).lastModified(), longAgo) << "rendered anew";
    EXPECT_FALSE(DemoCatalogue(folder.path()).file(QStringLiteral("nobody")));
    EXPECT_FALSE(DemoCatalogue(folder.path()).cover(QStringLiteral("nobody")));
}

TEST(DemoFiles, CannotBeMadeWhereNobodyMayWrite)
{
    const QTemporaryDir folder;
    QFile blocked(folder.filePath(QStringLiteral("file")));
    ASSERT_TRUE(blocked.open(QIODevice::WriteOnly));
    EXPECT_FALSE(DemoCatalogue(blocked.fileName()).file(shortest(Encoding::Wav).track.id));
}

/// Not a test: what the process does that the next one starts and kills.
TEST(DemoFiles, DISABLED_RenderToBeKilled)
{
    DemoCatalogue(qEnvironmentVariable("DEMO_TEST_FOLDER")).file(shortest(Encoding::Mp3Variable).track.id);
}

TEST(DemoFiles, SurviveAKilledRenderer)
{
    const QTemporaryDir folder;
    const QString id = shortest(Encoding::Mp3Variable).track.id;
    QProcess renderer;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DEMO_TEST_FOLDER"), folder.path());
    renderer.setProcessEnvironment(environment);
    renderer.start(
        QCoreApplication::applicationFilePath(),
        {QStringLiteral("--gtest_also_run_disabled_tests"), QStringLiteral("--gtest_filter=*ToBeKilled")});
    ASSERT_TRUE(renderer.waitForStarted());
    while (filesIn(folder.path(), QStringLiteral("part-*.mp3")).isEmpty() &&
           renderer.state() == QProcess::Running)
        renderer.waitForFinished(1);
    renderer.kill();
    renderer.waitForFinished();
    const QStringList left = filesIn(folder.path(), QStringLiteral("part-*.mp3"));
    ASSERT_EQ(left.size(), 1);
    EXPECT_TRUE(filesIn(folder.path(), id + QLatin1String(".*")).isEmpty());

    // The next start finds what is old enough to be nobody's, and makes the song whole.
    const QString half = folder.path() + QLatin1String("/songs-1/") + left.first();
    QFile file(half);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(QDateTime(QDate(2020, 1, 1), QTime(0, 0)),
                                                                    QFileDevice::FileModificationTime));
    file.close();
    DemoCatalogue catalogue(folder.path());
    EXPECT_FALSE(QFile::exists(half));
    EXPECT_TRUE(catalogue.file(id));
}

TEST(DemoFiles, WhatFollowsASongThatWasAskedForIsMadeWhileTheBackgroundRests)
{
    const QTemporaryDir folder;
    DemoCatalogue catalogue(folder.path());
    const DemoAlbum album = catalogue.artists().last().albums.first();
    std::atomic<int> finished = 0;
    catalogue.renderAll([&](int done, int) { finished = done; }, {.first = std::chrono::hours(1), .rest = 0});
    EXPECT_TRUE(catalogue.file(album.tracks[1].id));
    while (finished < 1)
        usleep(1000);
    QStringList expected{album.tracks[1].id, album.tracks[2].id};
    QStringList made;
    for (const QString& name : filesIn(folder.path(), QStringLiteral("????????????????????????????????.*")))
        if (!name.endsWith(QLatin1String(".jpg")))
            made.append(name.left(32));
    expected.sort();
    made.sort();
    EXPECT_EQ(made, expected);
}

TEST(DemoFiles, AListenerGoesBeforeTheBackground)
{
    const QTemporaryDir folder;
    DemoCatalogue catalogue(folder.path());
    const DemoTrack first = catalogue.artists().first().albums.first().tracks.first();
    const DemoTrack last = catalogue.artists().last().albums.last().tracks.last();
    std::atomic<int> finished = 0;
    int total = 0;
    catalogue.renderAll(
        [&](int done, int all) {
            total = all;
            finished = done;
        },
        {});
    // The last song of all, and the very one that the background has begun with.
    auto other = std::async(std::launch::async, [&] { return catalogue.file(last.id); });
    EXPECT_TRUE(catalogue.file(first.id));
    EXPECT_TRUE(other.get());
    while (finished < 1)
        usleep(1000);
    catalogue.stop();
    const int before = finished;
    EXPECT_EQ(total, demoPlan().tracks.size());
    EXPECT_LT(before, total);
    EXPECT_TRUE(filesIn(folder.path(), QStringLiteral("part-*")).isEmpty());
    EXPECT_FALSE(catalogue.file(catalogue.artists().last().albums.last().tracks.first().id))
        << "made after the end";
    EXPECT_EQ(finished, before);
}

} // namespace
} // namespace zib::demo
