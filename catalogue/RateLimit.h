// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>

#include <chrono>
#include <mutex>

namespace zib {

/// Whether a numeric address is this machine's own.
bool isLoopback(const QByteArray& address);

/// How much each address may ask for: what it has not used in the last minute, at most. Any thread.
class RateLimit {
  public:
    using Clock = std::chrono::steady_clock;

    /// @param perMinute what each address may spend; 0 bounds nothing
    explicit RateLimit(int perMinute);

    /// Takes the cost from what that address has left.
    /// @param address numeric; a network of IPv6 counts as one, since whoever has one address there has many
    /// @return zero, or how long to wait until it has enough again, in which case nothing is taken
    std::chrono::seconds spend(const QByteArray& address, int cost, Clock::time_point now = Clock::now());

  private:
    struct Account {
        double left = 0;
        Clock::time_point at;
    };

    [[nodiscard]] double leftNow(const Account& account, Clock::time_point now) const;
    void dropFull(Clock::time_point now);

    const double perMinute_;
    std::mutex mutex_;
    QHash<QByteArray, Account> accounts_; ///< of those who have asked lately
};

} // namespace zib
