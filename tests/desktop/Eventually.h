// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <chrono>

namespace zib {

/// Runs the event loop until the condition holds. The time is only for a test that fails: none is waited for.
template <typename Condition>
bool eventually(Condition condition)
{
    const QDeadlineTimer deadline(std::chrono::seconds(60));
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
    }
    return true;
}

} // namespace zib
