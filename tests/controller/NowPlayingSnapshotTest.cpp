// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a next or previous song that can't be played or is passed over, and a list that loses its place when
// the record of the playing song is replaced.
#include "controller/NowPlayingSnapshot.h"
#include "records/PropertyValue.h"

#include <gtest/gtest.h>

#include <string_view>

namespace zib {
namespace {

/// One song a letter: f a file, w of the web, d a downloaded one of the web; in capitals its link is broken.
NowPlayingSnapshot listOf(std::string_view songs)
{
    NowPlayingSnapshot snapshot{};
    for (std::size_t row = 0; row < songs.size(); ++row) {
        const char kind = static_cast<char>(songs[row] | 0x20);
        const QString scheme = kind == 'f' ? QStringLiteral("file://") : QStringLiteral("http://");
        Record song = Record::make({{keys::Location, scheme + QStringLiteral("/song.mp3")},
                                    {keys::Index, static_cast<qint64>(row)}});
        if (kind == 'd')
            song.set(keys::Downloaded, true);
        if (kind != songs[row])
            song.set(keys::BrokenLink, true);
        snapshot.playlistItems.append(song);
    }
    return snapshot;
}

TEST(NowPlayingSnapshot, FindsTheFirstSongThatCanBePlayed)
{
    constexpr bool online = true;
    constexpr bool offline = false;
    struct Case {
        const char* songs;
        int from;
        int step;
        bool connected;
        int expected; ///< -1 for none
    };
    for (const Case& c : {
             Case{"fff", 1, 1, online, 1},
             Case{"fff", 1, -1, online, 1},
             Case{"fFDWw", 1, 1, online, 4},
             Case{"wFDWf", 3, -1, online, 0},
             Case{"fwwdf", 1, 1, offline, 3},
             Case{"fwwF", 3, -1, offline, 0},
             Case{"wDF", 0, 1, offline, -1},
             Case{"fF", 1, 1, online, -1},
             Case{"Ff", 0, -1, online, -1},
             Case{"ff", 2, 1, online, -1},
             Case{"ff", -1, -1, online, -1},
             Case{"", 0, 1, online, -1},
         }) {
        SCOPED_TRACE(testing::Message()
                     << c.songs << " from " << c.from << " by " << c.step << (c.connected ? "" : " offline"));
        const Record found = listOf(c.songs).playableFrom(c.from, c.step, c.connected);
        EXPECT_EQ(found ? found.integer(keys::Index) : -1, c.expected);
    }
}

TEST(NowPlayingSnapshot, AReplacedRecordKeepsItsPlace)
{
    NowPlayingSnapshot snapshot = listOf("fff");
    const Record stored = Record::make({{keys::Name, QStringLiteral("as stored")}});
    snapshot.track = withIndex(stored, snapshot.playlistItems[1]);
    EXPECT_EQ(snapshot.indexOfTrack(), 1);
    EXPECT_EQ(snapshot.track.string(keys::Name), QStringLiteral("as stored"));
    EXPECT_FALSE(stored.contains(keys::Index)) << "what is stored has no place";

    snapshot.track = withIndex(snapshot.playlistItems[2], snapshot.track);
    EXPECT_EQ(snapshot.indexOfTrack(), 2) << "its own place holds";
    snapshot.playlistItems.removeLast();
    EXPECT_EQ(snapshot.indexOfTrack(), -1);
}

} // namespace
} // namespace zib
