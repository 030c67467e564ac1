// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/RateLimit.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include <arpa/inet.h>

namespace zib {

namespace {

constexpr qsizetype mostAccounts = 50000;

/// What stands for the network that an address belongs to.
QByteArray networkOf(const QByteArray& address)
{
    in6_addr parsed = {};
    if (::inet_pton(AF_INET6, address.constData(), &parsed) != 1 || IN6_IS_ADDR_V4MAPPED(&parsed))
        return address;
    return QByteArray(reinterpret_cast<const char*>(parsed.s6_addr), 8);
}

} // namespace

bool isLoopback(const QByteArray& address)
{
    return address == "::1" || address.startsWith("127.") || address.startsWith("::ffff:127.");
}

RateLimit::RateLimit(int perMinute)
    : perMinute_(perMinute)
{
}

double RateLimit::leftNow(const Account& account, Clock::time_point now) const
{
    const std::chrono::duration<double, std::ratio<60>> passed = now - account.at;
    return std::min(perMinute_, account.left + passed.count() * perMinute_);
}

void RateLimit::dropFull(Clock::time_point now)
{
    accounts_.removeIf([this, now](const auto& entry) { return leftNow(entry.value(), now) >= perMinute_; });
    // So many who ask within a minute are an attack from many addresses, which no account stops.
    if (accounts_.size() >= mostAccounts)
        accounts_.clear();
}

std::chrono::seconds RateLimit::spend(const QByteArray& address, int cost, Clock::time_point now)
{
    using namespace std::chrono_literals;
    if (perMinute_ == 0)
        return 0s;
    const std::lock_guard lock(mutex_);
    if (accounts_.size() >= mostAccounts)
        dropFull(now);
    const auto network = networkOf(address);
    auto known = accounts_.find(network);
    if (known == accounts_.end())
        known = accounts_.insert(network, {perMinute_, now});
    auto& account = known.value();
    account = {leftNow(account, now), now};
    if (account.left < cost)
        return std::chrono::seconds(qint64(std::ceil((cost - account.left) * 60 / perMinute_)));
    account.left -= cost;
    return 0s;
}

} // namespace zib
