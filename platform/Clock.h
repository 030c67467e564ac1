// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>

namespace zib {

/// The time of day. Any thread.
class Clock {
  public:
    virtual ~Clock() = default;
    /// Now, in UTC.
    [[nodiscard]] virtual QDateTime now() const = 0;
};

/// Whole seconds since 2001-01-01 00:00:00 UTC, truncated: the time stamp of playlist and search ids.
inline qint64 secondsSince2001(const Clock& clock)
{
    static const QDateTime reference(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
    return reference.msecsTo(clock.now()) / 1000;
}

} // namespace zib
