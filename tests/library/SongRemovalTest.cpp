// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a song or a file lost that was not meant, one that stays behind, a playlist in another order, music
// that goes on after its song is gone, and what does not come back when a removal is undone.
#include "library/SongRemoval.h"
#include "library/RVDataManager.h"
#include "library/SongDownloads.h"
#include "library/UndoStack.h"
#include "platform/SettingsKeys.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeLibraryView.h"
#include "tests/fakes/FakeTrash.h"
#include "tests/fakes/FakeUrlLoader.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/library/Library.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

namespace zib {
namespace {

class Controller : public RVDataManagerDelegate {
  public:
    [[nodiscard]] Record nowplayingTrack() const override { return playing; }
    [[nodiscard]] int nowplayingSourceType() const override { return source; }
    [[nodiscard]] qint64 nowplayingPlaylistUID() const override { return uid; }
    void setNowplayingPlaylistItems(const QList<Record>& items) override { next = items; }
    void stop() override
    {
        ++stops;
        playing = {};
    }

    Record playing;
    int source = -1;
    qint64 uid = -1;
    QList<Record> next;
    int stops = 0;
};

class SongRemovalTest : public testing::Test {
  protected:
    SongRemovalTest()
    {
        library.setDelegate(&controller);
        table.rowCount = [this] { return int(library.items().size()); };
        clock.set(QDateTime(QDate(2020, 1, 1), QTime(0, 0), Qt::UTC));
        for (const char* id : {"a", "b", "c", "d"}) {
            const QString name = QString::fromUtf8(id);
            library.library().insert(name, song(name, {{keys::Location, location(name)}}));
        }
    }
    ~SongRemovalTest() override { library.setDelegate(nullptr); }

    [[nodiscard]] QString path(const QString& name) const { return folder.filePath(name); }
    QString location(const QString& name)
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(name.toUtf8());
        return QUrl::fromLocalFile(file.fileName()).toString();
    }
    static QStringList names(const char* text)
    {
        return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    }
    void showPlaylist(const char* tracks)
    {
        QList<Record> songs;
        for (const QString& id : names(tracks))
            songs.append(library.library().find(id));
        library.addPlaylistWithTitle(QStringLiteral("list"), songs, 0);
        library.setSource(SourceType::Playlists);
        library.setCurrentPlaylistIndex(int(library.playlists().size()) - 1);
    }
    QString shown() const
    {
        QStringList ids;
        for (const Record& item : library.items())
            ids.append(item.string(keys::Id));
        return ids.join(QLatin1Char(' '));
    }
    /// Everything that a removal touches.
    QStringList state()
    {
        QStringList result;
        library.library().forEach([&](std::string_view id, const Record& track) {
            const QString name = QString::fromUtf8(id.data(), qsizetype(id.size()));
            result.append(name + (QFile::exists(path(name)) ? QString() : QStringLiteral(" lost")) +
                          (track.boolean(keys::Favorite) ? QStringLiteral(" loved") : QString()));
        });
        for (const Record& playlist : library.playlists())
            result.append(playlist.strings(keys::Tracks).join(QLatin1Char(' ')));
        return result;
    }
    void remove(const QList<int>& rows)
    {
        table.selectRows(rows);
        removal.deleteSelectedItems();
        QCoreApplication::processEvents();
    }

