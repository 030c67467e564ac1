// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: songs that a playlist file names and that are not found, doubled or out of order, and imported
// libraries that change what is there or come in by half.
#include "library/playlists/PlaylistImporter.h"
#include "library/FileImporter.h"
#include "library/LibraryExport.h"
#include "library/LibraryImporter.h"
#include "library/RVDataManager.h"
#include "library/playlists/PlaylistExport.h"
#include "platform/SettingsKeys.h"
#include "services/utilities/PathUtilities.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeFileMetadata.h"
#include "tests/fakes/FakeLibraryView.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/library/Library.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zib {
namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

class PlaylistImporterTest : public testing::Test {
  protected:
    PlaylistImporterTest()
    {
        defaults_.setValue(settings::MusicFolder, at("Zib Music"));
        defaults_.setValue(settings::CopyImportedFilesToLibrary, false);
        QObject::connect(
            &importer_, &PlaylistImporter::imported, &importer_,
            [this](const QString& title, const QList<Record>& tracks, const QStringList& notFound) {
                title_ = title;
                tracks_ = tracks;
                notFound_ = notFound;
            });
        QObject::connect(&importer_, &PlaylistImporter::failed, &importer_,
                         [this](const QString&, const QString& reason) { reason_ = reason; });
    }

    QString at(const char* name) const { return disk_.filePath(text(name)); }
    QString write(const char* name, const QByteArray& content)
    {
        QDir().mkpath(QFileInfo(at(name)).path());
        QFile file(at(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return at(name);
    }
    void import(const QString& path)
    {
        importer_.importPlaylists({path});
        while (importer_.isRunning())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QStringList ids() const
    {
        QStringList ids;
        for (const Record& track : tracks_)
            ids.append(track.string(keys::Id));
        return ids;
    }
    void add(const QString& id, std::initializer_list<Record::Field> fields)
    {
        manager_.library().insert(id, song(id, fields));
    }

    QTemporaryDir disk_;
    FakeUserDefaults defaults_;
    FakeAlerts alerts_;
    FakeClock clock_;
    FakeLibraryView view_;
    FakeFileMetadata metadata_;
    RVDataManager manager_{defaults_, alerts_, clock_, view_, disk_.filePath(QStringLiteral("l.zib"))};
    FileImporter files_{manager_, metadata_, defaults_};
    PlaylistImporter importer_{manager_, files_, defaults_};
    QString title_;
    QList<Record> tracks_;
    QStringList notFound_;
    QString reason_;
};

TEST_F(PlaylistImporterTest, FindsEachSongInItsWay)
{
    add(text("place"), {{keys::Location, text("http://a.example/1")}});
    add(text("path"), {{keys::Location, fileUrlString(at("ö p.mp3"))}});
    add(text("names"), {{keys::Artist, text("Björk")}, {keys::Location, text("http://a.example/2")}});
    add(text("saved"), {{keys::Artist, text("Ann")},
                        {keys::Downloaded, true},
                        {keys::Location, text("http://a.example/s.mp3")}});
    metadata_.addSound(text("new.mp3"), text("New"));
    write("lists/new.mp3", "sound");
    import(write("lists/Mine.m3u8", "http://a.example/1\n../ö p.mp3\n#EXTINF:1,BJORK - song NAMES\n/gone\n"
                                    "#EXTINF:9,Bo - Web\nhttps://a.example/web.mp3\nnew.mp3\nnew.mp3\n"
                                    "#EXTINF:1,Nobody - Nothing\n/no/where.mp3\nhttp://a.example/1\n"
                                    "../Zib Music/Ann/Unknown Album/Song saved.mp3\n"));
    EXPECT_EQ(title_, text("Mine"));
    ASSERT_EQ(tracks_.size(), 8) << qUtf8Printable(ids().join(u' '));
    EXPECT_EQ(ids().mid(0, 3), (QStringList{text("place"), text("path"), text("names")}));
    EXPECT_EQ(tracks_[3].string(keys::Name), text("Web"));
    EXPECT_EQ(tracks_[3].string(keys::Artist), text("Bo"));
    EXPECT_EQ(tracks_[3].integer(keys::Duration), 9);
    EXPECT_EQ(tracks_[4].string(keys::Name), text("New"));
    EXPECT_TRUE(tracks_[4].isSame(tracks_[5]));
    EXPECT_EQ(ids().mid(6), (QStringList{text("place"), text("saved")}));
    EXPECT_EQ(notFound_, QStringList(text("Nobody – Nothing")));

    import(write("x.jspf",
                 R"({"playlist":{"title":"T","track":[{"identifier":"urn:zib:names","title":"Else"}]}})"));
    EXPECT_EQ(title_, text("T"));
    EXPECT_EQ(ids(), QStringList(text("names")));

    for (const char* name : {"empty.m3u", "broken.xspf", "letter.txt"}) {
        reason_.clear();
        import(write(name, "#\n"));
        EXPECT_FALSE(reason_.isEmpty()) << name;
    }
    import(at("missing.m3u8"));
    EXPECT_EQ(title_, text("T")) << "nothing came in since";
}

TEST_F(PlaylistImporterTest, WhatIsExportedIsFoundAgain)
{
    QList<Record> tracks;
    for (const char* id : {"1", "2", "3"}) {
        add(text(id),
            {{keys::Artist, text("A\n/b")}, {keys::Location, text("http://a.example/") + text(id)}});
        tracks.append(manager_.library().find(text(id)));
    }
    manager_.addPlaylistWithTitle(text("L"), {tracks[2], tracks[0], tracks[1], tracks[0]}, 0);
    const Record playlist = manager_.playlists().last();
    EXPECT_FALSE(exportPlaylist(manager_, defaults_, playlist, at("l.pdf")));
    EXPECT_FALSE(exportPlaylist(manager_, defaults_, playlist, at("no/such/l.m3u8")));
    for (const char* name : {"l.m3u8", "l.xspf", "l.jspf"}) {
        ASSERT_TRUE(exportPlaylist(manager_, defaults_, playlist, at(name))) << name;
        tracks_.clear();
        import(at(name));
        EXPECT_EQ(ids(), playlist.strings(keys::Tracks)) << name;
        EXPECT_EQ(title_, text("L"));
    }
}

TEST_F(PlaylistImporterTest, ALibraryIsMergedAndReplacesNothing)
{
    LibraryContents theirs;
    const auto put = [&theirs](const char* id, const char* name, const PropertyValue& location) {
        theirs.library.insert(text(id), Record::make({{keys::Id, text("other")},
                                                      {keys::Name, text(name)},
                                                      {keys::PlayCount, 3},
                                                      {keys::Artist, 5},
                                                      {RecordKey::named(u"Unknown"), text("x")},
                                                      {keys::Location, location}}));
    };
    put("mine", "Theirs", text("http://a.example/1"));
    put("new", "New", text("http://a.example/2"));
    put("script", "Bad", text("javascript:1"));
    put("number", "Bad", 7);
    const auto list = [](int id, const char* name) {
        return Record::make({{keys::Id, id},
                             {keys::Name, text(name)},
                             {keys::Tracks, QStringList{text("new"), text("script"), text("mine")}}});
    };
    manager_.playlists().append(list(5, "Mine"));
    add(text("mine"), {{keys::Location, text("http://a.example/1")}});
    theirs.playlists = {list(5, "Theirs"), list(6, "New"), list(6, "Twice"), list(0, "Bad")};
    const QString file = at("theirs.zib");
    ASSERT_TRUE(LibraryFile(file).save(snapshotOf(theirs)));
    ASSERT_TRUE(exportLibrary(file, at("theirs.xml")));

    LibraryImporter library(manager_);
    QStringList outcome;
    QObject::connect(&library, &LibraryImporter::finished, &library, [&outcome](int songs, int playlists) {
        outcome.append(QStringLiteral("%1 %2").arg(songs).arg(playlists));
    });
    QObject::connect(&library, &LibraryImporter::failed, &library,
                     [&outcome](const QString&) { outcome.append(QStringLiteral("failed")); });
    const auto merge = [&](const QString& path) {
        library.importLibrary(path);
        while (library.isRunning())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return std::exchange(outcome, {});
    };
    QFile exported(at("theirs.xml"));
    ASSERT_TRUE(exported.open(QIODevice::ReadOnly));
    const QByteArray xml = exported.readAll();
    for (const QByteArray& bad : {xml.left(xml.size() - 40), QByteArray("<plist/>"), QByteArray()})
        EXPECT_EQ(merge(write("bad.xml", bad)), QStringList(text("failed")));
    EXPECT_EQ(merge(at("missing.xml")), QStringList(text("failed")));
    EXPECT_EQ(manager_.library().size(), 1) << "nothing half done";

    EXPECT_EQ(merge(at("theirs.xml")), QStringList(text("1 1")));
    EXPECT_EQ(manager_.library().find(text("mine")).string(keys::Name), text("Song mine"));
    const Record added = manager_.library().find(text("new"));
    EXPECT_EQ(added, Record::make({{keys::Id, text("new")},
                                   {keys::Name, text("New")},
                                   {keys::PlayCount, 3},
                                   {keys::Location, text("http://a.example/2")}}));
    ASSERT_EQ(manager_.playlists().size(), 2);
    EXPECT_EQ(manager_.playlists()[0].string(keys::Name), text("Mine"));
    EXPECT_EQ(manager_.playlists()[1].strings(keys::Tracks), (QStringList{text("new"), text("mine")}));
    EXPECT_EQ(merge(at("theirs.xml")), QStringList(text("0 0")));
}

} // namespace
} // namespace zib
