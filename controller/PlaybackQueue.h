// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/NowPlayingDisplay.h"
#include "controller/NowPlayingSnapshot.h"
#include "controller/SoundLevel.h"
#include "controller/StreamReports.h"
#include "playback/RVPlayer.h"
#include "records/Record.h"

#include <QObject>
#include <QString>

#include <optional>

namespace zib {

class Clock;
struct ControllerContext;

/// Playing: the transport, over the now-playing snapshot, and what the window shows of them. Main thread.
class PlaybackQueue : public QObject, public RVPlayerDelegate {
    Q_OBJECT

  public:
    enum class State { Stopped, Paused, Playing };

    PlaybackQueue(ControllerContext& context, RVPlayer& player, const WebServices& services);

    /// Plays the song selected in the table, else the first one.
    void songSelected();
    void playTrack(const Record& track);
    void playPause();
    void stop();
    /// Counts the song as played when half of it was heard, then plays the next that can be played.
    void nextTrack();
    /// In the first 4 seconds of a song the one before, later the beginning of the song.
    void backTrack();
    /// @param percent 0 to 100.
    void scanTrack(double percent);
    /// The same by a time from the beginning, 0 to length().
    void seek(double seconds);
    [[nodiscard]] SoundLevel& soundLevel() { return soundLevel_; }
    /// The machine goes to sleep.
    void pause();

    /// The length of the song now playing in seconds, 0 while unknown.
    [[nodiscard]] int duration() const { return player_.duration(); }
    /// Playing as well while a song is still on its way to be heard.
    [[nodiscard]] State state() const;
    /// Whether the song is heard at this moment.
    [[nodiscard]] bool isPlaying() const { return player_.isPlaying(); }
    /// Seconds of the song heard.
    [[nodiscard]] double position() const { return player_.position(); }
    /// Whether the song now playing can be left for another place in it at this moment.
    [[nodiscard]] bool canSeek() const { return player_.isPlaying() && player_.length() > 0; }
    /// Whether nextTrack() would find a song. Looks through the snapshot's items.
    [[nodiscard]] bool hasNextTrack() const;
    /// Another record stands for the song now playing.
    void setNowplayingTrack(const Record& track);
    /// The same after an edit, whose names are shown.
    void updateNowplayingTrack(const Record& track);
    /// The playlist that plays was reordered and is shown; the song stands in it anew.
    void nowplayingPlaylistReordered(const Record& track);
    /// What the music-information service says of it; null while nothing plays or when it could not be asked.
    [[nodiscard]] const RVSongInfoDownloader* songInformation() const { return display_.current(); }
    /// Shows whether the song now playing is on disk.
    void showDownloaded();

    // The snapshot; without one no record, and -1.
    [[nodiscard]] const std::optional<NowPlayingSnapshot>& snapshot() const { return snapshot_; }
    [[nodiscard]] Record nowplayingTrack() const { return snapshot_ ? snapshot_->track : Record(); }
    [[nodiscard]] QString nowplayingTrackID() const { return nowplayingTrack().string(keys::Id); }
    [[nodiscard]] int nowplayingTrackIndex() const
    {
        return snapshot_ ? int(snapshot_->track.integer(keys::Index)) : -1;
    }
    [[nodiscard]] int nowplayingSourceType() const { return snapshot_ ? int(snapshot_->sourceType) : -1; }
    [[nodiscard]] int nowplayingPlaylistIndex() const { return snapshot_ ? snapshot_->playlistIndex : -1; }
    [[nodiscard]] qint64 nowplayingPlaylistUID() const { return snapshot_ ? snapshot_->playlistUid : -1; }
    /// What is played from has changed: what plays next is looked for there.
    void setNowplayingPlaylistItems(const QList<Record>& items)
    {
        if (!snapshot_)
            return;
        snapshot_->playlistItems = frozenItems(items);
        Q_EMIT trackChanged();
    }
    /// The playing search or playlist is that one now, at that place of its list.
    void setNowplayingSource(SourceType type, int playlistIndex, qint64 playlistUid);
    /// The playing search or playlist has moved to another place of its list.
    void setNowplayingPlaylistIndex(int index)
    {
        if (snapshot_)
            snapshot_->playlistIndex = index;
    }

    /// Songs were loved or no longer are, the one now playing perhaps.
    void songsChanged() { Q_EMIT trackChanged(); }

    // From the player
    void updateProgress() override;
    void playbackStateChanged(AudioStreamer& streamer) override;
    void movieDidEnd(Movie& movie) override;
    AudioStreamerDelegate* dataManager() override { return &streamReports_; }

  Q_SIGNALS:
    /// Another song is now playing, or none; or what is known of it, or what can be played after it, has
    /// changed.
    void trackChanged();
    /// state() may be another.
    void stateChanged();
    /// The song now playing has jumped to that time.
    void seeked(double seconds);
    /// A little of the song was heard; duration() and canSeek() may be others.
    void progressUpdated();
    /// Nothing plays any more.
    void stopped();
    /// songInformation() is complete.
    void songInformationCompleted();

  private:
    [[nodiscard]] QList<Record> frozenItems(const QList<Record>& items) const;
    void updateSnapshot();
    void setArtworkForCurrentTrack();
    /// Shows the song now playing, which has just begun, and asks about it.
    void showTrack();
    void endOfSong();
    void countPlay();
    void reloadTracks();
    void setStatus(const QString& text);
    /// The place of the song now playing in the snapshot's items; -1 without either.
    [[nodiscard]] int indexOfCurrentItem() const { return snapshot_ ? snapshot_->indexOfTrack() : -1; }
    /// Plays the first playable item from a place on, in steps of 1 or -1; stops when there is none.
    void playFrom(int index, int step);
    void adoptLocalFile(Record& track);

    ControllerContext& context_;
    RVPlayer& player_;
    const Clock& clock_;
    SoundLevel soundLevel_;
    StreamReports streamReports_;
    std::optional<NowPlayingSnapshot> snapshot_;
    NowPlayingDisplay display_;
};

} // namespace zib
