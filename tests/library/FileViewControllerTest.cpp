// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: an edit that reaches the song but not its tags or its file, one that wipes what was not edited, a
// song that points to another song's file, a love lost to an edit.
#include "library/FileViewController.h"
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeLibraryView.h"
#include "tests/fakes/FakeTagApi.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/library/Library.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

namespace zib {
namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

class Controller : public RVDataManagerDelegate {
  public:
    [[nodiscard]] Record nowplayingTrack() const override { return playing; }
    void updateNowplayingTrack(const Record& track) override { shown = track.string(keys::Name); }
    Record playing;
    QString shown;
};

class FileViewControllerTest : public testing::Test {
  protected:
    FileViewControllerTest()
    {
        defaults.setValue(settings::MusicFolder, folder.filePath(text("Music")));
        library.setDelegate(&controller);
        for (const char* id : {"a", "b"}) {
            Record track = song(text(id), {{keys::Artist, text("Ann")},
                                           {keys::Album, text("First")},
                                           {keys::Year, 1999},
                                           {keys::Favorite, true},
                                           {keys::Location, text("file:///x.mp3")}});
            const QString path = SongPaths(defaults).filePath(track);
            QDir().mkpath(QFileInfo(path).path());
            QFile file(path);
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(id);
            track.set(keys::Location, QUrl::fromLocalFile(path).toString());
            library.library().insert(text(id), track);
            tags.files[path] = {{text("composer"), text("Old")}, {text("trackTotal"), 9}};
        }
        library.setSource(SourceType::Library);
    }
    ~FileViewControllerTest() override { library.setDelegate(nullptr); }

