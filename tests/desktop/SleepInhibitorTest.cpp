// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a machine that falls asleep all the same, or never again.
#include "platform/desktop/SessionSleepInhibitor.h"
#include "tests/desktop/Eventually.h"
#include "tests/desktop/SleepInhibitorStandIns.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

TEST(SessionSleepInhibitorTest, ThePowerManagerIsAskedAndToldOfTheEnd)
{
    PrivateBus bus;
    PowerManagerStandIn manager(bus);
    PortalStandIn portal(bus);
    SessionSleepInhibitor inhibitor(bus.address());
    for (int round = 1; round <= 2; ++round) {
        inhibitor.setAwake(true);
        inhibitor.setAwake(true);
        EXPECT_TRUE(eventually([&] { return manager.held == QSet<uint>{70 + uint(round)}; }));
        inhibitor.setAwake(false);
        EXPECT_TRUE(eventually([&] { return manager.held.isEmpty(); }));
    }
    inhibitor.setAwake(true);
    inhibitor.setAwake(false); // before it has answered
    EXPECT_TRUE(eventually([&] { return manager.requests == 3 && manager.held.isEmpty(); }));
    EXPECT_EQ(portal.request.held, 0U);
}

TEST(SessionSleepInhibitorTest, WithoutOneThePortalIsAsked)
{
    PrivateBus bus;
    PortalStandIn portal(bus);
    SessionSleepInhibitor inhibitor(bus.address());
    inhibitor.setAwake(true);
    EXPECT_TRUE(eventually([&] { return portal.request.held == 4; })); // suspend, and not idle: the screen
    inhibitor.setAwake(false);                                         // perhaps before its answer is here
    EXPECT_TRUE(eventually([&] { return portal.request.held == 0; }));
}

} // namespace
} // namespace zib
