// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/LibraryFile.h"

#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace zib {

/// Writes snapshots of the library in the background, one at a time. A snapshot that a newer one overtakes
/// while it waits is never written. Main thread.
class LibrarySaver {
  public:
    /// At most so many of the newest searches are kept.
    static constexpr int keptSearches = 5;
    /// Called on a save's own thread with the searches that the snapshot held too many, oldest first.
    using SearchesDropped = std::function<void(const QList<Record>&)>;

    LibrarySaver(LibraryFile file, SearchesDropped searchesDropped);
    /// Waits for the newest snapshot to be written.
    ~LibrarySaver();
    LibrarySaver(const LibrarySaver&) = delete;
    LibrarySaver& operator=(const LibrarySaver&) = delete;

    [[nodiscard]] const LibraryFile& file() const { return file_; }

    void save(LibrarySnapshot snapshot);
    /// Returns once the newest snapshot is on disk or has failed.
    void wait();

  private:
    void run();
    void write(LibrarySnapshot snapshot) const;

    const LibraryFile file_;
    const SearchesDropped searchesDropped_;
    std::thread thread_;
    std::mutex mutex_;
    std::optional<LibrarySnapshot> waiting_; // guarded by mutex_
    bool running_ = false;                   // guarded by mutex_
};

} // namespace zib
