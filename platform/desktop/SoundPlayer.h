// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/SoundOutput.h"

#include <vector>

namespace zib {

class DesktopSound;

/// Plays the samples of one song after the other through the desktop's sound: with a volume that is heard
/// soon, and on when the sound server goes away. Its owner's lock guards it; no call waits for the server.
class SoundPlayer {
  public:
    SoundPlayer(DesktopSound& sound, std::shared_ptr<WakeSignal> feeder);
    SoundPlayer(const SoundPlayer&) = delete;
    SoundPlayer& operator=(const SoundPlayer&) = delete;

    /// A new run, from frame 0, in place of the one before. It does not run yet.
    void open(const SoundFormat& format);
    /// Silent at once; what was written is gone.
    void close();
    [[nodiscard]] bool isOpen() const { return stream_ != nullptr; }
    [[nodiscard]] const SoundFormat& format() const { return format_; }

    /// Goes on, or falls silent at once and keeps what it has.
    void setRunning(bool running);
    /// To be called by the feeder each time that it wakes: sees to a lost or found server.
    void tend();
    /// How many frames it wants now.
    [[nodiscard]] std::size_t room();
    /// Takes whole frames.
    void write(std::span<const float> samples);
    /// No frame follows those written.
    void finish();
    /// All that was written before finish() was heard (or never will be).
    [[nodiscard]] bool finished();
    /// Frames heard of this run; never falls, and stands while it does not run.
    [[nodiscard]] std::int64_t heard();
    /// How long what was written will still sound while it runs; 0 only once all is heard.
    [[nodiscard]] std::chrono::milliseconds unheard();
    /// From 0 (silent) to 1 (as written).
    void setVolume(float volume);
    /// The feeder has no more to write for now. @return how long it may sleep without being woken
    [[nodiscard]] std::optional<std::chrono::milliseconds> rest();

  private:
    using Time = std::chrono::steady_clock::time_point;

    void reopen(bool standIn);
    void pump();
    void applyVolume(std::span<float> samples);
    void forget();
    void hear();
    [[nodiscard]] std::size_t samplesOf(std::int64_t frames) const;

    DesktopSound& sound_;
    const std::shared_ptr<WakeSignal> feeder_;
    std::unique_ptr<SoundStream> stream_;
    SoundFormat format_;
    bool running_ = false;
    bool finishing_ = false;
    bool drainAsked_ = false;

    // Frames are counted from the start of the run.
    std::vector<float> recent_;   ///< the last samples written, as they came
    std::int64_t recentFrom_ = 0; ///< the first frame in recent_
    std::int64_t written_ = 0;    ///< frames taken
    std::int64_t sent_ = 0;       ///< frames given to the stream
    std::int64_t streamFrom_ = 0; ///< the frame that the stream began with
    std::int64_t heard_ = 0;

    float volume_ = 1;
    float gain_ = 1; ///< follows the volume, in steps too small to click
    std::vector<float> scratch_;

    bool standIn_ = false;
    int failures_ = 0; ///< since a stream of the server was last ready
    Time openedAt_;
    Time lookedAt_;
    Time movedAt_; ///< when the time last moved, for a drain that never ends
};

} // namespace zib
