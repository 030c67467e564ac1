// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/PlayingOnDesktop.h"

#include "controller/PlaybackQueue.h"
#include "platform/Desktop.h"
#include "platform/Notifications.h"
#include "platform/SettingsKeys.h"
#include "platform/SleepInhibitor.h"
#include "platform/UserDefaults.h"

#include <utility>

namespace zib {

PlayingOnDesktop::PlayingOnDesktop(PlaybackQueue& playback, UserDefaults& defaults, Desktop& desktop,
                                   Notifications& notifications, SleepInhibitor& sleepInhibitor)
    : playback_(playback)
    , defaults_(defaults)
    , desktop_(desktop)
    , notifications_(notifications)
    , sleepInhibitor_(sleepInhibitor)
{
    connect(&playback_, &PlaybackQueue::trackChanged, this, &PlayingOnDesktop::tellOfSong);
    connect(&playback_, &PlaybackQueue::stateChanged, this, &PlayingOnDesktop::stayAwake);
    connect(&defaults_, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == settings::KeepsAwakeWhilePlaying)
            stayAwake();
        else if (key == settings::NotifiesOfSongs && !defaults_.boolean(key))
            notifications_.withdraw();
    });
    connect(&notifications_, &Notifications::nextRequested, &playback_, &PlaybackQueue::nextTrack);
}

void PlayingOnDesktop::tellOfSong()
{
    const bool plays = playback_.state() != PlaybackQueue::State::Stopped;
    const Record track = plays ? playback_.nowplayingTrack() : Record();
    const QString id = track.string(keys::Id);
    if (std::exchange(song_, id) == id)
        return;
    if (id.isEmpty() || desktop_.isActive()) {
        notifications_.withdraw(); // it tells of another song
        return;
    }
    if (!defaults_.boolean(settings::NotifiesOfSongs))
        return;
    const QString artist = track.string(keys::Artist);
    const QString album = track.string(keys::Album);
    const bool both = !artist.isEmpty() && !album.isEmpty();
    notifications_.show(
        {track.string(keys::Name), both ? artist + QStringLiteral(" - ") + album : artist + album});
}

void PlayingOnDesktop::stayAwake()
{
    sleepInhibitor_.setAwake(playback_.state() == PlaybackQueue::State::Playing &&
                             defaults_.boolean(settings::KeepsAwakeWhilePlaying));
}

} // namespace zib
