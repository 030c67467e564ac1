// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a song marked as downloaded that is not on disk, a file lost or half written, a record that goes on
// saying that it is being fetched, a love lost to a download, progress of a list that is not shown.
#include "library/SongDownloads.h"
#include "library/RVDataManager.h"
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

namespace zib {
namespace {

const QString idA = QStringLiteral("a");

class Controller : public RVDataManagerDelegate {
  public:
    [[nodiscard]] Record nowplayingTrack() const override { return playing; }
    void setNowplayingTrack(const Record& track) override { playing = track; }
    Record playing;
};

class SongDownloadsTest : public testing::Test {
  protected:
    SongDownloadsTest()
    {
        defaults.setValue(settings::MusicFolder, folder.filePath(QStringLiteral("Music")));
        library.setDelegate(&controller);
        clock.set(QDateTime(QDate(2001, 1, 2), QTime(0, 0), Qt::UTC));
        library.addPlaylistWithTitle(QStringLiteral("found"), {webSong(idA), webSong(QStringLiteral("b"))},
                                     1);
        library.setSource(SourceType::RecentSearches);
        library.setCurrentPlaylistIndex(0);
    }
    ~SongDownloadsTest() override { library.setDelegate(nullptr); }

    static Record webSong(const QString& id)
    {
        return song(id, {{keys::Artist, QStringLiteral("Ann")},
                         {keys::Album, QStringLiteral("First")},
                         {keys::Location, QStringLiteral("http://h/%1.mp3").arg(id)}});
    }
    [[nodiscard]] QString fileOf(const char* name) const
    {
        return folder.filePath(QStringLiteral("Music/Ann/First/") + QString::fromUtf8(name));
    }
    static QByteArray content(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QStringList musicFiles()
    {
        QStringList files;
        QDirIterator entries(folder.filePath(QStringLiteral("Music")), QDir::Files | QDir::Hidden,
                             QDirIterator::Subdirectories);
        while (entries.hasNext())
            files.append(entries.next());
        return files;
    }
    FakeUrlExchange& exchange() { return loader.last(); }
    /// Pieces until the next report of progress is due: the count spans all downloads there ever were.
    void sendUntilProgress()
    {
        view.songs.reloadedCells.clear();
        for (int piece = 0; piece < 201 && view.songs.reloadedCells.isEmpty() && exchange().isRunning();
             ++piece)
            exchange().send("1");
    }
    bool saysSo(const Record& track)
    {
        return track.contains(keys::CanAbort) || track.contains(keys::Abort) ||
               track.contains(keys::Progress);
    }
    QString status() { return defaults.string(settings::BriefStatusMessage); }

    QTemporaryDir folder;
    FakeUserDefaults defaults;
    FakeAlerts alerts;
    FakeClock clock;
    FakeLibraryView view;
    FakeUrlLoader loader;
    Controller controller;
    RVDataManager library{defaults, alerts, clock, view, folder.filePath(QStringLiteral("Library.zib"))};
    SongDownloads downloads{library, {loader, defaults, clock}, defaults, alerts};
};

TEST_F(SongDownloadsTest, ASongFromASearchEndsUpOnDiskAndInTheLibrary)
{
    downloads.downloadSongAtIndex(0);
    EXPECT_TRUE(downloads.isRunning(idA));
    EXPECT_TRUE(library.items()[0].boolean(keys::CanAbort));
    EXPECT_EQ(exchange().request.url, "http://h/a.mp3");
    exchange().respond({200, 8, {}});
    EXPECT_EQ(SongDownloads::progress(library.items()[0]), 0.0);
    EXPECT_EQ(SongDownloads::progress(library.items()[1]), std::nullopt);
    exchange().send("the ");
    library.markFavoriteAtIndex(0); // meanwhile
    exchange().send("song");
    exchange().finish();

    EXPECT_EQ(content(fileOf("Song a.mp3")), "the song");
    EXPECT_EQ(musicFiles().size(), 1);
    EXPECT_FALSE(downloads.isRunning(idA));
    const Record kept = library.library().find(idA);
    EXPECT_TRUE(kept.boolean(keys::Downloaded));
    EXPECT_TRUE(kept.boolean(keys::Favorite));
    for (const Record& holder : library.holdersOf(kept)) {
        EXPECT_TRUE(holder.boolean(keys::Downloaded));
        EXPECT_FALSE(saysSo(holder));
    }
    library.waitForSaves();
    const auto saved = LibraryFile(folder.filePath(QStringLiteral("Library.zib"))).load();
    EXPECT_TRUE(saved && saved->library.find(idA).boolean(keys::Downloaded));
}

TEST_F(SongDownloadsTest, WhatTheLibraryKnowsOfTheSongIsKept)
{
    Record known = webSong(idA);
    known.set(keys::Favorite, true);
    known.set(keys::PlayCount, 7);
    known.set(keys::Album, QStringLiteral("Edited"));
    library.library().insert(idA, known);
    downloads.downloadSongAtIndex(0);
    exchange().reply("song");
    const Record kept = library.library().find(idA);
    EXPECT_TRUE(kept.boolean(keys::Favorite) && kept.boolean(keys::Downloaded));
    EXPECT_EQ(kept.integer(keys::PlayCount), 7);
    EXPECT_EQ(content(folder.filePath(QStringLiteral("Music/Ann/Edited/Song a.mp3"))), "song");
}

TEST_F(SongDownloadsTest, AnExistingFileIsAskedForAndLeftUntouched)
{
    QDir().mkpath(fileOf("../Other"));
    for (const char* path : {"../Other/SONG A.MP3", "Song b.mp3"}) {
        QDir().mkpath(QFileInfo(fileOf(path)).path());
        QFile file(fileOf(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("old");
    }
    alerts.answers = {{1, false}};
    downloads.downloadSongAtIndex(0);
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(alerts.shown[0].messageText, QStringLiteral("Zib!"));
    EXPECT_EQ(alerts.shown[0].informativeText,
              QStringLiteral("A song like this has already been downloaded. Do you want to overwrite it?"));
    EXPECT_EQ(alerts.shown[0].buttons, (QStringList{QStringLiteral("Overwrite"), QStringLiteral("Cancel")}));
    EXPECT_TRUE(loader.exchanges.empty());

    downloads.downloadSongAtIndex(1);
    exchange().reply("new");
    EXPECT_EQ(content(fileOf("Song b.mp3")), "old");
    EXPECT_TRUE(library.library().find(QStringLiteral("b")).boolean(keys::Downloaded));
}

TEST_F(SongDownloadsTest, APressDuringTheDownloadStopsItAtTheNextReport)
{
    controller.playing = library.items()[0];
    downloads.downloadSongAtIndex(0);
    exchange().respond({200, 1000, {}});
    sendUntilProgress();
    EXPECT_EQ(view.songs.reloadedCells, (QList<std::pair<int, QString>>{{0, QStringLiteral("Progress")}}));
    const double part = SongDownloads::progress(library.items()[0]).value_or(-2);
    EXPECT_GT(part, 0);
    EXPECT_EQ(status(), QStringLiteral("Downloading... (%1 %)").arg(int(part * 100)));
    downloads.downloadSongAtIndex(0);
    EXPECT_TRUE(library.items()[0].boolean(keys::Abort));
    EXPECT_TRUE(downloads.isRunning(idA));
    sendUntilProgress();
    EXPECT_TRUE(exchange().isCancelled());
    EXPECT_FALSE(downloads.isRunning(idA));
    EXPECT_FALSE(saysSo(library.items()[0]) || saysSo(library.library().find(idA)));
    EXPECT_EQ(status(), QStringLiteral("Download cancelled"));
    EXPECT_EQ(musicFiles(), QStringList());
    // and again, from the beginning
    downloads.downloadSongAtIndex(0);
    exchange().reply("song");
    EXPECT_EQ(content(fileOf("Song a.mp3")), "song");
    EXPECT_EQ(status(), QStringLiteral("Exported to disk"));
}

TEST_F(SongDownloadsTest, FailuresLeaveNothingBehind)
{
    struct Case {
        const char* name;
        void (*happens)(FakeUrlExchange&);
    };
    const Case cases[] = {
        {"network", [](FakeUrlExchange& web) { web.fail(QStringLiteral("The server went away.")); }},
        {"missing", [](FakeUrlExchange& web) { web.reply("<html>", 404); }},
        {"unwritable", [](FakeUrlExchange& web) { web.reply("song"); }},
    };
    QFile inTheWay(folder.filePath(QStringLiteral("file")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    for (const Case& entry : cases) {
        const bool writable = QByteArray(entry.name) != "unwritable";
        if (!writable)
            defaults.setValue(settings::MusicFolder, inTheWay.fileName());
        alerts.shown.clear();
        downloads.downloadSongAtIndex(0);
        exchange().respond({200, 1000, {}});
        exchange().send("half");
        entry.happens(exchange());
        EXPECT_EQ(alerts.shown.size(), 1) << entry.name;
        EXPECT_FALSE(alerts.shown.value(0).informativeText.isEmpty());
        EXPECT_FALSE(downloads.isRunning(idA));
        EXPECT_FALSE(saysSo(library.items()[0]));
        EXPECT_FALSE(library.library().find(idA).boolean(keys::Downloaded));
        EXPECT_EQ(musicFiles(), QStringList());
    }
    loader.refuses = true;
    downloads.downloadSong(library.items()[0]);
    EXPECT_EQ(alerts.shown.last().informativeText, QStringLiteral("Could not establish a connection"));
    EXPECT_FALSE(downloads.isRunning(idA));
}

TEST_F(SongDownloadsTest, ANameThatLeavesTheMusicFolderIsRefused)
{
    for (const char* name : {"../../../escaped", "a/../../../../escaped"}) {
        Record evil = webSong(QString::fromUtf8(name));
        evil.set(keys::Name, QString::fromUtf8(name));
        downloads.downloadSong(evil);
        exchange().reply("song");
        EXPECT_TRUE(alerts.shown.last().informativeText.contains(QLatin1String("outside the music folder")));
        EXPECT_FALSE(library.library().find(evil.string(keys::Id)).boolean(keys::Downloaded));
    }
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("escaped.mp3"))));
}

TEST_F(SongDownloadsTest, OtherListsShowNoProgressButTheSongArrives)
{
    downloads.downloadSongAtIndex(0);
    library.setSource(SourceType::Library);
    exchange().respond({200, 1000, {}});
    EXPECT_EQ(SongDownloads::progress(library.items()[0]), std::nullopt);
    // The rows made since tell that it is running, and a press on one asks for its end.
    EXPECT_TRUE(library.items()[0].boolean(keys::CanAbort));
    sendUntilProgress();
    EXPECT_EQ(SongDownloads::progress(library.items()[0]), std::nullopt);
    exchange().finish();
    EXPECT_TRUE(QFile::exists(fileOf("Song a.mp3")));
    EXPECT_TRUE(library.items()[0].boolean(keys::Downloaded));
    EXPECT_FALSE(saysSo(library.items()[0]));
}

} // namespace
} // namespace zib
