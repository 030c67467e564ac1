// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: iTunes songs under a wrong id or without their counts, podcasts and films among the songs, a library
// that is not found or not readable, a removal that takes the wrong songs.
#include "library/ITunesImporter.h"
#include "library/RVDataManager.h"
#include "records/PropertyValue.h"
#include "services/utilities/StringUtilities.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeClock.h"
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

QByteArray plist(const QByteArray& content)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>" + content +
           "</dict></plist>";
}

QByteArray tracks(const QByteArray& content)
{
    return plist("<key>Major Version</key><integer>1</integer><key>Tracks</key><dict>" + content + "</dict>");
}

class ITunesImporterTest : public testing::Test {
  protected:
    ITunesImporterTest()
        : home_(qgetenv("HOME"))
    {
        qputenv("HOME", disk_.path().toUtf8());
    }
    ~ITunesImporterTest() override { qputenv("HOME", home_); }

    void write(const char* name, const QByteArray& content)
    {
        const QString path = disk_.filePath(text(name));
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    /// Whether a library was found.
    bool merge()
    {
        std::optional<bool> result;
        const auto connection = QObject::connect(&manager_.iTunesImporter(), &ITunesImporter::finished,
                                                 &manager_, [&result](int, bool found) { result = found; });
        manager_.mergeLibraryWithITunesLibrary();
        while (!result)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QObject::disconnect(connection);
        return *result;
    }
    Record record(const char* location)
    {
        return manager_.library().find(md5HexDigest(text(location)).left(16));
    }

    QByteArray home_;
    QTemporaryDir disk_;
    FakeUserDefaults defaults_;
    FakeAlerts alerts_;
    FakeClock clock_;
    FakeLibraryView view_;
    RVDataManager manager_{defaults_, alerts_, clock_, view_, disk_.filePath(text("l.zib"))};
};

constexpr const char* standardPlace = "Music/iTunes/iTunes Music Library.xml";

TEST_F(ITunesImporterTest, SongsComeInByReferenceAndGoAgain)
{
    const char* const full = "file://localhost/Users/a/M%C3%BCsic/%E6%AD%8C.mp3";
    write(standardPlace,
          tracks("<key>1</key><dict><key>Track ID</key><integer>1</integer>"
                 "<key>Name</key><string>歌 &amp; more</string><key>Artist</key><string>A</string>"
                 "<key>Album</key><string>B</string><key>Genre</key><string>G</string>"
                 "<key>Total Time</key><integer>252999</integer>"
                 "<key>Play Count</key><integer>12</integer>"
                 "<key>Play Date UTC</key><date>2010-05-04T03:02:01Z</date>"
                 "<key>Location</key><string>" +
                 QByteArray(full) +
                 "</string></dict>"
                 "<key>2</key><dict><key>Location</key><string>file://localhost/b</string></dict>"
                 "<key>3</key><dict><key>Podcast</key><true/><key>Location</key>"
                 "<string>file://localhost/p</string></dict>"
                 "<key>4</key><dict><key>Movie</key><true/><key>Location</key>"
                 "<string>file://localhost/m</string></dict>"
                 "<key>5</key><dict><key>Name</key><string>Only in the cloud</string></dict>"));
    manager_.library().insert(text("own"), song(text("own")));
    ASSERT_TRUE(merge());

    EXPECT_EQ(manager_.library().size(), 3);
    const QString id = md5HexDigest(text(full)).left(16);
    EXPECT_EQ(record(full),
              Record::make({{keys::Id, id},
                            {keys::Name, text("歌 & more")},
                            {keys::Artist, text("A")},
                            {keys::Album, text("B")},
                            {keys::Genre, text("G")},
                            {keys::Duration, 252},
                            {keys::PlayCount, 12},
                            {keys::PlayDate, QDateTime(QDate(2010, 5, 4), QTime(3, 2, 1), Qt::UTC)},
                            {keys::ITunes, true},
                            {keys::Location, text(full)}}));
    const Record bare = record("file://localhost/b");
    EXPECT_TRUE(bare.contains(keys::Duration));
    EXPECT_EQ(bare.integer(keys::Duration), 0);
    EXPECT_FALSE(bare.contains(keys::Name) || bare.contains(keys::PlayDate));

    manager_.addPlaylistWithTitle(text("P"), {bare}, 0);
    manager_.removeITunesItemsFromLibrary();
    EXPECT_EQ(manager_.library().size(), 1);
    EXPECT_TRUE(manager_.library().contains(text("own")));
    EXPECT_EQ(manager_.playlists().first().strings(keys::Tracks).size(), 1);
}

TEST_F(ITunesImporterTest, TheLibraryUsedLastIsFoundFirst)
{
    EXPECT_EQ(manager_.iTunesLibraryPath(), QString());
    EXPECT_FALSE(merge());
    write(standardPlace, "no property list");
    EXPECT_EQ(manager_.iTunesLibraryPath(), disk_.filePath(text(standardPlace)));
    EXPECT_FALSE(merge());
    write("else where/L.xml", tracks({}));
    const QByteArray elsewhere = "file://localhost" + disk_.path().toUtf8() + "/else%20where/L.xml";
    write("Library/Preferences/com.apple.iApps.plist",
          plist("<key>iTunesRecentDatabases</key><array><string>file://localhost/gone.xml</string><string>" +
                elsewhere + "</string></array>"));
    EXPECT_EQ(manager_.iTunesLibraryPath(), disk_.filePath(text("else where/L.xml")));
    EXPECT_TRUE(merge());
    EXPECT_EQ(manager_.library().size(), 0);
}

} // namespace
} // namespace zib
