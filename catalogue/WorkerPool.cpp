// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/WorkerPool.h"

#include <utility>

namespace zib {

WorkerPool::WorkerPool(unsigned most)
    : most_(most)
{
}

WorkerPool::~WorkerPool()
{
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    wake_.notify_all();
    for (auto& thread : threads_)
        thread.join();
}

void WorkerPool::start(std::function<void()> job)
{
    const std::lock_guard lock(mutex_);
    jobs_.push_back(std::move(job));
    if (idle_ < jobs_.size() && threads_.size() < most_)
        threads_.emplace_back([this] { work(); });
    wake_.notify_one();
}

void WorkerPool::work()
{
    std::unique_lock lock(mutex_);
    while (true) {
        ++idle_;
        wake_.wait(lock, [this] { return ending_ || !jobs_.empty(); });
        --idle_;
        if (jobs_.empty())
            return;
        {
            const auto job = std::move(jobs_.front());
            jobs_.pop_front();
            lock.unlock();
            job();
        }
        lock.lock();
    }
}

} // namespace zib