    QTemporaryDir folder;
    FakeUserDefaults defaults;
    FakeAlerts alerts;
    FakeDesktop desktop;
    FakeClock clock;
    FakeLibraryView view;
    FakeTableView& table = view.songs;
    FakeTrash trash;
    FakeUrlLoader loader;
    Controller controller;
    RVDataManager library{defaults, alerts, clock, view, path(QStringLiteral("Library.zib"))};
    SongDownloads downloads{library, {loader, defaults, clock}, defaults, alerts};
    UndoStack undo{defaults};
    SongRemoval removal{{library, downloads, defaults, trash, alerts, desktop, undo}};
};

TEST_F(SongRemovalTest, FromTheLibraryTheyGoWithTheirFiles)
{
    showPlaylist("a b a c");
    library.setSource(SourceType::Library);
    controller.playing = library.items()[2];
    alerts.answers = {{1, false}};
    remove({0, 2});
    EXPECT_EQ(shown(), QStringLiteral("a b c d")) << "cancelled";
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(alerts.shown[0].messageText,
              QStringLiteral("Are you sure you want to remove the selected songs from your music library?"));
    EXPECT_EQ(alerts.shown[0].informativeText, QStringLiteral("Any local files will be moved to the trash."));
    EXPECT_EQ(alerts.shown[0].buttons, (QStringList{QStringLiteral("Remove"), QStringLiteral("Cancel")}));

    table.selectRows({0, 2});
    removal.deleteSelectedItems();
    EXPECT_TRUE(QFile::exists(path(QStringLiteral("a")))) << "the event loop moves it";
    QCoreApplication::processEvents();
    EXPECT_EQ(shown(), QStringLiteral("b d"));
    EXPECT_EQ(controller.stops, 1);
    EXPECT_EQ(library.playlists()[0].strings(keys::Tracks), names("b"));
    EXPECT_EQ(trash.files, (QHash<QString, QByteArray>{{path(QStringLiteral("a")), "a"},
                                                       {path(QStringLiteral("c")), "c"}}));
    EXPECT_TRUE(table.selectedRows().isEmpty());
    library.waitForSaves();
    EXPECT_EQ(LibraryFile(path(QStringLiteral("Library.zib"))).load()->library.size(), 2);
    remove({0});
    EXPECT_EQ(controller.stops, 1) << "another song was playing";
}

TEST_F(SongRemovalTest, FilesThatAreNotOneRemovedSongsOwnStay)
{
    const auto setLocation = [this](const char* id, const QString& where) {
        library.library().find(QString::fromUtf8(id)).set(keys::Location, where);
    };
    QDir(folder.path()).mkdir(QStringLiteral("folder"));
    setLocation("a", QUrl::fromLocalFile(path(QStringLiteral("folder"))).toString());
    setLocation("b", QStringLiteral("http://h/b.mp3"));
    setLocation("c", library.library().find(QStringLiteral("d")).string(keys::Location)); // twice imported
    library.setSource(SourceType::Library);
    remove({0, 1, 2});
    EXPECT_EQ(shown(), QStringLiteral("d"));
    EXPECT_TRUE(trash.files.isEmpty());
    EXPECT_TRUE(QDir(path(QStringLiteral("folder"))).exists());
    EXPECT_EQ(defaults.string(settings::BriefStatusMessage),
              QStringLiteral("3 songs removed from the library. Press Ctrl+Z to undo."));

    QFile::remove(path(QStringLiteral("d")));
    QDir(folder.path()).mkdir(QStringLiteral("d"));
    remove({0});
    EXPECT_EQ(shown(), QString());
}

TEST_F(SongRemovalTest, ADownloadOfARemovedSongEnds)
{
    library.library().find(QStringLiteral("b")).set(keys::Location, QStringLiteral("http://h/b.mp3"));
    library.setSource(SourceType::Library);
    downloads.downloadSongAtIndex(1);
    remove({1});
    EXPECT_TRUE(loader.last().isCancelled());
    EXPECT_FALSE(downloads.isRunning(QStringLiteral("b")));
}

TEST_F(SongRemovalTest, FromAPlaylistTheyGoWithoutAQuestion)
{
    struct Case {
        const char* before;
        QList<int> rows;
        const char* after;
        int selected;
    };
    const Case cases[] = {
        {"a b c d", {1}, "a c d", 1},
        {"a b c d", {0, 2}, "b d", 0},
        {"a b c d", {3}, "a b c", 2},
        {"a", {0}, "", -1},
        {"a b c a", {2}, "a b a", 2}, // a song that stands twice keeps its
                                      // places
        {"a b c a", {0}, "b c a", 0},
        {"a b c a", {3}, "a b c", 2},
    };
    for (const auto& [before, rows, after, selected] : cases) {
        showPlaylist(before);
        remove(rows);
        EXPECT_EQ(library.playlists().last().strings(keys::Tracks), names(after)) << before;
        EXPECT_EQ(shown(), QString::fromUtf8(after));
        EXPECT_EQ(table.selectedRows().value(0, -1), selected) << before;
        EXPECT_LE(table.selectedRows().size(), 1) << before;
    }
    EXPECT_EQ(library.library().size(), 4);
    EXPECT_TRUE(alerts.shown.isEmpty());
    EXPECT_TRUE(trash.files.isEmpty());
}

TEST_F(SongRemovalTest, ThePlayingPlaylistGoesOnAsShown)
{
    showPlaylist("a b c d");
    controller.playing = library.items()[1];
    remove({2});
    EXPECT_TRUE(controller.next.isEmpty()) << "it plays from elsewhere";
    EXPECT_EQ(controller.stops, 0);
    controller.source = int(SourceType::Playlists);
    controller.uid = library.currentUID();
    remove({0});
    EXPECT_EQ(controller.next.size(), 2);
    EXPECT_EQ(controller.stops, 0);
    remove({0});
    EXPECT_EQ(controller.stops, 1);
}

TEST_F(SongRemovalTest, ElsewhereAndWithNothingSelectedItBeeps)
{
    library.setSource(SourceType::Library);
    remove({});
    library.addPlaylistWithTitle(QStringLiteral("found"), {song(QStringLiteral("x"))}, 1);
    library.setSource(SourceType::RecentSearches);
    library.setCurrentPlaylistIndex(0);
    remove({0});
    EXPECT_EQ(desktop.calls, QStringList(2, QStringLiteral("beep")));
    EXPECT_EQ(shown(), QStringLiteral("x"));
    EXPECT_TRUE(alerts.shown.isEmpty());
}

TEST_F(SongRemovalTest, BrokenLinksAreCleanedUpAndFilesStay)
{
    showPlaylist("a b c");
    for (const char* id : {"a", "d"})
        library.fileNotFound(library.library().find(QString::fromUtf8(id)));
    removal.removeBrokenLinks();
    QCoreApplication::processEvents();
    EXPECT_EQ(shown(), QStringLiteral("b c"));
    EXPECT_EQ(library.library().size(), 2);
    EXPECT_EQ(library.playlists()[0].strings(keys::Tracks), names("b c"));
    EXPECT_TRUE(trash.files.isEmpty());
}

TEST_F(SongRemovalTest, EachRemovalIsTakenBackAndDoneAgain)
{
    struct Case {
        SourceType source;
        QList<int> rows;
        bool brokenLinks;
        const char* undo;
    };
    const Case cases[] = {
        {SourceType::Library, {0, 1, 3}, false, "Undo remove 3 songs"},
        {SourceType::Library, {2}, false, "Undo remove 1 song"},
        {SourceType::Playlists, {0, 2, 4}, false, "Undo remove 3 songs from the playlist"},
        {SourceType::Playlists, {3}, false, "Undo remove 1 song from the playlist"},
        {SourceType::Library, {0, 2}, true, "Undo remove 2 songs"},
    };
    library.library().find(QStringLiteral("b")).set(keys::Favorite, true);
    showPlaylist("b d");
    showPlaylist("a b a c a");
    QList<QStringList> states{state()};
    for (const Case& test : cases) {
        library.setSource(test.source);
        if (test.source == SourceType::Playlists)
            library.setCurrentPlaylistIndex(1);
        if (test.brokenLinks) {
            for (const char* id : {"a", "c"})
                library.library().find(QString::fromUtf8(id)).set(keys::BrokenLink, true);
            removal.removeBrokenLinks();
        } else {
            remove(test.rows);
        }
        EXPECT_EQ(undo.undoText(), QString::fromUtf8(test.undo));
        const QStringList removed = state();
        EXPECT_NE(removed, states.first());
        for (int round = 0; round < 2; ++round) {
            undo.undo();
            EXPECT_EQ(state(), states.first()) << test.undo;
            EXPECT_EQ(table.selectedRows(), test.rows) << test.undo;
            EXPECT_EQ(undo.redoText(), QString::fromUtf8(test.undo).replace(0, 4, QStringLiteral("Redo")));
            undo.redo();
            QCoreApplication::processEvents();
            EXPECT_EQ(state(), removed) << test.undo;
        }
        undo.undo();
    }
    EXPECT_TRUE(trash.files.isEmpty());

    // One upon another, and then all the way back.
    library.setSource(SourceType::Library);
    for (int round = 0; round < 3; ++round) {
        states.append(state());
        remove({0});
    }
    for (int round = 0; round < 3; ++round) {
        undo.undo();
        EXPECT_EQ(state(), states.takeLast());
    }
    remove({3});
    EXPECT_EQ(undo.redoText(), QString()) << "something else was done since";
    library.waitForSaves();
    EXPECT_EQ(LibraryFile(path(QStringLiteral("Library.zib"))).load()->library.size(), 3);
}

TEST_F(SongRemovalTest, WhatTheTrashHasNoMoreIsTold)
{
    library.setSource(SourceType::Library);
    remove({0, 1, 2});
    trash.files.remove(path(QStringLiteral("b")));
    location(QStringLiteral("c")); // somebody else's file has its place
    alerts.shown.clear();
    undo.undo();
    EXPECT_EQ(state(), (QStringList{QStringLiteral("a"), QStringLiteral("b lost"), QStringLiteral("c"),
                                    QStringLiteral("d")}));
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(alerts.shown[0].messageText,
              QStringLiteral("2 files could not be brought back from the trash."));
    QStringList lost = alerts.shown[0].informativeText.split(QLatin1Char('\n'));
    lost.sort();
    EXPECT_EQ(lost, (QStringList{path(QStringLiteral("b")), path(QStringLiteral("c"))}));
    EXPECT_TRUE(trash.files.contains(path(QStringLiteral("c"))));
}

TEST_F(SongRemovalTest, ASongThatCameInAgainStaysAndTheOldestRemovalsAreForgotten)
{
    showPlaylist("a b");
    library.setSource(SourceType::Library);
    remove({0, 1});
    library.library().insert(QStringLiteral("a"), song(QStringLiteral("a"), {{keys::Favorite, true}}));
    library.addObjects({library.library().find(QStringLiteral("c"))}, 0);
    undo.undo();
    EXPECT_TRUE(library.library().find(QStringLiteral("a")).boolean(keys::Favorite));
    EXPECT_EQ(library.playlists()[0].strings(keys::Tracks), names("a b c"));

    const int more = int(UndoStack::depth) + 1;
    for (int number = 0; number < more; ++number)
        library.library().insert(QStringLiteral("x%1").arg(number), song(QStringLiteral("x%1").arg(number)));
    library.reloadData();
    for (int number = 0; number < more; ++number)
        remove({4});
    for (int number = 0; number < more; ++number)
        undo.undo();
    EXPECT_EQ(library.library().size(), 4 + more - 1);
    EXPECT_EQ(undo.undoText(), QString());
}

} // namespace
} // namespace zib
