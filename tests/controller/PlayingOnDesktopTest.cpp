// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a notification that nobody needs, one of a song that is over, a machine that sleeps in the middle of
// a song or is kept awake by silence.
#include "controller/PlayingOnDesktop.h"
#include "tests/controller/ControllerFixture.h"
#include "tests/fakes/FakeNotifications.h"
#include "tests/fakes/FakeSleepInhibitor.h"

namespace zib {
namespace {

class PlayingOnDesktopTest : public ControllerFixture {
  protected:
    PlayingOnDesktopTest()
    {
        desktop.active = false;
        Record bare = localSong(2);
        bare.remove(keys::Album);
        showAsSearch({localSong(1), bare, localSong(3)});
    }

    FakeNotifications notifications;
    FakeSleepInhibitor inhibitor;
    PlayingOnDesktop playingOnDesktop{queue(), defaults, desktop, notifications, inhibitor};
};

TEST_F(PlayingOnDesktopTest, TellsOfEachNewSongWhileTheUserLooksElsewhere)
{
    play(0);
    const Notification first{QStringLiteral("Song 1"), QStringLiteral("Artist - Album")};
    EXPECT_EQ(notifications.all, QList<Notification>{first});
    queue().playPause();
    queue().backTrack();
    controller->loving().addCurrentFavorite(true);
    queue().updateNowplayingTrack(queue().nowplayingTrack().copy());
    EXPECT_EQ(notifications.all.size(), 1) << "it is the same song";

    Q_EMIT notifications.nextRequested();
    EXPECT_EQ(playing(), 2);
    EXPECT_EQ(notifications.shown, (Notification{QStringLiteral("Song 2"), QStringLiteral("Artist")}));
    queue().stop();
    EXPECT_FALSE(notifications.shown);
    play(1);
    EXPECT_TRUE(notifications.shown);

    desktop.active = true;
    queue().nextTrack();
    EXPECT_FALSE(notifications.shown);
    desktop.active = false;
    play(0);
    defaults.setValue(settings::NotifiesOfSongs, false);
    EXPECT_FALSE(notifications.shown);
    play(1);
    EXPECT_EQ(notifications.all.size(), 4);
}

TEST_F(PlayingOnDesktopTest, TheMachineStaysAwakeWhileASongPlays)
{
    EXPECT_FALSE(inhibitor.awake);
    play(0);
    EXPECT_TRUE(inhibitor.awake);
    queue().playPause();
    EXPECT_FALSE(inhibitor.awake);
    queue().playPause();
    EXPECT_TRUE(inhibitor.awake);
    for (const bool wanted : {false, true}) {
        defaults.setValue(settings::KeepsAwakeWhilePlaying, wanted);
        EXPECT_EQ(inhibitor.awake, wanted);
    }
    play(2);
    EXPECT_TRUE(inhibitor.awake);
    movies.current->reachEnd(); // of a source that does not go on
    EXPECT_FALSE(inhibitor.awake);
}

} // namespace
} // namespace zib
