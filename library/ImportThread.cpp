// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/ImportThread.h"

#include "services/utilities/ThreadQueue.h"

#include <utility>

namespace zib {
namespace {

constexpr std::size_t mostBatches = 4;

} // namespace

class ImportThread::Mailbox : public Sink {
  public:
    explicit Mailbox(ImportThread& owner)
        : owner_(owner)
    {
    }

    bool stopRequested() override
    {
        const std::scoped_lock lock(owner_.mutex_);
        return owner_.stopRequested_;
    }
    void deliver(Songs songs, int total) override { push({std::move(songs), total, false}); }
    void close() { push({{}, 0, true}); }

  private:
    void push(Batch batch)
    {
        {
            std::unique_lock lock(owner_.mutex_);
            owner_.changed_.wait(
                lock, [this] { return owner_.stopRequested_ || owner_.batches_.size() < mostBatches; });
            owner_.batches_.push_back(std::move(batch));
            owner_.changed_.notify_all();
        }
        queueOnThreadOf(owner_, [&owner = owner_] { owner.receive(); });
    }

    ImportThread& owner_;
};

ImportThread::ImportThread() = default;

ImportThread::~ImportThread()
{
    stop();
    if (thread_.joinable())
        thread_.join();
}

void ImportThread::start(Work work)
{
    {
        const std::scoped_lock lock(mutex_);
        stopRequested_ = false;
    }
    thread_ = std::thread([this, work = std::move(work)] {
        Mailbox mailbox(*this);
        work(mailbox);
        mailbox.close();
    });
}

void ImportThread::stop()
{
    const std::scoped_lock lock(mutex_);
    stopRequested_ = true;
    changed_.notify_all();
}

void ImportThread::stopNow()
{
    if (!isRunning())
        return;
    stop();
    while (isRunning()) {
        {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [this] { return !batches_.empty(); });
        }
        receive();
    }
}

void ImportThread::receive()
{
    Batch batch;
    {
        const std::scoped_lock lock(mutex_);
        if (batches_.empty())
            return; // stopNow() has taken it
        batch = std::move(batches_.front());
        batches_.pop_front();
        changed_.notify_all();
    }
    if (!batch.last) {
        Q_EMIT delivered(batch.songs, batch.total);
        return;
    }
    thread_.join();
    Q_EMIT finished();
}

} // namespace zib
