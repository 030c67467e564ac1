// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Clock.h"

#include <atomic>
#include <chrono>

namespace zib {

/// A clock that the test sets.
class FakeClock : public Clock {
  public:
    explicit FakeClock(const QDateTime& start = QDateTime(QDate(2011, 6, 1), QTime(12, 0), Qt::UTC))
        : milliseconds_(start.toMSecsSinceEpoch())
    {
    }
    QDateTime now() const override { return QDateTime::fromMSecsSinceEpoch(milliseconds_, Qt::UTC); }
    void set(const QDateTime& now) { milliseconds_ = now.toMSecsSinceEpoch(); }
    void advance(std::chrono::milliseconds time) { milliseconds_ += time.count(); }

  private:
    std::atomic<qint64> milliseconds_;
};

} // namespace zib
