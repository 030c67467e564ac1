// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a song's name that reaches a file outside the music folder.
#include "services/utilities/MusicFolderGuard.h"
#include "platform/SettingsKeys.h"
#include "records/PropertyValue.h"
#include "services/utilities/SongPaths.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zib {
namespace {

class MusicFolderGuardTest : public testing::Test {
  protected:
    MusicFolderGuardTest()
    {
        QDir(disk_.path()).mkpath(QStringLiteral("real/Music/Ann"));
        QDir(disk_.path()).mkpath(QStringLiteral("elsewhere"));
        QFile::link(disk_.filePath(QStringLiteral("real")), disk_.filePath(QStringLiteral("link")));
        QFile::link(disk_.filePath(QStringLiteral("elsewhere")), at(QStringLiteral("Leak")));
        QFile::link(at(QStringLiteral("Ann")), at(QStringLiteral("Alias")));
        defaults_.setValue(settings::MusicFolder, disk_.filePath(QStringLiteral("link/Music")));
    }
    [[nodiscard]] QString at(const QString& path) const
    {
        return QDir(disk_.path()).canonicalPath() + QStringLiteral("/real/Music/") + path;
    }
    [[nodiscard]] tl::expected<QString, QString> guarded(const QString& path) const
    {
        return pathInMusicFolder(SongPaths(defaults_).musicFolder(), path);
    }
    [[nodiscard]] tl::expected<QString, QString> guarded(const QString& artist, const QString& album,
                                                         const QString& name) const
    {
        const Record track = Record::make({{keys::Artist, artist},
                                           {keys::Album, album},
                                           {keys::Name, name},
                                           {keys::Location, QStringLiteral("http://h/a.mp3")}});
        return guarded(SongPaths(defaults_).filePath(track));
    }

    QTemporaryDir disk_;
    FakeUserDefaults defaults_;
};

TEST_F(MusicFolderGuardTest, NamesThatStayInside)
{
    const char* cases[][4] = {
        {"Ann", "First", "Song", "Ann/First/Song.mp3"},
        {"New", "First", "Song", "New/First/Song.mp3"}, // nothing of it exists yet
        {"Ann", "First", "A/B", "Ann/First/A/B.mp3"},
        {"-rf", "--", "-", "-rf/--/-.mp3"},
        {"Ann", "First", "a\tb\nc", "Ann/First/a\tb\nc.mp3"},
        {".", ".", "Song", "Song.mp3"},
        {"...", "..x", "...", ".../..x/....mp3"},
        {"Alias", "First", "Song", "Ann/First/Song.mp3"}, // a link that stays inside
        {"../..", "..\\..", "Song", "..-../..\\../Song.mp3"},
    };
    for (const auto& [artist, album, name, path] : cases)
        EXPECT_EQ(guarded(QString::fromUtf8(artist), QString::fromUtf8(album), QString::fromUtf8(name))
                      .value_or(QString()),
                  at(QString::fromUtf8(path)))
            << path;
}

TEST_F(MusicFolderGuardTest, NamesThatAreRefused)
{
    const QString two = QStringLiteral("..");
    const QString x = QStringLiteral("x");
    const QString longName(5000, QLatin1Char('a'));
    const QString manyBytes(100, QChar(0x20AC)); // 300 bytes
    const struct {
        QString artist, album, name;
        const char* reason;
    } cases[] = {
        {x, x, QStringLiteral("../../../../elsewhere/a"), "outside the music folder"},
        {two, two, x, "outside the music folder"},
        {QStringLiteral("Ann"), two, QStringLiteral("../Other/a"), "outside the music folder"},
        {QStringLiteral("Leak"), x, x, "outside the music folder"}, // by way of a link
        {x, x, longName, "too long"},
        {manyBytes, x, x, "too long"},
        {x, x, QStringList(3000, x).join(QLatin1Char('/')), "too long"},
        {x, x, QStringLiteral("a") + QChar(0) + QStringLiteral("b"), "No file can have the name"},
    };
    for (const auto& entry : cases) {
        const auto path = guarded(entry.artist, entry.album, entry.name);
        ASSERT_FALSE(path) << path->toStdString();
        EXPECT_TRUE(path.error().contains(QLatin1String(entry.reason))) << path.error().toStdString();
        EXPECT_LT(path.error().size(), 200);
    }
}

TEST_F(MusicFolderGuardTest, ThePathIsBelowTheFolderAndNotTheFolder)
{
    const QString folder = SongPaths(defaults_).musicFolder();
    EXPECT_EQ(guarded(folder + QStringLiteral("/Ann/")).value_or(QString()), at(QStringLiteral("Ann")));
    // By another way to the same place.
    EXPECT_EQ(guarded(at(QStringLiteral("Ann"))).value_or(QString()), at(QStringLiteral("Ann")));
    for (const QString& path :
         {folder, folder + QLatin1String("/."), folder + QLatin1String("//"), folder + QStringLiteral("al/x"),
          QStringLiteral("/etc/passwd"), QStringLiteral("Ann/First"), QString()})
        EXPECT_FALSE(guarded(path)) << path.toStdString();
    for (const QString& none : {QString(), QStringLiteral("relative")})
        EXPECT_FALSE(pathInMusicFolder(none, none + QStringLiteral("/x"))) << none.toStdString();
}

} // namespace
} // namespace zib
