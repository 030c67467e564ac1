// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: the wrong song after the end, after next and after back; plays counted wrongly; a window that says
// something else than what is the case.
#include "tests/controller/ControllerFixture.h"

namespace zib {
namespace {

using PlaybackQueueTest = ControllerFixture;

void expectIdle(const FakeMainWindow& window)
{
    EXPECT_FALSE(window.playing);
    EXPECT_EQ(window.tickerHeader, QStringLiteral("Powered by"));
    EXPECT_EQ(window.tickerText, QStringLiteral("The Echo Nest"));
    EXPECT_EQ(window.artwork, Artwork::SearchService);
    EXPECT_EQ(window.remaining, QString());
    EXPECT_EQ(window.progress, 0);
    EXPECT_FALSE(window.favoriteEnabled);
    EXPECT_FALSE(window.loaderAnimating);
    EXPECT_FALSE(window.streamingMark);
}

TEST_F(PlaybackQueueTest, AnEmptyListPlaysNothing)
{
    queue().songSelected();
    queue().nextTrack();
    queue().backTrack();
    controller->loving().addCurrentFavorite(true);
    EXPECT_FALSE(queue().snapshot());
    EXPECT_EQ(queue().nowplayingTrackIndex(), -1);
    EXPECT_EQ(queue().nowplayingSourceType(), -1);
    EXPECT_TRUE(alerts.shown.isEmpty());
    expectIdle(window);
    EXPECT_EQ(status(), QStringLiteral("http://search.example"));
}

TEST_F(PlaybackQueueTest, PlaysTheSelectedSongElseTheFirst)
{
    showAsSearch({localSong(1), localSong(2)});
    queue().playPause();
    EXPECT_EQ(playing(), 1);
    EXPECT_TRUE(window.playing);
    EXPECT_EQ(window.tickerHeader, QStringLiteral("Now Playing"));
    EXPECT_EQ(window.tickerText, QStringLiteral("Artist - Song 1"));
    EXPECT_EQ(window.artwork, Artwork::Standard);
    EXPECT_EQ(status(), QStringLiteral("Playing from disk"));
    EXPECT_TRUE(window.favoriteEnabled);

    queue().playPause();
    EXPECT_FALSE(window.playing);
    queue().playPause();
    EXPECT_TRUE(window.playing);
    EXPECT_EQ(movies.opened.size(), 1) << "pausing goes on with the same song";

    play(1);
    EXPECT_EQ(playing(), 2);
    queue().stop();
    expectIdle(window);
}

TEST_F(PlaybackQueueTest, AnotherPlaylistOfTheSameSongsChangesNothingAboutWhatPlaysNext)
{
    const QList<Record> songs{localSong(1), localSong(2), localSong(3)};
    library->setSource(SourceType::Playlists);
    library->addPlaylistWithTitle(QStringLiteral("first"), songs, 0);
    library->addPlaylistWithTitle(QStringLiteral("second"), {songs[2], songs[0]}, 0);
    library->setCurrentPlaylistIndex(0);
    play(0);
    library->setCurrentPlaylistIndex(1);
    queue().nextTrack();
    EXPECT_EQ(playing(), 2);
    queue().nextTrack();
    EXPECT_EQ(playing(), 3);
}

TEST_F(PlaybackQueueTest, ASearchKeepsThePlayAndTheLoveThatComesAfterIt)
{
    showAsSearch({localSong(1), localSong(2)});
    play(0);
    hear(50);
    queue().nextTrack();
    queue().backTrack();
    controller->loving().addCurrentFavorite(true);
    const Record kept = library->searches().first().records(keys::Tracks).first();
    EXPECT_EQ(kept.integer(keys::PlayCount), 1);
    EXPECT_TRUE(kept.boolean(keys::Favorite));
}

TEST_F(PlaybackQueueTest, CountsASongAsPlayedFromHalfOfItOn)
{
    struct Case {
        int duration;
        int heard;
        int count;
    };
    for (const Case& c : {Case{100, 49, 0}, Case{100, 50, 1}, Case{101, 50, 1}, Case{101, 49, 0}}) {
        SCOPED_TRACE(testing::Message() << c.heard << " of " << c.duration);
        library->library() = RecordTable();
        movies.duration = {c.duration, 1};
        showAsLibrary({localSong(1)});
        play(0);
        hear(c.heard);
        clock.advance(std::chrono::hours(1));
        queue().nextTrack();
        const Record kept = library->library().find(QStringLiteral("0000000000000001"));
        EXPECT_EQ(kept.integer(keys::PlayCount), c.count);
        EXPECT_EQ(kept.date(keys::PlayDate), c.count ? clock.now() : QDateTime());
        EXPECT_EQ(library->items().first().integer(keys::PlayCount), c.count) << "as shown";
    }
}

TEST_F(PlaybackQueueTest, BackCountsNoPlay)
{
    showAsLibrary({localSong(1)});
    play(0);
    hear(90);
    queue().backTrack();
    EXPECT_EQ(library->items().first().integer(keys::PlayCount), 0);
}

TEST_F(PlaybackQueueTest, CountedPlaysAreSaved)
{
    showAsLibrary({localSong(1)});
    play(0);
    hear(60);
    queue().nextTrack();
    quit();
    start();
    EXPECT_EQ(library->library().find(QStringLiteral("0000000000000001")).integer(keys::PlayCount), 1);
}

TEST_F(PlaybackQueueTest, BackGoesByTheTimeHeard)
{
    struct Case {
        int row;
        int heard;
        int expected;
    };
    for (const Case& c : {Case{1, 3, 1}, Case{1, 4, 2}, Case{0, 3, 1}, Case{0, 4, 1}}) {
        SCOPED_TRACE(testing::Message() << "row " << c.row << " after " << c.heard << " s");
        showAsSearch({localSong(1), localSong(2)});
        play(c.row);
        hear(c.heard);
        queue().backTrack();
        EXPECT_EQ(playing(), c.expected);
        EXPECT_EQ(player->currentTime(), 0);
        EXPECT_TRUE(player->isPlaying());
    }
}

TEST_F(PlaybackQueueTest, SkipsWhatCanNotBePlayed)
{
    const QList<Record> songs{localSong(1), localSong(2, {{keys::BrokenLink, true}}), webSong(3),
                              webSong(4, {{keys::Downloaded, true}, {keys::BrokenLink, true}}), localSong(5)};
    showAsSearch(songs);
    play(0);
    queue().nextTrack();
    EXPECT_EQ(playing(), 3);
    queue().backTrack();
    EXPECT_EQ(playing(), 1);

    controller->disconnectedFromInternetNotification();
    queue().nextTrack();
    EXPECT_EQ(playing(), 5);
    queue().backTrack();
    EXPECT_EQ(playing(), 1);

    showAsSearch({localSong(2, {{keys::BrokenLink, true}}), localSong(5)});
    play(1);
    queue().backTrack();
    EXPECT_FALSE(queue().snapshot()) << "nothing before it can be played";
}

TEST_F(PlaybackQueueTest, AtTheEndOfASongTheSourceDecides)
{
    const QList<Record> songs{localSong(1), localSong(2)};
    showAsSearch(songs);
    play(0);
    movies.current->reachEnd();
    EXPECT_EQ(playing(), 0) << "a search does not go on";

    defaults.setValue(settings::PlayAllSourcesContinuously, true);
    play(0);
    movies.current->reachEnd();
    EXPECT_EQ(playing(), 2) << "unless every source does";

    defaults.setValue(settings::PlayAllSourcesContinuously, false);
    showAsLibrary(songs);
    play(0);
    const int first = playing();
    movies.current->reachEnd();
    EXPECT_NE(playing(), 0) << "the library does";
    EXPECT_NE(playing(), first);
    EXPECT_TRUE(window.playing);
}

TEST_F(PlaybackQueueTest, OfflineASongOfTheWebIsRefusedWithAnAlert)
{
    showAsSearch({webSong(1), localSong(2)});
    controller->disconnectedFromInternetNotification();
    EXPECT_FALSE(window.connected);
    play(0);
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(alerts.shown[0].messageText, QStringLiteral("You are not connected to the Internet"));
    EXPECT_EQ(alerts.shown[0].informativeText,
              QStringLiteral("This computer’s Internet connection appears to be offline."));
    EXPECT_EQ(alerts.shown[0].buttons, QStringList{QStringLiteral("OK")});
    EXPECT_EQ(desktop.calls, (QStringList{QStringLiteral("bringToFront"), QStringLiteral("beep")}));
    EXPECT_FALSE(player->hasMedia());

    play(1);
    EXPECT_EQ(playing(), 2);
    EXPECT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(status(), QStringLiteral("Playing from disk"));
}

TEST_F(PlaybackQueueTest, ABrokenSongThatPlaysIsBrokenNoMore)
{
    showAsLibrary({localSong(1, {{keys::BrokenLink, true}}), localSong(2)});
    play(0);
    EXPECT_FALSE(library->library().find(QStringLiteral("0000000000000001")).contains(keys::BrokenLink));
    EXPECT_FALSE(queue().nowplayingTrack().contains(keys::BrokenLink));
    queue().nextTrack();
    EXPECT_EQ(playing(), 2) << "its place in the list is still known";
}

TEST_F(PlaybackQueueTest, ASongThatIsNotFoundIsMarkedAndTheNextOneCanBePlayed)
{
    Record lost = localSong(1);
    ASSERT_TRUE(QFile::remove(folder.filePath(QStringLiteral("1.mp3"))));
    showAsLibrary({lost, localSong(2)});
    play(0);
    EXPECT_TRUE(library->library().find(QStringLiteral("0000000000000001")).boolean(keys::BrokenLink));
    EXPECT_FALSE(window.playing);
    ASSERT_EQ(alerts.shown.size(), 1);
    play(1);
    EXPECT_EQ(playing(), 2);
}

TEST_F(PlaybackQueueTest, ProgressIsToldInWholeSecondsAndPercents)
{
    showAsSearch({localSong(1)});
    play(0);
    EXPECT_EQ(window.remaining, QStringLiteral("-0:00")) << "until the player's timer tells";
    struct Case {
        int heard;
        int percent;
        const char* elapsed;
        const char* remaining;
        bool enabled;
    };
    movies.duration = {3700, 1};
    play(0);
    for (const Case& c : {Case{0, 0, "00:00", "-1:01:40", true}, Case{37, 1, "00:37", "-1:01:03", true},
                          Case{3699, 99, "1:01:39", "-00:01", true}, Case{3700, 99, "1:01:40", "", false}}) {
        hear(c.heard);
        queue().updateProgress();
        EXPECT_EQ(window.progress, c.percent);
        EXPECT_EQ(window.elapsed, QString::fromLatin1(c.elapsed));
        EXPECT_EQ(window.remaining, QString::fromLatin1(c.remaining));
        EXPECT_EQ(window.progressEnabled, c.enabled);
    }
    queue().scanTrack(50);
    EXPECT_EQ(player->currentTime(), 1850);
}

TEST_F(PlaybackQueueTest, VolumeStepsCanLeaveTheRangeOnceButNotTwice)
{
    struct Case {
        double level;
        bool up;
        double expected;
    };
    for (const Case& c : {Case{0.5, true, 0.6}, Case{0.95, true, 1.05}, Case{1.05, true, 1.05},
                          Case{1, true, 1}, Case{0.5, false, 0.4}, Case{0.05, false, -0.05},
                          Case{-0.05, false, -0.05}, Case{0, false, 0}, Case{1.05, false, 0.95}}) {
        defaults.setValue(settings::SoundLevel, c.level);
        c.up ? queue().soundLevel().volumeUp() : queue().soundLevel().volumeDown();
        EXPECT_NEAR(defaults.real(settings::SoundLevel), c.expected, 1e-6)
            << c.level << (c.up ? " up" : " down");
    }
    showAsSearch({localSong(1)});
    play(0);
    queue().soundLevel().set(0.25);
    EXPECT_FLOAT_EQ(movies.current->volume(), 0.25F);
}

TEST_F(PlaybackQueueTest, LovingTheSongThatPlaysKeepsItInTheLibrary)
{
    showAsSearch({localSong(1), localSong(2)});
    play(0);
    controller->loving().addCurrentFavorite(true);
    EXPECT_TRUE(library->library().find(QStringLiteral("0000000000000001")).boolean(keys::Favorite));
    EXPECT_TRUE(queue().nowplayingTrack().boolean(keys::Favorite));
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(alerts.shown[0].messageText, QStringLiteral("Zib!"));
    EXPECT_EQ(
        alerts.shown[0].informativeText,
        QStringLiteral("You just loved a song. This is a good thing! The more songs you love, the better "
                       "recommendations you get."));
    EXPECT_TRUE(alerts.shown[0].showsSuppressionButton);

    controller->loving().addCurrentFavorite(false);
    EXPECT_FALSE(library->library().find(QStringLiteral("0000000000000001")).boolean(keys::Favorite));
    EXPECT_EQ(alerts.shown.size(), 1) << "only love is a good thing";
    queue().nextTrack();
    EXPECT_EQ(playing(), 2);
}

TEST_F(PlaybackQueueTest, AHeartInTheListIsAlsoTheButtonsWhenThatSongPlays)
{
    showAsSearch({localSong(1), localSong(2), localSong(3)});
    play(1);
    alerts.answers = {{.button = 0, .suppressed = true}};
    controller->loving().addFavorite(1);
    EXPECT_TRUE(window.favorite);
    EXPECT_TRUE(queue().nowplayingTrack().boolean(keys::Favorite));
    EXPECT_EQ(queue().nowplayingTrackIndex(), 1);
    controller->loving().addFavorite(0);
    EXPECT_EQ(alerts.shown.size(), 1) << "silenced";
    EXPECT_TRUE(window.favorite);
    controller->loving().addFavorite(1);
    EXPECT_FALSE(window.favorite);
    queue().nextTrack();
    EXPECT_EQ(playing(), 3);
}

TEST_F(PlaybackQueueTest, StreamsAndSaysSo)
{
    showAsSearch({webSong(1), webSong(2)});
    defaults.setValue(settings::SoundLevel, 0.5);
    play(0);
    EXPECT_EQ(window.tickerText, QStringLiteral("Artist - Song 1"));
    ASSERT_TRUE(eventually([&] { return window.streamingMark; }));
    EXPECT_TRUE(window.playing);
    EXPECT_FALSE(window.loaderAnimating);
    EXPECT_EQ(status(), QStringLiteral("Streaming..."));
    EXPECT_EQ(window.tickerHeader, QStringLiteral("Now Playing"));
    EXPECT_FLOAT_EQ(outputs.outputs().back()->volume(), 0.5F);

    controller->pause();
    EXPECT_FALSE(window.playing) << "the machine sleeps";
    controller->pause();
    EXPECT_FALSE(window.playing);
}

TEST_F(PlaybackQueueTest, AStreamThatNeverComesBuffersAndCanBeLeft)
{
    http.onOpen = nullptr;
    showAsSearch({webSong(1), localSong(2)});
    play(0);
    ASSERT_TRUE(eventually([&] { return status() == QStringLiteral("Buffering..."); }));
    EXPECT_TRUE(window.loaderAnimating);
    EXPECT_FALSE(window.streamingMark);
    play(1);
    EXPECT_FALSE(window.loaderAnimating);
    EXPECT_EQ(playing(), 2);
}

TEST_F(PlaybackQueueTest, AStreamThatFailsIsMarkedBrokenAndEndsLikeASong)
{
    http.onOpen = [](FakeHttpExchange& exchange) { exchange.fail(); };
    showAsSearch({webSong(1)});
    play(0);
    ASSERT_TRUE(eventually([&] { return !queue().snapshot(); }));
    expectIdle(window);
    ASSERT_TRUE(eventually([&] { return library->items().first().boolean(keys::BrokenLink); }));
}

} // namespace
} // namespace zib
