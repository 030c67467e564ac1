// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: songs that are left out, doubled or in the wrong order, loops of links, a copy that takes another
// file's place, a stop that loses what had come in.
#include "library/FileImporter.h"
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "records/PropertyValue.h"
#include "services/utilities/StringUtilities.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeFileMetadata.h"
#include "tests/fakes/FakeLibraryView.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QCoreApplication>
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

class FileImporterTest : public testing::Test {
  protected:
    FileImporterTest()
    {
        defaults_.setValue(settings::MusicFolder, at("Zib Music"));
        defaults_.setValue(settings::CopyImportedFilesToLibrary, false);
        QObject::connect(&importer_, &FileImporter::adding, &importer_,
                         [this](const QString& path) { adding_.append(path.mid(disk_.path().size() + 1)); });
        QObject::connect(&importer_, &FileImporter::finished, &importer_, [this](int added) {
            ++finished_;
            added_ = added;
        });
    }

    QString at(const char* name) const { return disk_.filePath(text(name)); }
    QString makeFile(const char* name, const QByteArray& content = "sound")
    {
        const QString path = at(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return path;
    }
    static QByteArray contentOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }
    void import(const QStringList& paths)
    {
        const int before = finished_;
        importer_.addFiles(paths);
        while (finished_ == before)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    Record record(const QString& path) { return manager_.library().find(md5HexDigest(path).left(16)); }

    QTemporaryDir disk_;
    FakeUserDefaults defaults_;
    FakeAlerts alerts_;
    FakeClock clock_;
    FakeLibraryView view_;
    FakeFileMetadata metadata_;
    RVDataManager manager_{defaults_, alerts_, clock_, view_, at("l.zib")};
    FileImporter importer_{manager_, metadata_, defaults_};
    QStringList adding_;
    int finished_ = 0;
    int added_ = -1;
};

TEST_F(FileImporterTest, ARecordHasWhatTheFileTellsAndNothingElse)
{
    FileAttributes full;
    full.mediaTypes = {soundMedia};
    full.authors = {text("Björk"), text("Someone")};
    full.album = text("Début");
    full.title = text("Human Behaviour");
    full.musicalGenre = text("Pop");
    full.recordingYear = 1993;
    full.durationSeconds = 252.99;
    full.audioTrackNumber = 1;
    metadata_.files.insert(text("a b é.mp3"), full);
    FileAttributes bare;
    bare.mediaTypes = {soundMedia};
    metadata_.files.insert(text("bare.ogg"), bare);

    const QString path = makeFile("a b é.mp3");
    const QString barePath = makeFile("bare.ogg");
    import({path, barePath});

    const auto id = [](const QString& of) { return md5HexDigest(of).left(16); };
    EXPECT_EQ(record(path), Record::make({{keys::Id, id(path)},
                                          {keys::Artist, text("Björk")},
                                          {keys::Album, text("Début")},
                                          {keys::Name, text("Human Behaviour")},
                                          {keys::Genre, text("Pop")},
                                          {keys::Year, 1993},
                                          {keys::Duration, 252},
                                          {keys::Position, 1},
                                          {keys::Location, QString(text("file://") + disk_.path() +
                                                                   text("/a%20b%20%C3%A9.mp3"))}}));
    EXPECT_EQ(record(barePath), Record::make({{keys::Id, id(barePath)},
                                              {keys::Location, QString(text("file://") + barePath)}}));
    EXPECT_EQ(added_, 2);
}

TEST_F(FileImporterTest, FoldersAreWalkedDepthFirstAndLoopsEnd)
{
    QStringList expected;
    for (const char* const name :
         {"music/a/1.mp3", "music/a/deep/er/2.mp3", "music/b.mp3", "music/z/9.mp3"}) {
        metadata_.addSound(QFileInfo(makeFile(name)).fileName(), text(name));
        expected.append(text(name));
    }
    makeFile("music/a/cover.jpg");
    makeFile("music/.hidden");
    QFile::link(at("music"), at("music/a/round"));
    QFile::link(at("music/a"), at("music/y")); // reached a second time
    QFile::link(at("nowhere"), at("music/dangling.mp3"));
    metadata_.addSound(text("first.mp3"), text("First"));
    makeFile("first.mp3");

    import({at("first.mp3"), at("missing.mp3"), at("music")});
    EXPECT_EQ(adding_, QStringList(text("first.mp3")) + expected);
    EXPECT_EQ(manager_.library().size(), 5);
}

TEST_F(FileImporterTest, ManyFilesComeInOrderWhileTheEventLoopTurns)
{
    QStringList expected;
    for (int number = 0; number < 1000; ++number) {
        const QByteArray name = "many/" + QByteArray::number(10000 + number) + ".mp3";
        metadata_.addSound(QFileInfo(makeFile(name.constData())).fileName(), text(name.constData()));
        expected.append(text(name.constData()));
    }
    int turns = 0;
    int mostDone = 0;
    QObject::connect(&importer_, &FileImporter::progressed, &importer_, [&](int done, int total) {
        ++turns;
        EXPECT_LE(done, total);
        mostDone = std::max(mostDone, done);
    });
    import({at("many")});
    EXPECT_EQ(adding_, expected);
    EXPECT_EQ(mostDone, 1000);
    EXPECT_GE(turns, 10);
}

TEST_F(FileImporterTest, ASecondImportForgetsWhatOnlyTheLibraryKnew)
{
    metadata_.addSound(text("a.mp3"), text("A"));
    const QString path = makeFile("a.mp3");
    import({path});
    Record loved = record(path);
    loved.set(keys::Favorite, true);
    loved.set(keys::PlayCount, 7);
    import({path, path});
    EXPECT_EQ(manager_.library().size(), 1);
    EXPECT_FALSE(record(path).contains(keys::Favorite));
    EXPECT_FALSE(record(path).contains(keys::PlayCount));
}

TEST_F(FileImporterTest, CopiesGoIntoTheMusicFolderAndNeverOverAnotherFile)
{
    defaults_.setValue(settings::CopyImportedFilesToLibrary, true);
    metadata_.addSound(text("one.flac"), text("Same"));
    metadata_.addSound(text("two.flac"), text("Same"));
    metadata_.addSound(text("evil.mp3"), text("../../../evil"));
    makeFile("one.flac", "one");
    makeFile("two.flac", "two");
    makeFile("evil.mp3");
    import({at("one.flac"), at("two.flac"), at("evil.mp3")});

    const QString copy = at("Zib Music/Unknown Artist/Unknown Album/Same.mp3");
    EXPECT_EQ(contentOf(copy), "one");
    EXPECT_EQ(QUrl(record(copy).string(keys::Location)).toLocalFile(), copy);
    EXPECT_EQ(manager_.library().size(), 2); // what could not be copied still has its place
    EXPECT_FALSE(QFile::exists(at("evil.mp3.mp3")));
    EXPECT_FALSE(QFile::exists(at("Zib Music/../evil.mp3.mp3")));

    // The music folder itself: each file is at its place already.
    metadata_.addSound(text("Same.mp3"), text("Same"));
    import({at("Zib Music")});
    EXPECT_EQ(contentOf(copy), "one");
    EXPECT_EQ(manager_.library().size(), 2);
}

TEST_F(FileImporterTest, WhatCameInBeforeAStopStays)
{
    for (int number = 0; number < 500; ++number) {
        const QByteArray name = "many/" + QByteArray::number(number) + ".mp3";
        metadata_.addSound(QFileInfo(makeFile(name.constData())).fileName(), text("x"));
    }
    QObject::connect(&importer_, &FileImporter::progressed, &importer_, [this] { importer_.stop(); });
    import({at("many")});
    EXPECT_GT(added_, 0);
    EXPECT_LT(added_, 500);
    EXPECT_EQ(manager_.library().size(), added_);

    importer_.addFiles({at("many")});
    importer_.addFiles({at("many")}); // waits, and is forgotten
    importer_.stopNow();
    EXPECT_FALSE(importer_.isRunning());
    EXPECT_EQ(finished_, 2);
}

} // namespace
} // namespace zib
