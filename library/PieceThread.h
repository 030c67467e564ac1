// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace zib {

/// A thread of its own for the second half of a long piece of work: takes pieces of bytes in the order in
/// which they are pushed. One pushing thread.
class PieceThread {
  public:
    /// The consumer runs on the new thread, for one piece at a time.
    explicit PieceThread(std::function<void(std::string_view)> consumer);
    ~PieceThread() { finish(); }
    PieceThread(const PieceThread&) = delete;
    PieceThread& operator=(const PieceThread&) = delete;

    /// Waits while many pieces are waiting already.
    void push(std::string_view piece);
    /// Returns once all pieces are consumed; none may be pushed afterwards.
    void finish();

  private:
    void run();

    std::function<void(std::string_view)> consumer_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::string> pieces_; // guarded by mutex_
    bool finished_ = false;          // guarded by mutex_
    std::thread thread_;
};

} // namespace zib
