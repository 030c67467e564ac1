// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Movie.h"
#include "playback/AudioStreamer.h"
#include "records/Record.h"

#include <QObject>
#include <QTimer>

#include <memory>

namespace zib {

class Desktop;

/// What the player tells and asks its controller. Main thread.
class RVPlayerDelegate {
  public:
    virtual ~RVPlayerDelegate() = default;
    /// Every 0.1 s while a song is loaded.
    virtual void updateProgress() {}
    virtual void playbackStateChanged(AudioStreamer& /*streamer*/) {}
    /// Any movie has played to its end.
    virtual void movieDidEnd(Movie& /*movie*/) {}
    /// Whom to tell of songs that were not found or have been recorded; null for nobody.
    virtual AudioStreamerDelegate* dataManager() { return nullptr; }
};

/// Plays one song at a time, from a file on disk or streamed, behind one set of transport operations.
/// Main thread. The delegate and the ports outlive it.
class RVPlayer final : public QObject {
    Q_OBJECT

  public:
    /// Streaming and alerts go through the ports of the streamer.
    RVPlayer(RVPlayerDelegate* delegate, const AudioStreamerPorts& ports, Movies& movies, Desktop& desktop);
    ~RVPlayer() override;

    /// Stops what plays and plays that song: a local file, else a downloaded copy, else the stream.
    /// May show an alert and then returns when it is dismissed.
    void playTrack(const Record& track);
    void playPause();
    /// Waits for the streamer's thread to end.
    void stop();
    /// Plays the song from its beginning.
    void backTrack();
    /// A position in percent, 0 to 100; nothing unless it plays.
    void seekToTime(double percent);
    /// 0 to 1.
    void setVolume(float volume);

    [[nodiscard]] bool isPlaying() const;
    [[nodiscard]] bool hasMedia() const;
    [[nodiscard]] bool isStreaming() const;
    /// A song is loaded and is kept from being heard by playPause().
    [[nodiscard]] bool isPaused() const;
    /// Whole seconds; 0 without a song.
    [[nodiscard]] int currentTime() const;
    [[nodiscard]] int duration() const;
    /// Seconds heard; 0 without a song.
    [[nodiscard]] double position() const;
    /// The seconds that are 100 % to seekToTime(); 0 while unknown.
    [[nodiscard]] double length() const;
    /// Whole seconds; -1 while unknown. Stops a movie that has no duration.
    [[nodiscard]] int remainingTime();

    [[nodiscard]] AudioStreamer* streamer() const { return streamer_.get(); }
    void setStreamer(std::unique_ptr<AudioStreamer> streamer);
    [[nodiscard]] Movie* qtMovie() const { return qtMovie_.get(); }
    void setQtMovie(std::unique_ptr<Movie> movie);
    [[nodiscard]] RVPlayerDelegate* delegate() const { return delegate_; }
    void setDelegate(RVPlayerDelegate* delegate);
    [[nodiscard]] QTimer* progressUpdateTimer() const { return progressUpdateTimer_.get(); }
    void setProgressUpdateTimer(std::unique_ptr<QTimer> timer);

  private:
    // Both tell whether the song has begun.
    bool playFile(const Record& track, const QString& path);
    bool playStream(const Record& track);
    void scheduleProgressUpdates();
    void runAlert(const QString& message, const QString& informativeText);
    [[nodiscard]] AudioStreamerDelegate* dataManager() const;

    const AudioStreamerPorts ports_;
    Movies& movies_;
    Desktop& desktop_;
    // At most one of the two, streamer and movie, is there.
    std::unique_ptr<AudioStreamer> streamer_;
    std::unique_ptr<Movie> qtMovie_;
    RVPlayerDelegate* delegate_;
    std::unique_ptr<QTimer> progressUpdateTimer_;
};

} // namespace zib
