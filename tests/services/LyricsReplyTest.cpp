// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: the words of another song.
#include "services/LyricsReply.h"

#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

TEST(LyricsReply, IsTakenWhenItIsAboutTheSong)
{
    const std::string refused = "refused";
    struct Case {
        const char* artist;
        const char* title;
        QByteArray result;
        std::string lyrics;
    };
    const QByteArray band = "<LyricArtist>The Band</LyricArtist>";
    const Case cases[] = {
        {"The Band", "Hello", band + "<LyricSong>Hello</LyricSong><Lyric>One\nTwo</Lyric>", "One\nTwo"},
        {"The Band", "Hello (Remastered)", band + "<LyricSong>Hello</LyricSong><Lyric>One</Lyric>", "One"},
        {"The Band", "Hello", band + "<LyricSong>Hello (Remastered)</LyricSong><Lyric>One</Lyric>", refused},
        {"The Band", "Hello", band + "<LyricSong>hello</LyricSong><Lyric>One</Lyric>", refused},
        {"The Band", "Hello", band + "<LyricSong/><Lyric>One</Lyric>", refused},
        {"the band", "Hello", band + "<LyricSong>Hello</LyricSong><Lyric>One</Lyric>", refused},
        {"The Band ", "Hello", band + "<LyricSong>Hello</LyricSong><Lyric>One</Lyric>", refused},
        {"", "Hello", "<LyricSong>Hello</LyricSong><Lyric>One</Lyric>", refused},
        {"The Band", "We are The Band", band + "<Lyric>One</Lyric>", "One"},
        {"The Band", "Hello", band + "<Lyric>One</Lyric>", refused},
        {"The Band", "Hello", band + "<LyricSong>Hello</LyricSong>", ""},
        {"A & B", "Hello",
         "<LyricArtist>A &amp; B</LyricArtist><LyricSong>Hello</LyricSong>"
         "<Lyric>&amp;quot;Hi&amp;quot; &lt;b&gt;</Lyric>",
         "\"Hi\" <b>"},
        {"The Band", "Hello", band + "<LyricArtist>Other</LyricArtist><LyricSong>Hello</LyricSong>", ""},
    };
    for (const Case& entry : cases) {
        const auto lyrics = lyricsOfReply("<GetLyricResult xmlns=\"x\">" + entry.result + "</GetLyricResult>",
                                          QString::fromUtf8(entry.artist), QString::fromUtf8(entry.title));
        EXPECT_EQ(lyrics ? lyrics->toStdString() : refused, entry.lyrics)
            << entry.artist << ", " << entry.title << ": " << entry.result.toStdString();
    }
}

TEST(LyricsReply, OfAnotherKindIsLogged)
{
    const std::pair<QByteArray, const char*> cases[] = {
        {"<error>no <b>such</b> song</error>", "<error>no <b>such</b> song</error>"},
        {"<a><GetLyricResult/></a>", "<a><GetLyricResult/></a>"},
        {"", ""},
        {"no XML", ""},
        {"<GetLyricResult><LyricArtist>cut", ""},
    };
    for (const auto& [reply, document] : cases) {
        const LogCapture log;
        EXPECT_FALSE(lyricsOfReply(reply, QString(), QString()));
        EXPECT_EQ(log.lines().last().toStdString(),
                  std::string("ERROR -- No nodes for GetLyricResult in XML: ") + document);
    }
    const LogCapture log;
    EXPECT_FALSE(lyricsOfReply(QByteArray("<a>").repeated(10'000) + QByteArray("</a>").repeated(10'000),
                               QString(), QString()));
    EXPECT_LT(log.lines().last().size(), 3000);
}

} // namespace
} // namespace zib
