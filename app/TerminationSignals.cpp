// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TerminationSignals.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

#include <utility>

namespace zib {
namespace {

int writeEnd = -1; // a signal handler can reach nothing but globals, and may do little but write

void handle(int)
{
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(writeEnd, &byte, 1);
}

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

} // namespace

TerminationSignals::TerminationSignals(const std::function<void()>& handler)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    readEnd_ = ends[0];
    writeEnd = ends[1];
    notifier_ = std::make_unique<QSocketNotifier>(readEnd_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this, handler] {
        char byte = 0;
        while (::read(readEnd_, &byte, 1) == 1) {
        }
        handler();
    });
    for (const int signal : kSignals)
        std::signal(signal, handle);
}

TerminationSignals::~TerminationSignals()
{
    for (const int signal : kSignals)
        std::signal(signal, SIG_DFL);
    notifier_.reset();
    if (readEnd_ >= 0) {
        ::close(readEnd_);
        ::close(std::exchange(writeEnd, -1));
    }
}

} // namespace zib
