// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: music that is lost or left in two places when its folder moves, a setting that names a folder
// without it.
#include "library/MusicFolder.h"
#include "platform/SettingsKeys.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zib {
namespace {

void writeFile(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

class MusicFolderTest : public testing::Test {
  protected:
    MusicFolderTest()
    {
        defaults_.setValue(settings::MusicFolder, at("old/Zib Music"));
        writeFile(at("old/Zib Music/Ann/First/Song.mp3"), "song");
        QDir().mkpath(at("picked"));
    }

    QString at(const char* path) const { return disk_.filePath(QString::fromUtf8(path)); }

    QTemporaryDir disk_;
    FakeUserDefaults defaults_;
};

TEST_F(MusicFolderTest, ChangeMovesTheMusicAndStoresThePlace)
{
    ASSERT_TRUE(changeMusicFolder(defaults_, at("picked")));
    EXPECT_EQ(defaults_.string(settings::MusicFolder), at("picked/Zib Music"));
    EXPECT_EQ(contentOf(at("picked/Zib Music/Ann/First/Song.mp3")), "song");
    EXPECT_FALSE(QFile::exists(at("old/Zib Music")));
}

TEST_F(MusicFolderTest, ALinkToTheFolderIsResolved)
{
    ASSERT_TRUE(QFile::link(at("picked"), at("alias")));
    ASSERT_TRUE(changeMusicFolder(defaults_, at("alias")));
    EXPECT_EQ(defaults_.string(settings::MusicFolder), at("picked/Zib Music"));
}

TEST_F(MusicFolderTest, NothingToMoveIsNoFailure)
{
    QDir(at("old")).removeRecursively();
    ASSERT_TRUE(changeMusicFolder(defaults_, at("picked")));
    EXPECT_EQ(defaults_.string(settings::MusicFolder), at("picked/Zib Music"));
}

TEST_F(MusicFolderTest, AFailedChangeLeavesAllAsItWas)
{
    const QStringList impossible{
        at("old/Zib Music/Ann"), // into itself
        at("taken"),             // something is there already
        at("file"),              // no folder
    };
    writeFile(at("taken/Zib Music/Other.mp3"), "other");
    writeFile(at("file"), "");
    for (const QString& picked : impossible) {
        const auto moved = changeMusicFolder(defaults_, picked);
        ASSERT_FALSE(moved) << qPrintable(picked);
        EXPECT_FALSE(moved.error().isEmpty());
        EXPECT_EQ(defaults_.string(settings::MusicFolder), at("old/Zib Music"));
        EXPECT_EQ(contentOf(at("old/Zib Music/Ann/First/Song.mp3")), "song");
    }
    EXPECT_EQ(contentOf(at("taken/Zib Music/Other.mp3")), "other");
}

TEST_F(MusicFolderTest, AcrossDisksTheMusicIsCopiedAndThenRemoved)
{
    const QTemporaryDir memory(QStringLiteral("/dev/shm/zib-test-XXXXXX"));
    if (!memory.isValid())
        GTEST_SKIP() << "no second file system";
    ASSERT_TRUE(changeMusicFolder(defaults_, memory.path()));
    EXPECT_EQ(contentOf(memory.filePath(QStringLiteral("Zib Music/Ann/First/Song.mp3"))), "song");
    EXPECT_FALSE(QFile::exists(at("old/Zib Music")));
}

TEST_F(MusicFolderTest, ResetStoresTheDefaultPlaceEvenWhenTheMoveFails)
{
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", at("home").toUtf8());
    EXPECT_TRUE(resetMusicFolder(defaults_));
    EXPECT_EQ(contentOf(at("home/Music/Zib/Zib Music/Ann/First/Song.mp3")), "song");

    writeFile(at("elsewhere/Song.mp3"), "other");
    defaults_.setValue(settings::MusicFolder, at("elsewhere")); // and the default place is taken
    EXPECT_FALSE(resetMusicFolder(defaults_));
    EXPECT_EQ(defaults_.string(settings::MusicFolder), at("home/Music/Zib/Zib Music"));
    EXPECT_EQ(contentOf(at("elsewhere/Song.mp3")), "other");
    qputenv("HOME", home);
}

} // namespace
} // namespace zib
