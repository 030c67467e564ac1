// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <semaphore.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

namespace zib {

/// Shape of the sound that a stream takes: interleaved 32-bit float samples, one a channel in each frame.
struct SoundFormat {
    int rate = 0; ///< frames a second
    int channels = 0;

    friend bool operator==(const SoundFormat&, const SoundFormat&) = default;
};

/// Wakes the one thread that feeds a stream. Takes no lock, so any thread may wake, whatever it holds.
class WakeSignal {
  public:
    WakeSignal();
    WakeSignal(const WakeSignal&) = delete;
    WakeSignal& operator=(const WakeSignal&) = delete;
    ~WakeSignal();
    void wake();
    /// Returns when woken (also by a wake before the call), or after the time, if one is given.
    void wait(std::optional<std::chrono::milliseconds> atMost);

  private:
    std::atomic<bool> woken_ = false;
    sem_t semaphore_; ///< 1 when woken, else 0
};

/// One song on its way into a sound output. One thread at a time; no call waits for the output.
class SoundStream {
  public:
    enum class State {
        Opening, ///< takes nothing yet
        Ready,
        Failed ///< for good: what was not heard is lost
    };

    /// Falls silent at once.
    virtual ~SoundStream() = default;
    [[nodiscard]] virtual State state() = 0;

    /// How many frames it wants now to stay fed.
    [[nodiscard]] virtual std::size_t room() = 0;
    /// Takes whole frames, more than room() too.
    virtual void write(std::span<const float> samples) = 0;
    /// Gives back up to so many of the last written frames that are not heard yet, for the next write, which
    /// must be as long at least, to replace. @return how many
    virtual std::size_t takeBack(std::size_t frames) = 0;

    /// A new stream does not run. One that stops running keeps its frames and falls silent at once.
    virtual void setRunning(bool running) = 0;
    /// No frame follows those written.
    virtual void drain() = 0;
    /// Every frame written before drain() was heard.
    [[nodiscard]] virtual bool drained() = 0;
    /// Frames heard so far.
    [[nodiscard]] virtual std::int64_t heard() = 0;
    /// For an output that does not wake its feeder by itself: when to look again.
    [[nodiscard]] virtual std::optional<std::chrono::milliseconds> nextLook() = 0;
};

/// Where sound goes. Any thread; no call waits.
class SoundOutput {
  public:
    enum class Presence { Absent, Connecting, Ready };
    enum class Search {
        Start, ///< also starts the user's sound server where that is the custom
        Look
    };

    virtual ~SoundOutput() = default;
    /// Connects when it is Absent.
    virtual void connect(Search search) = 0;
    [[nodiscard]] virtual Presence presence() = 0;
    /// Wakes the feeder when there is room, when what was drained was heard, and on each change of state.
    [[nodiscard]] virtual std::unique_ptr<SoundStream> open(const SoundFormat& format,
                                                            std::shared_ptr<WakeSignal> feeder) = 0;
};

} // namespace zib