    Record kept(const char* id) { return library.library().find(text(id)); }
    [[nodiscard]] QByteArray content(const char* path) const
    {
        QFile file(folder.filePath(text("Music/") + text(path)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] QVariantMap tagsAt(const char* path) const
    {
        return tags.files.value(folder.filePath(text("Music/") + text(path)));
    }
    void openAll() { view.open(library.items()); }
    void openFirst() { view.open({library.items()[0]}); }

    QTemporaryDir folder;
    FakeUserDefaults defaults;
    FakeAlerts alerts;
    FakeClock clock;
    FakeLibraryView tables;
    FakeTagAPIs tags;
    Controller controller;
    RVDataManager library{defaults, alerts, clock, tables, folder.filePath(QStringLiteral("Library.zib"))};
    FileViewController view{library, tags, defaults};
};

TEST_F(FileViewControllerTest, OneSong)
{
    controller.playing = library.items()[0];
    openFirst();
    SongInformation fields = view.information();
    EXPECT_EQ(fields.name, text("Song a"));
    EXPECT_EQ(fields.artist, text("Ann"));
    EXPECT_EQ(fields.year, text("1999"));
    EXPECT_EQ(fields.trackNumber, QString());
    EXPECT_EQ(fields.composer, text("Old"));
    EXPECT_EQ(fields.trackTotal, text("9"));
    EXPECT_EQ(view.save({.name = text("Nothing was typed")}), QStringList());
    EXPECT_EQ(kept("a").string(keys::Name), text("Song a"));

    fields = {.name = text("New"),
              .artist = text("Bob"),
              .album = {},
              .genre = text("Jazz"),
              .composer = text("Carl"),
              .year = text("2001"),
              .trackNumber = text("3"),
              .trackTotal = text("12"),
              .discNumber = text("1"),
              .discTotal = text("2")};
    view.textDidChange();
    EXPECT_EQ(view.save(fields), QStringList());
    const Record track = kept("a");
    EXPECT_EQ(track.string(keys::Name), text("New"));
    EXPECT_EQ(track.string(keys::Artist), text("Bob"));
    EXPECT_EQ(track.string(keys::Album), text("First")) << "an empty field changes nothing";
    EXPECT_EQ(track.string(keys::Genre), text("Jazz"));
    EXPECT_EQ(track.integer(keys::Year), 2001);
    EXPECT_EQ(track.integer(keys::Position), 3);
    EXPECT_TRUE(track.boolean(keys::Favorite));
    EXPECT_EQ(QUrl(track.string(keys::Location)).toLocalFile(),
              folder.filePath(text("Music/Bob/First/New.mp3")));
    EXPECT_EQ(content("Bob/First/New.mp3"), "a");
    EXPECT_EQ(content("Ann/First/Song a.mp3"), "");
    EXPECT_EQ(tagsAt("Ann/First/Song a.mp3"), (QVariantMap{{text("title"), text("New")},
                                                           {text("artist"), text("Bob")},
                                                           {text("genres"), QStringList{text("Jazz")}},
                                                           {text("composer"), text("Carl")},
                                                           {text("year"), 2001},
                                                           {text("track"), 3},
                                                           {text("trackTotal"), 12},
                                                           {text("disc"), 1},
                                                           {text("discTotal"), 2}}));
    EXPECT_EQ(controller.shown, text("New"));
    library.waitForSaves();
    EXPECT_EQ(
        LibraryFile(folder.filePath(text("Library.zib"))).load()->library.find(text("a")).string(keys::Name),
        text("New"));
}

TEST_F(FileViewControllerTest, SeveralSongsKeepTheirNamesAndAnEmptyYearIsZero)
{
    openAll();
    EXPECT_EQ(view.information().artist, text("Ann"));
    EXPECT_EQ(view.information().name, QString());
    view.textDidChange();
    EXPECT_TRUE(view.canChangeCover());
    EXPECT_EQ(view.cover(), QByteArray());
    EXPECT_EQ(view.save({.name = text("Same"),
                         .album = text("Second"),
                         .trackNumber = text("4"),
                         .cover = QByteArray("picture")}),
              QStringList());
    for (const char* id : {"a", "b"}) {
        EXPECT_EQ(kept(id).string(keys::Name), text("Song ") + text(id));
        EXPECT_EQ(kept(id).string(keys::Album), text("Second"));
        EXPECT_EQ(kept(id).integer(keys::Year), 0);
        EXPECT_FALSE(kept(id).contains(keys::Position));
    }
    EXPECT_EQ(content("Ann/Second/Song a.mp3"), "a");
    EXPECT_EQ(content("Ann/Second/Song b.mp3"), "b");
    EXPECT_FALSE(QFile::exists(folder.filePath(text("Music/Ann/First"))));
    EXPECT_EQ(tagsAt("Ann/First/Song b.mp3").value(text("composer")), text("Old"));
    EXPECT_EQ(tagsAt("Ann/First/Song b.mp3").value(text("cover")).toByteArray(), "picture");
}

TEST_F(FileViewControllerTest, ASongWhoseFileCannotFollowStaysAsItWas)
{
    for (const char* name : {"Song b", "../../../escaped"}) { // another song's file; outside
        openFirst();
        view.textDidChange();
        const QStringList failures = view.save({.name = text(name), .year = text("1")});
        ASSERT_EQ(failures.size(), 1);
        EXPECT_TRUE(failures[0].startsWith(text("“Song a” stays as it is. ")));
        EXPECT_EQ(kept("a").string(keys::Name), text("Song a"));
        EXPECT_EQ(kept("a").integer(keys::Year), 1999);
        EXPECT_FALSE(tagsAt("Ann/First/Song a.mp3").contains(text("year")));
        EXPECT_EQ(content("Ann/First/Song a.mp3"), "a");
        EXPECT_EQ(content("Ann/First/Song b.mp3"), "b");
    }
    EXPECT_FALSE(QFile::exists(folder.filePath(text("escaped.mp3"))));
}

TEST_F(FileViewControllerTest, ASongOfASearchKeepsWhatTheLibraryKnows)
{
    Record found = song(text("a"), {{keys::Artist, text("Ann")}, {keys::Location, text("http://h/a.mp3")}});
    library.addPlaylistWithTitle(text("found"), {found}, 1);
    library.setSource(SourceType::RecentSearches);
    library.setCurrentPlaylistIndex(0);
    openFirst();
    view.textDidChange();
    view.save({.name = text("New"), .year = text("2001")});
    EXPECT_TRUE(kept("a").boolean(keys::Favorite));
    EXPECT_EQ(kept("a").string(keys::Name), text("New"));
    EXPECT_EQ(library.items()[0].string(keys::Name), text("New"));
    EXPECT_EQ(content("Ann/First/New.mp3"), "a");
}

} // namespace
} // namespace zib
