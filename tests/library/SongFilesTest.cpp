// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a song that is lost, half written or written over another, a file outside the music folder touched,
// folders left behind.
#include "library/SongFiles.h"
#include "library/NewFile.h"
#include "platform/SettingsKeys.h"
#include "records/PropertyValue.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zib {
namespace {

class SongFilesTest : public testing::Test {
  protected:
    SongFilesTest() { defaults_.setValue(settings::MusicFolder, at("Music")); }

    [[nodiscard]] QString at(const char* path) const { return disk_.filePath(QString::fromUtf8(path)); }
    static Record song(const QString& artist, const QString& album, const QString& name)
    {
        return Record::make({{keys::Artist, artist},
                             {keys::Album, album},
                             {keys::Name, name},
                             {keys::Location, QStringLiteral("http://h/a.mp3")}});
    }
    static Record song(const char* artist, const char* album, const char* name)
    {
        return song(QString::fromUtf8(artist), QString::fromUtf8(album), QString::fromUtf8(name));
    }
    void put(const char* path, const QByteArray& bytes) const
    {
        QDir().mkpath(QFileInfo(at(path)).path());
        QFile file(at(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    [[nodiscard]] QByteArray content(const char* path) const
    {
        QFile file(at(path));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// All files and empty folders of the disk, hidden ones too.
    [[nodiscard]] QStringList everything() const
    {
        QStringList paths;
        QDirIterator entries(disk_.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                             QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            const QString path = entries.next();
            if (!entries.fileInfo().isDir() || QDir(path).isEmpty())
                paths.append(path.mid(disk_.path().size() + 1));
        }
        paths.sort();
        return paths;
    }
    static QStringList paths(std::initializer_list<const char*> list)
    {
        QStringList result;
        for (const char* path : list)
            result.append(QString::fromUtf8(path));
        return result;
    }

    QTemporaryDir disk_;
    FakeUserDefaults defaults_;
    SongFiles files_{defaults_};
};

TEST_F(SongFilesTest, WritesASongOnce)
{
    EXPECT_TRUE(files_.write(song("Ann", "First", "Song"), "bytes"));
    EXPECT_TRUE(files_.write(song("Ann", "First", "Song"), "other bytes"));
    EXPECT_EQ(content("Music/Ann/First/Song.mp3"), "bytes");
    // The longest name that a file can have.
    const QString longest(251, QLatin1Char('n'));
    EXPECT_TRUE(files_.write(song(longest, longest, longest), "long"));
    EXPECT_EQ(everything().size(), 2);
}

TEST_F(SongFilesTest, CopiesWhereNothingIs)
{
    const QByteArray bytes(3'000'000, 's');
    put("from/x.ogg", bytes);
    EXPECT_TRUE(files_.copy(at("from/x.ogg"), song("Ann", "First", "Song")));
    EXPECT_EQ(content("Music/Ann/First/Song.mp3"), bytes);
    put("from/y.ogg", "other");
    EXPECT_FALSE(files_.copy(at("from/y.ogg"), song("Ann", "First", "Song")));
    EXPECT_FALSE(files_.copy(at("from/missing.ogg"), song("Ann", "Second", "Song")));
    EXPECT_EQ(content("Music/Ann/First/Song.mp3"), bytes);
    EXPECT_EQ(everything(), paths({"Music/Ann/First/Song.mp3", "from/x.ogg", "from/y.ogg"}));
}

TEST_F(SongFilesTest, MovesASongAndRemovesTheFoldersThatItLeavesEmpty)
{
    struct Case {
        Record before, after;
        std::initializer_list<const char*> left;
    };
    const Case cases[] = {
        {song("Ann", "First", "Song"), song("Bob", "Other", "New"), {"Music/Bob/Other/New.mp3"}},
        {song("Ann", "First", "A/B"), song("Ann", "First", "New"), {"Music/Ann/First/New.mp3"}},
        {song("Ann", "First", "Song"), song("Ann", "First", "SONG"), {"Music/Ann/First/SONG.mp3"}},
        {song("Ann", "First", "Song"), song("Ann", "First", "Song"), {"Music/Ann/First/Song.mp3"}},
        {song("Ann", ".", "Song"), song("Ann", "First", "Song"), {"Music/Ann/First/Song.mp3"}},
        {song(".", ".", "Song"), song("Ann", "First", "Song"), {"Music/Ann/First/Song.mp3"}},
    };
    for (const auto& [before, after, left] : cases) {
        QDir(at("Music")).removeRecursively();
        ASSERT_TRUE(files_.write(before, "bytes"));
        EXPECT_TRUE(files_.checkMove(before, after));
        EXPECT_TRUE(files_.move(before, after));
        EXPECT_EQ(everything(), paths(left));
    }
}

TEST_F(SongFilesTest, FoldersWithSomethingInThemStay)
{
    ASSERT_TRUE(files_.write(song("Ann", "First", "Song"), "bytes"));
    put("Music/Ann/cover.png", "cover");
    EXPECT_TRUE(files_.move(song("Ann", "First", "Song"), song("Bob", "First", "Song")));
    EXPECT_EQ(everything(), paths({"Music/Ann/cover.png", "Music/Bob/First/Song.mp3"}));
}

TEST_F(SongFilesTest, ASongWithoutAFileMovesNothing)
{
    EXPECT_TRUE(files_.move(song("Ann", "First", "Song"), song("Bob", "First", "Song")));
    EXPECT_TRUE(files_.move(song("Ann", "First", "Song"), song("Bob", "First", "../../../out")));
    EXPECT_EQ(everything(), QStringList());
}

TEST_F(SongFilesTest, ARefusedMoveLeavesBothFiles)
{
    const Record before = song("Ann", "First", "Song");
    ASSERT_TRUE(files_.write(before, "bytes"));
    ASSERT_TRUE(files_.write(song("Bob", "First", "Song"), "another song"));
    put("Music/File", "no folder");
    QDir(disk_.path()).mkdir(QStringLiteral("outside"));
    QFile::link(at("outside"), at("Music/Leak"));
    const QStringList all = everything();
    const QString longName(5000, QLatin1Char('n'));
    const Record impossible[] = {
        song("Bob", "First", "Song"),  song("..", "..", "Song"),
        song("Leak", "First", "Song"), song("Ann", "First", "../../../../out"),
        song("File", "x", "Song"),     song(longName, longName, longName),
    };
    for (const Record& after : impossible) {
        const auto moved = files_.move(before, after);
        ASSERT_FALSE(moved);
        EXPECT_FALSE(moved.error().isEmpty());
        EXPECT_EQ(everything(), all) << moved.error().toStdString();
    }
    EXPECT_EQ(content("Music/Ann/First/Song.mp3"), "bytes");
    EXPECT_EQ(content("Music/Bob/First/Song.mp3"), "another song");

    // Nor is a file outside fetched by an edit of a song whose name reaches it.
    put("thesis.mp3", "thesis");
    EXPECT_FALSE(files_.move(song("Ann", "First", "../../../thesis"), song("Ann", "First", "New")));
    EXPECT_EQ(content("thesis.mp3"), "thesis");
}

TEST_F(SongFilesTest, NothingIsWrittenOutside)
{
    QDir(disk_.path()).mkpath(QStringLiteral("Music"));
    QDir(disk_.path()).mkpath(QStringLiteral("outside"));
    QFile::link(at("outside"), at("Music/Leak"));
    put("from.mp3", "bytes");
    const QStringList all = everything();
    for (const Record& track : {song("Ann", "First", "../../../out"), song("..", "..", "out"),
                                song("Leak", "First", "out"), song("..", "outside", "out")}) {
        EXPECT_FALSE(files_.write(track, "bytes"));
        EXPECT_FALSE(files_.copy(at("from.mp3"), track));
    }
    EXPECT_EQ(everything(), all);
}

TEST_F(SongFilesTest, AFileIsNotThereUntilItIsWhole)
{
    const QString path = at("new.mp3");
    const auto visible = [this] { return QDir(disk_.path()).entryList(QDir::Files); };
    {
        NewFile given(QFile::encodeName(path), QFile::encodeName(at("work")));
        given.write("some");
        EXPECT_EQ(visible(), QStringList());
    }
    EXPECT_EQ(everything(), QStringList());
    NewFile late(QFile::encodeName(path), QFile::encodeName(at("work")));
    late.write("late");
    put("new.mp3", "first");
    EXPECT_FALSE(late.commit());
    EXPECT_EQ(late.error(), EEXIST);
    EXPECT_EQ(content("new.mp3"), "first");
}

} // namespace
} // namespace zib
