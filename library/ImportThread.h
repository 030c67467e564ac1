// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

#include <QObject>
#include <QString>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace zib {

/// What an import has made of one song.
struct ImportedSong {
    QString path;  ///< or address, where it comes from
    Record record; ///< none when there is nothing to import in it
};

/// Finds songs on a thread of its own and hands them to the main thread in the order in which they were
/// found, a batch in each turn of the event loop, so that the window lives while thousands come in. The
/// thread never is more than a few batches ahead.
class ImportThread : public QObject {
    Q_OBJECT

  public:
    using Songs = std::vector<ImportedSong>;

    /// What the work on the thread may do.
    class Sink {
      public:
        virtual ~Sink() = default;
        /// Whether the work is to end, with what it has delivered.
        [[nodiscard]] virtual bool stopRequested() = 0;
        /// Hands songs over. @param total how many there will be in all, as far as is known.
        virtual void deliver(Songs songs, int total) = 0;
    };
    using Work = std::function<void(Sink&)>;

    ImportThread();
    /// Waits for the work, which is told to stop; what it has not handed over is dropped.
    ~ImportThread() override;

    // Main thread
    /// Starts the work, while none is running.
    void start(Work work);
    [[nodiscard]] bool isRunning() const { return thread_.joinable(); }
    /// The work is to end soon; finished() follows.
    void stop();
    /// Stops, waits for the end, and hands over what was found until then.
    void stopNow();

  Q_SIGNALS:
    void delivered(const zib::ImportThread::Songs& songs, int total);
    /// Nothing more will be delivered, and the next work may be started.
    void finished();

  private:
    struct Batch {
        Songs songs;
        int total = 0;
        bool last = false;
    };
    class Mailbox;

    void receive();

    std::mutex mutex_; ///< guards the next three
    std::condition_variable changed_;
    std::deque<Batch> batches_;
    bool stopRequested_ = false;

    std::thread thread_;
};

} // namespace zib
