// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: another song's cover or names beside the one that plays, a service asked twice for what is known, a
// picture that was never there.
#include "tests/controller/ControllerFixture.h"

namespace zib {
namespace {

QByteArray information(const char* artist, const char* name, const char* picture = "")
{
    return QByteArray("<lfm><track><name>") + name + "</name><artist><name>" + artist +
           "</name></artist><album><image/><image>" + picture + "</image></album></track></lfm>";
}

class NowPlayingDisplayTest : public ControllerFixture {
  protected:
    NowPlayingDisplayTest() { defaults.setValue(settings::MusicInfoHost, QStringLiteral("info.example")); }

    std::size_t requests() const { return urlLoader.exchanges.size(); }
    QByteArray lastAddress() const { return urlLoader.last().request.url; }
    void answerWithPicture(const char* address, const QByteArray& file)
    {
        urlLoader.last().reply(information("Artist", "Song", address));
        ASSERT_EQ(lastAddress(), address);
        urlLoader.last().reply(file);
    }
};

TEST_F(NowPlayingDisplayTest, ShowsTheServicesNamesAndPicture)
{
    showAsSearch({localSong(1)});
    play(0);
    EXPECT_EQ(window.tickerText, QStringLiteral("Artist - Song 1")) << "at once";
    EXPECT_EQ(window.artwork, Artwork::Standard);
    ASSERT_EQ(requests(), 1U);
    EXPECT_TRUE(lastAddress().contains("artist=Artist&track=Song%201"));
    urlLoader.last().reply(information("The Artist", "Song No. 1", "http://covers.example/1"));
    EXPECT_EQ(window.tickerText, QStringLiteral("The Artist - Song No. 1"));
    EXPECT_EQ(window.tickerHeader, QStringLiteral("Now Playing"));
    EXPECT_EQ(status(), QStringLiteral("Playing from disk"));
    ASSERT_EQ(lastAddress(), "http://covers.example/1");
    EXPECT_TRUE(window.artworkPicture.isEmpty());
    urlLoader.last().reply("picture");
    EXPECT_EQ(window.artworkPicture, "picture");
    ASSERT_NE(queue().songInformation(), nullptr);
    EXPECT_EQ(queue().songInformation()->name(), QStringLiteral("Song No. 1"));

    queue().stop();
    EXPECT_EQ(window.artwork, Artwork::SearchService);
    EXPECT_TRUE(window.artworkPicture.isEmpty());
    EXPECT_EQ(queue().songInformation(), nullptr);
}

TEST_F(NowPlayingDisplayTest, TheSameSongAgainAsksNothing)
{
    showAsSearch({localSong(1), localSong(2, {{keys::Name, QStringLiteral("Song 1")}}), localSong(3)});
    play(0);
    answerWithPicture("http://covers.example/1", "picture");
    play(1);
    EXPECT_EQ(requests(), 2U);
    EXPECT_EQ(window.artworkPicture, "picture");
    EXPECT_EQ(window.tickerText, QStringLiteral("Artist - Song"));
    play(2);
    EXPECT_EQ(requests(), 3U);
}

TEST_F(NowPlayingDisplayTest, APictureStaysWithinItsAlbumOnly)
{
    showAsSearch({localSong(1), localSong(2), localSong(3, {{keys::Album, QStringLiteral("Other")}})});
    play(0);
    answerWithPicture("http://covers.example/1", "picture");
    play(1);
    EXPECT_EQ(window.artworkPicture, "picture");
    urlLoader.last().reply(information("Artist", "Song 2", "http://covers.example/1"));
    EXPECT_EQ(requests(), 3U) << "not fetched again";
    EXPECT_EQ(window.artworkPicture, "picture");
    play(2);
    EXPECT_EQ(window.artworkPicture, "");
    EXPECT_EQ(window.artwork, Artwork::Standard);
}

TEST_F(NowPlayingDisplayTest, WithoutAPictureTheStandardOneStands)
{
    const std::function<void()> faults[] = {
        [this] { urlLoader.last().reply(information("Artist", "Song")); },
        [this] { urlLoader.last().reply("no XML"); },
        [this] { urlLoader.last().fail(QStringLiteral("The line is dead")); },
        [this] {
            urlLoader.last().reply(information("Artist", "Song", "http://covers.example/x"));
            urlLoader.last().reply("not found", 404);
        },
        [this] {
            urlLoader.last().reply(information("Artist", "Song", "http://covers.example/y"));
            urlLoader.last().fail(QStringLiteral("The line is dead"));
        },
        [this] {
            urlLoader.refuses = true; // such an address
            urlLoader.last().reply(information("Artist", "Song", "ftp://covers.example/z"));
            urlLoader.refuses = false;
        },
    };
    showAsSearch({localSong(1), localSong(2)});
    int row = 0;
    for (const auto& fault : faults) {
        play(row);
        row = 1 - row;
        ASSERT_TRUE(urlLoader.last().isRunning());
        fault();
        EXPECT_EQ(window.artwork, Artwork::Standard);
        EXPECT_TRUE(window.artworkPicture.isEmpty());
        EXPECT_EQ(window.tickerHeader, QStringLiteral("Now Playing"));
    }
    EXPECT_TRUE(alerts.shown.isEmpty());
}

TEST_F(NowPlayingDisplayTest, WhatComesLateForAnotherSongIsDropped)
{
    showAsSearch({localSong(1), localSong(2, {{keys::Album, QStringLiteral("Other")}})});
    play(0);
    urlLoader.last().reply(information("Artist", "Song 1", "http://covers.example/1"));
    FakeUrlExchange& latePicture = urlLoader.last();
    play(1);
    FakeUrlExchange& lateInformation = urlLoader.last();
    latePicture.reply("picture");
    EXPECT_TRUE(window.artworkPicture.isEmpty());
    queue().stop();
    lateInformation.reply(information("Artist", "Song 2"));
    EXPECT_EQ(window.tickerHeader, QStringLiteral("Powered by"));
}

TEST_F(NowPlayingDisplayTest, OfflineItAsksNobody)
{
    controller->disconnectedFromInternetNotification();
    showAsSearch({localSong(1)});
    play(0);
    EXPECT_EQ(requests(), 0U);
    EXPECT_EQ(window.tickerText, QStringLiteral("Artist - Song 1"));
    EXPECT_EQ(window.artwork, Artwork::Standard);
    EXPECT_EQ(status(), QStringLiteral("Playing from disk"));
}

TEST_F(NowPlayingDisplayTest, WhileASongIsAwaitedNobodySaysThatItStreams)
{
    http.onOpen = nullptr;
    showAsSearch({webSong(1)});
    play(0);
    ASSERT_TRUE(eventually([&] { return status() == QStringLiteral("Buffering..."); }));
    urlLoader.last().reply(information("Artist", "Song 1"));
    EXPECT_EQ(status(), QStringLiteral("Buffering..."));
}

TEST_F(NowPlayingDisplayTest, AnEditedSongIsAskedAboutAnew)
{
    showAsSearch({localSong(1)});
    play(0);
    urlLoader.last().reply(information("Artist", "Song 1"));
    Record edited = queue().nowplayingTrack().copy();
    edited.set(keys::Name, QStringLiteral("Renamed"));
    queue().updateNowplayingTrack(edited);
    EXPECT_EQ(window.tickerText, QStringLiteral("Artist - Renamed"));
    EXPECT_TRUE(lastAddress().contains("track=Renamed"));
}

} // namespace
} // namespace zib
