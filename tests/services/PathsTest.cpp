// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a song stored where nobody looks for it, an address's name and extension misread.
#include "platform/SettingsKeys.h"
#include "records/PropertyValue.h"
#include "services/utilities/PathUtilities.h"
#include "services/utilities/SongPaths.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QDir>

#include <gtest/gtest.h>

namespace zib {
namespace {

TEST(PathUtilities, TakesPathsApart)
{
    struct Case {
        const char* path;
        const char* last;
        const char* extension;
        const char* withoutExtension;
    };
    const Case cases[] = {
        {"", "", "", ""},
        {"/", "/", "", "/"},
        {"///", "/", "", "/"},
        {"a", "a", "", "a"},
        {"/a/b.mp3", "b.mp3", "mp3", "/a/b"},
        {"/a/b.mp3/", "b.mp3", "mp3", "/a/b"},
        {"/a.b/c", "c", "", "/a.b/c"},
        {"a.b.mp3", "a.b.mp3", "mp3", "a.b"},
        {"a..mp3", "a..mp3", "mp3", "a."},
        {".mp3", ".mp3", "", ".mp3"},
        {"/x/.mp3", ".mp3", "", "/x/.mp3"},
        {"a.", "a.", "", "a."},
        {"http://h/x/My%20Song.mp3", "My%20Song.mp3", "mp3", "http://h/x/My%20Song"},
        {"http://h/s.mp3?k=1", "s.mp3?k=1", "mp3?k=1", "http://h/s"},
        {"http://host.org", "host.org", "org", "http://host"},
    };
    for (const Case& entry : cases) {
        const QString path = QString::fromUtf8(entry.path);
        EXPECT_EQ(lastPathComponent(path).toStdString(), entry.last) << entry.path;
        EXPECT_EQ(pathExtension(path).toStdString(), entry.extension) << entry.path;
        EXPECT_EQ(stringByDeletingPathExtension(path).toStdString(), entry.withoutExtension) << entry.path;
    }
}

TEST(PathUtilities, JoinsWithOneSlash)
{
    const char* cases[][3] = {
        {"/a", "b", "/a/b"}, {"/a/", "b", "/a/b"}, {"/a//", "//b", "/a/b"}, {"/", "b", "/b"}, {"", "b", "b"},
        {"/a/", "", "/a"},   {"", "", ""},         {"a", "b/c", "a/b/c"},
    };
    for (const auto& [path, component, joined] : cases)
        EXPECT_EQ(stringByAppendingPathComponent(QString::fromUtf8(path), QString::fromUtf8(component))
                      .toStdString(),
                  joined);
}

TEST(PathUtilities, FindsTheFileOfAnAddress)
{
    // The third is no character to the toolkit, and a name to the file system all the same.
    for (const char* const path : {"/a b/c#d?e%41;f\\g:h.mp3", "/歌/ö.mp3", "/\xEF\xB7\xAB.mp3"})
        EXPECT_EQ(pathOfFileUrl(fileUrlString(QString::fromUtf8(path))).toStdString(), path);
    const std::pair<const char*, const char*> cases[] = {
        {"file:///a", "/a"},
        {"FILE:/a%20b", "/a b"},
        {"file://localhost/a", "/a"},
        {"file:///a%b", "/a%b"},
        {"file:///a?b", "/a"},
        {"file:///a#b", "/a"},
        {"file:///ö", "/ö"},
        {"file:///a%00b", ""},
        {"file:a", ""},
        {"file://localhost", ""},
        {"http://h/a", ""},
        {"/a", ""},
        {"", ""},
    };
    for (const auto& [address, path] : cases)
        EXPECT_EQ(pathOfFileUrl(QString::fromUtf8(address)).toStdString(), path) << address;
}

TEST(SongPaths, LayTracksOutByArtistAndAlbum)
{
    struct Case {
        const char* artist;
        const char* album;
        const char* name;
        const char* location;
        const char* path;
    };
    const Case cases[] = {
        {"AC/DC", nullptr, "Song", "http://h/a.mp3", "/music/AC-DC/Unknown Album/Song.mp3"},
        {"AC/DC", nullptr, "Song", "http://h/a", "/music/AC-DC/Unknown Album/Song."},
        {nullptr, "A/B/", "Song", "http://h/a.ogg", "/music/Unknown Artist/A-B-/Song.mp3"},
        {"", "", "Song", nullptr, "/music/Unknown Artist/Unknown Album/Song."},
        {"A", "B", "C/D", "http://h/a.mp3?k=1", "/music/A/B/C/D.mp3"},
        {"A", "B", "C.mp3", "a.wav", "/music/A/B/C.mp3.mp3"},
    };
    FakeUserDefaults defaults({{settings::MusicFolder, QStringLiteral("/music/")}});
    const SongPaths paths(defaults);
    for (const Case& entry : cases) {
        Record track = Record::make();
        const std::pair<RecordKey, const char*> fields[] = {{keys::Artist, entry.artist},
                                                            {keys::Album, entry.album},
                                                            {keys::Name, entry.name},
                                                            {keys::Location, entry.location}};
        for (const auto& [key, text] : fields)
            if (text != nullptr)
                track.set(key, QString::fromUtf8(text));
        EXPECT_EQ(paths.filePath(track).toStdString(), entry.path);
    }
}

TEST(SongPaths, FollowTheSettingAndExpandTheHome)
{
    FakeUserDefaults defaults({{settings::MusicFolder, QStringLiteral("~/Music")}});
    const SongPaths paths(defaults);
    const Record track = Record::make({{keys::Artist, QStringLiteral("A")}});
    EXPECT_EQ(paths.artistPath(track), QDir::homePath() + QStringLiteral("/Music/A"));
    defaults.setValue(settings::MusicFolder, QStringLiteral("/x~"));
    EXPECT_EQ(paths.artistPath(track), QStringLiteral("/x~/A"));
    defaults.setValue(settings::MusicFolder, QStringLiteral("~"));
    EXPECT_EQ(paths.musicFolder(), QDir::homePath());
}

} // namespace
} // namespace zib
