// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: part of a song in the music folder because the program was killed while it was downloading.
#include "library/RVDataManager.h"
#include "library/SongDownloads.h"
#include "platform/SettingsKeys.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeLibraryView.h"
#include "tests/fakes/FakeUrlLoader.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/library/Library.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <thread>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace zib {
namespace {

QByteArray audioOf(int number)
{
    return QByteArray(400'000 + number % 7 * 100'001, static_cast<char>('A' + number % 26));
}

/// The whole way of song after song from the net into the music folder.
[[noreturn]] void downloadForever(const QString& folder, int first, int readyPipe)
{
    FakeUserDefaults defaults;
    defaults.setValue(settings::MusicFolder, folder + QStringLiteral("/Music"));
    FakeAlerts alerts;
    FakeClock clock;
    FakeLibraryView view;
    FakeUrlLoader loader;
    RVDataManager library(defaults, alerts, clock, view, folder + QStringLiteral("/Library.zib"));
    SongDownloads downloads(library, {loader, defaults, clock}, defaults, alerts);
    for (int number = first;; ++number) {
        Record track = song(QString::number(number), {{keys::Location, QStringLiteral("http://h/a.mp3")}});
        track.set(keys::Name, QString::number(number));
        downloads.downloadSong(track);
        const QByteArray audio = audioOf(number);
        loader.last().respond({200, audio.size(), {}});
        for (qsizetype place = 0; place < audio.size(); place += 16384)
            loader.last().send(audio.mid(place, 16384));
        loader.last().finish();
        if (number == first && ::write(readyPipe, "r", 1) != 1)
            ::_exit(1);
    }
}

void killWhileDownloading(const QString& folder, int first, std::chrono::microseconds after)
{
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0)
        downloadForever(folder, first, ready[1]);
    ::close(ready[1]);
    char byte = 0;
    EXPECT_EQ(::read(ready[0], &byte, 1), 1) << "a song is there";
    ::close(ready[0]);
    std::this_thread::sleep_for(after);
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status));
}

TEST(DownloadKill, TheMusicFolderHoldsWholeSongsAndNothingElse)
{
    QTemporaryDir folder;
    const QString music = folder.filePath(QStringLiteral("Music"));
    // As on a file system where a file must have a name from its beginning.
    ASSERT_TRUE(QDir().mkpath(music + QStringLiteral("/.zib-unfinished")));
    QFile unfinished(music + QStringLiteral("/.zib-unfinished/3"));
    ASSERT_TRUE(unfinished.open(QIODevice::WriteOnly) && unfinished.write("half a song") > 0);
    unfinished.close();

    std::mt19937 random(11); // NOLINT(bugprone-random-generator-seed): the same delays every time
    constexpr int rounds = 100;
    constexpr int songsARound = 10'000;
    QSet<int> seen;
    for (int round = 0; round < rounds; ++round) {
        killWhileDownloading(folder.path(), round * songsARound, std::chrono::microseconds(random() % 5000));
        ASSERT_FALSE(HasFatalFailure());
        QDirIterator files(music, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            const int number = QFileInfo(file).completeBaseName().toInt();
            if (!seen.contains(number)) {
                ASSERT_TRUE(file.open(QIODevice::ReadOnly));
                ASSERT_TRUE(file.readAll() == audioOf(number)) << qUtf8Printable(file.fileName());
                ASSERT_TRUE(file.fileName().endsWith(QStringLiteral("/%1.mp3").arg(number)));
                seen.insert(number);
            }
        }
    }
    EXPECT_GE(seen.size(), rounds) << "each came to its end with one at least";
}

} // namespace
} // namespace zib
