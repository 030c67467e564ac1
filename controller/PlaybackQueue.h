// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SourceTypes.h"
#include "playback/RVPlayer.h"
#include "records/Record.h"

#include <QList>
#include <QString>

#include <optional>

namespace zib {

class Clock;
struct ControllerContext;

/// The list that a song was started from, as it was then: what is shown later changes nothing about what
/// plays next.
struct NowPlayingSnapshot {
    int playlistIndex;
    SourceType sourceType;
    QList<Record> playlistItems; ///< in the order shown
    qint64 playlistUid;
    FilterType filterType;
    Record track; ///< the song now playing
};

/// Playing: the now-playing snapshot, the transport, and what the window shows of them. Main thread.
class PlaybackQueue : public RVPlayerDelegate {
  public:
    PlaybackQueue(ControllerContext& context, RVPlayer& player, const Clock& clock);

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
    /// @param level 0 to 1.
    void setSoundLevel(float level);
    void volumeUp();
    void volumeDown();
    /// The machine goes to sleep.
    void pause();

    /// The love button was switched. @param on its new state.
    void addCurrentFavorite(bool on);
    /// The heart of a row was pressed.
    void addFavorite(int row);

    /// The length of the song now playing in seconds, 0 while unknown.
    [[nodiscard]] int duration() const { return player_.duration(); }
    /// Another record stands for the song now playing.
    void setNowplayingTrack(const Record& track);
    /// The same after an edit, whose names are shown.
    void updateNowplayingTrack(const Record& track);
    void showIdleBanner();

    // The snapshot; without one no record, and -1.
    [[nodiscard]] const std::optional<NowPlayingSnapshot>& snapshot() const { return snapshot_; }
    [[nodiscard]] Record nowplayingTrack() const;
    [[nodiscard]] QString nowplayingTrackID() const;
    [[nodiscard]] int nowplayingTrackIndex() const;
    [[nodiscard]] int nowplayingSourceType() const;
    [[nodiscard]] int nowplayingPlaylistIndex() const;
    [[nodiscard]] qint64 nowplayingPlaylistUID() const;
    /// The playing search or playlist has moved to another place of its list.
    void setNowplayingPlaylistIndex(int index);

    // From the player
    void updateProgress() override;
    void playbackStateChanged(AudioStreamer& streamer) override;
    void movieDidEnd(Movie& movie) override;
    AudioStreamerDelegate* dataManager() override { return &streamReports_; }

  private:
    /// What the streamer has to say about a song goes to the library.
    class StreamReports : public AudioStreamerDelegate {
      public:
        explicit StreamReports(ControllerContext& context)
            : context_(context)
        {
        }
        void fileNotFound(const Record& track) override;
        void exportedFile(const Record& track) override;

      private:
        ControllerContext& context_;
    };

    void updateSnapshot();
    void setArtworkForCurrentTrack();
    void showTitles();
    void endOfSong();
    void countPlay();
    void reloadTracks();
    void setStatus(const QString& text);
    /// The place of the current song in the snapshot's items, or -1.
    [[nodiscard]] int indexOfCurrentItem() const;
    [[nodiscard]] bool canPlayNow(const Record& track) const;
    /// Plays the first playable item from a place on, in steps of 1 or -1; stops when there is none.
    void playFrom(int index, int step);
    void adoptLocalFile(Record& track);
    void noticeLove();

    ControllerContext& context_;
    RVPlayer& player_;
    const Clock& clock_;
    StreamReports streamReports_;
    std::optional<NowPlayingSnapshot> snapshot_;
};

} // namespace zib
