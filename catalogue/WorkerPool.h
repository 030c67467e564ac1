// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace zib {

/// Threads that run jobs in the order in which they were started. On the standard library's locks and not
/// Qt's pool, whose hand-over the thread sanitizer cannot see.
class WorkerPool {
  public:
    /// @param most threads at once; they are made when they are needed and kept
    explicit WorkerPool(unsigned most);
    /// Returns when all jobs that were started have run.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    /// On any thread.
    void start(std::function<void()> job);

  private:
    void work();

    const unsigned most_;
    std::mutex mutex_; ///< guards what follows
    std::condition_variable wake_;
    std::deque<std::function<void()>> jobs_;
    std::vector<std::thread> threads_;
    unsigned idle_ = 0;
    bool ending_ = false;
};

} // namespace zib
