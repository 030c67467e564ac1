// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/DesktopSound.h"

#include "platform/desktop/NullOutput.h"
#include "platform/desktop/PulseOutput.h"

#include <pthread.h>

#include <thread>
#include <utility>

namespace zib {

WakeSignal::WakeSignal()
{
    sem_init(&semaphore_, 0, 0);
}

WakeSignal::~WakeSignal()
{
    sem_destroy(&semaphore_);
}

void WakeSignal::wake()
{
    if (!woken_.exchange(true))
        sem_post(&semaphore_);
}

void WakeSignal::wait(std::optional<std::chrono::milliseconds> atMost)
{
    if (atMost) {
        timespec until{};
        clock_gettime(CLOCK_MONOTONIC, &until);
        const auto nanoseconds = until.tv_nsec + std::chrono::nanoseconds(*atMost).count();
        until.tv_sec += nanoseconds / 1'000'000'000;
        until.tv_nsec = nanoseconds % 1'000'000'000;
        if (sem_clockwait(&semaphore_, CLOCK_MONOTONIC, &until) != 0)
            return; // a signal or the time: the caller looks around and waits again
    } else if (sem_wait(&semaphore_) != 0) {
        return;
    }
    woken_ = false;
}

ThreadGroup::~ThreadGroup()
{
    std::unique_lock guard(lock_);
    ended_.wait(guard, [this] { return running_ == 0; });
}

void ThreadGroup::start(const char* name, std::function<void()> work)
{
    {
        const std::lock_guard guard(lock_);
        ++running_;
    }
    std::thread([this, name, work = std::move(work)]() mutable {
        pthread_setname_np(pthread_self(), name);
        work();
        work = nullptr; // what the work owns goes before the group may
        const std::lock_guard guard(lock_);
        --running_;
        ended_.notify_all();
    }).detach();
}

DesktopSound::DesktopSound()
    : DesktopSound(std::make_unique<PulseOutput>(), std::make_unique<NullOutput>())
{
}

DesktopSound::DesktopSound(std::unique_ptr<SoundOutput> server, std::unique_ptr<SoundOutput> standIn)
    : server_(std::move(server))
    , standIn_(std::move(standIn))
{
}

void DesktopSound::warmUp()
{
    server_->connect(SoundOutput::Search::Start);
}

std::unique_ptr<SoundStream> DesktopSound::open(const SoundFormat& format, Choice choice,
                                                std::shared_ptr<WakeSignal> feeder)
{
    if (choice == Choice::Server) {
        server_->connect(SoundOutput::Search::Start);
        return server_->open(format, std::move(feeder));
    }
    {
        const std::lock_guard guard(lock_);
        if (std::exchange(missingReported_, true))
            return standIn_->open(format, std::move(feeder));
    }
    Q_EMIT noSoundServer(tr("There is no sound server, so songs play without being heard."));
    return standIn_->open(format, std::move(feeder));
}

bool DesktopSound::lookForServer()
{
    server_->connect(SoundOutput::Search::Look);
    return server_->presence() == SoundOutput::Presence::Ready;
}

void DesktopSound::serverPlays()
{
    const std::lock_guard guard(lock_);
    missingReported_ = false;
}

} // namespace zib
