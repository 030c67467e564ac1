// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

namespace zib {

class Desktop;
class Notifications;
class PlaybackQueue;
class SleepInhibitor;
class UserDefaults;

/// What the desktop does about the song that plays, as far as the settings want it: it tells of each new song
/// while the user looks elsewhere, and the machine stays awake. Main thread.
class PlayingOnDesktop : public QObject {
    Q_OBJECT

  public:
    /// All of them outlive it.
    PlayingOnDesktop(PlaybackQueue& playback, UserDefaults& defaults, Desktop& desktop,
                     Notifications& notifications, SleepInhibitor& sleepInhibitor);

  private:
    void tellOfSong();
    void stayAwake();

    PlaybackQueue& playback_;
    UserDefaults& defaults_;
    Desktop& desktop_;
    Notifications& notifications_;
    SleepInhibitor& sleepInhibitor_;
    QString song_; // the id of the one that plays; an edit makes no new song of it
};

} // namespace zib
