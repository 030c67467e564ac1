// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/SoundOutput.h"

#include <QObject>
#include <QString>

#include <condition_variable>
#include <functional>
#include <mutex>

namespace zib {

/// Threads that nobody joins one by one: whoever started one may go away while it ends.
class ThreadGroup {
  public:
    ThreadGroup() = default;
    ThreadGroup(const ThreadGroup&) = delete;
    ThreadGroup& operator=(const ThreadGroup&) = delete;
    /// Waits for all of them.
    ~ThreadGroup();
    /// @param name shown by the system's tools, 15 letters at most
    void start(const char* name, std::function<void()> work);

  private:
    std::mutex lock_;
    std::condition_variable ended_;
    int running_ = 0;
};

/// The sound of the desktop, shared by all that plays: the sound server over one connection that is kept, and
/// silence that takes its time when there is none. Outlives every queue and movie made with it.
/// Any thread unless stated; no call waits for the server.
class DesktopSound : public QObject {
    Q_OBJECT

  public:
    /// The desktop's sound server, or silence.
    DesktopSound();
    /// @param server the output to use while it is there
    /// @param standIn plays while the server is not there
    DesktopSound(std::unique_ptr<SoundOutput> server, std::unique_ptr<SoundOutput> standIn);

    /// Connects in the background, so that the first song starts quicker.
    void warmUp();

    enum class Choice { Server, StandIn };
    [[nodiscard]] std::unique_ptr<SoundStream> open(const SoundFormat& format, Choice choice,
                                                    std::shared_ptr<WakeSignal> feeder);
    /// @return whether the server is there; looks for it in the background when not.
    bool lookForServer();
    /// A stream of the server plays: when that ends, it is news again.
    void serverPlays();

    [[nodiscard]] ThreadGroup& threads() { return threads_; }

  Q_SIGNALS:
    /// A song plays without being heard, for want of a server; once until a server was there again. On the
    /// thread of whoever plays.
    void noSoundServer(const QString& localizedLine);

  private:
    std::unique_ptr<SoundOutput> server_;
    std::unique_ptr<SoundOutput> standIn_;
    std::mutex lock_;
    bool missingReported_ = false; ///< guarded by lock_
    ThreadGroup threads_;          ///< last: its threads end before the outputs do
};

} // namespace zib
