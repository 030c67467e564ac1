// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/SoundOutput.h"

#include <QLoggingCategory>

#include <pulse/pulseaudio.h>

#include <vector>

Q_DECLARE_LOGGING_CATEGORY(lcSound)

namespace zib {

/// The mainloop with its thread, and the context on it. Its lock is the mainloop's, and callbacks run under
/// it.
class PulseConnection {
  public:
    /// Who waits for the end of a connecting.
    class Waiting {
      public:
        virtual ~Waiting() = default;
        /// Under the lock: the context is ready, or has failed.
        virtual void settle() = 0;
    };

    PulseConnection();
    PulseConnection(const PulseConnection&) = delete;
    PulseConnection& operator=(const PulseConnection&) = delete;
    ~PulseConnection();

    void connect(SoundOutput::Search search);
    SoundOutput::Presence presence();

    /// Holds the mainloop's lock.
    class Guard {
      public:
        explicit Guard(PulseConnection& connection)
            : loop_(connection.loop_)
        {
            pa_threaded_mainloop_lock(loop_);
        }
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;
        ~Guard() { pa_threaded_mainloop_unlock(loop_); }

      private:
        pa_threaded_mainloop* loop_;
    };

    // These under the lock.
    pa_context* readyContext() { return presence_ == SoundOutput::Presence::Ready ? context_ : nullptr; }
    void addWaiting(Waiting& who) { waiting_.push_back(&who); }
    void removeWaiting(Waiting& who) { std::erase(waiting_, &who); }
    [[nodiscard]] bool absent() const { return presence_ == SoundOutput::Presence::Absent; }

  private:
    void contextChanged();
    void leave();
    void settleWaiting();

    pa_threaded_mainloop* loop_;
    pa_context* context_ = nullptr;
    pa_context_flags_t flags_ = PA_CONTEXT_NOFLAGS;
    SoundOutput::Presence presence_ = SoundOutput::Presence::Absent;
    std::vector<Waiting*> waiting_; ///< to be told once the context is ready or has failed
};

} // namespace zib
