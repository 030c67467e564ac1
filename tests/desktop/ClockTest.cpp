// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: local time where UTC is meant, time stamps off by the zone or rounded up.
#include "platform/desktop/SystemClock.h"
#include "tests/fakes/FakeClock.h"

#include <gtest/gtest.h>

#include <ctime>

namespace zib {
namespace {

template <typename ClockType>
class ClockContract : public testing::Test {
};
using Clocks = testing::Types<FakeClock, SystemClock>;
TYPED_TEST_SUITE(ClockContract, Clocks);

TYPED_TEST(ClockContract, TellsUtc)
{
    const TypeParam clock;
    EXPECT_EQ(clock.now().timeSpec(), Qt::UTC);
    EXPECT_TRUE(clock.now().isValid());
}

TEST(SystemClockTest, IsTheMachines)
{
    const std::time_t before = std::time(nullptr);
    const qint64 now = SystemClock().now().toSecsSinceEpoch();
    EXPECT_GE(now, before - 1); // the coarse clock behind time() may lag
    EXPECT_LE(now, std::time(nullptr) + 1);
}

TEST(SecondsSince2001, AreTruncated)
{
    FakeClock clock(QDateTime(QDate(2001, 1, 1), QTime(0, 0, 1, 999), Qt::UTC));
    EXPECT_EQ(secondsSince2001(clock), 1);
    clock.set(QDateTime(QDate(2011, 1, 1), QTime(0, 0), Qt::UTC));
    EXPECT_EQ(secondsSince2001(clock), 315532800);
}

} // namespace
} // namespace zib
