// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/PieceThread.h"

#include <utility>

namespace zib {
namespace {

constexpr std::size_t mostPieces = 16;

} // namespace

PieceThread::PieceThread(std::function<void(std::string_view)> consumer)
    : consumer_(std::move(consumer))
    , thread_(&PieceThread::run, this)
{
}

void PieceThread::push(std::string_view piece)
{
    std::string copy(piece);
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return pieces_.size() < mostPieces; });
    pieces_.push_back(std::move(copy));
    changed_.notify_all();
}

void PieceThread::finish()
{
    {
        const std::scoped_lock lock(mutex_);
        finished_ = true;
        changed_.notify_all();
    }
    if (thread_.joinable())
        thread_.join();
}

void PieceThread::run()
{
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return finished_ || !pieces_.empty(); });
        if (pieces_.empty())
            return;
        const std::string piece = std::move(pieces_.front());
        pieces_.pop_front();
        changed_.notify_all();
        lock.unlock();
        consumer_(piece);
        lock.lock();
    }
}

} // namespace zib
