// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a sleep that nobody is told of, or before it can be told; one held back for good.
#include "platform/desktop/LoginPowerEvents.h"
#include "tests/desktop/Eventually.h"
#include "tests/desktop/LoginManagerStandIn.h"
#include "tests/fakes/FakePowerEvents.h"

#include <gtest/gtest.h>

#include <string>

namespace zib {
namespace {

class FakeSide {
  public:
    FakePowerEvents port;
    void prepareForSleep(bool begins) { begins ? port.sleep() : port.wake(); }
};

class RealSide {
  public:
    RealSide()
    {
        eventually([&] { return manager_.isHeldBack(); }); // it listens by now
    }
    void prepareForSleep(bool begins) { manager_.prepareForSleep(begins); }

  private:
    PrivateBus bus_;
    LoginManagerStandIn manager_{bus_};

  public:
    LoginPowerEvents port{bus_.address()};
};

template <typename Events>
void listen(Events& port, std::string& told)
{
    QObject::connect(&port, &PowerEvents::machineWillSleep, &port, [&told] { told += 'S'; });
    QObject::connect(&port, &PowerEvents::machineDidWake, &port, [&told] { told += 'W'; });
}

template <typename Side>
class PowerEventsContract : public testing::Test {
};
using Sides = testing::Types<FakeSide, RealSide>;
TYPED_TEST_SUITE(PowerEventsContract, Sides);

TYPED_TEST(PowerEventsContract, TellsOfEverySleepAndWaking)
{
    TypeParam side;
    std::string told;
    listen(side.port, told);
    for (const bool begins : {true, false, true, false})
        side.prepareForSleep(begins);
    EXPECT_TRUE(eventually([&] { return told.size() >= 4; }));
    EXPECT_EQ(told, "SWSW");
}

TEST(LoginPowerEventsTest, SleepWaitsUntilItWasTold)
{
    PrivateBus bus;
    LoginManagerStandIn manager(bus);
    LoginPowerEvents events(bus.address());
    EXPECT_TRUE(eventually([&] { return manager.isHeldBack(); }));
    EXPECT_EQ(manager.requested.toStdString(), "sleep delay");

    bool heldWhenTold = false;
    QObject::connect(&events, &PowerEvents::machineWillSleep, &events,
                     [&] { heldWhenTold = manager.isHeldBack(); });
    manager.prepareForSleep(true);
    EXPECT_TRUE(eventually([&] { return !manager.isHeldBack(); }));
    EXPECT_TRUE(heldWhenTold);

    manager.prepareForSleep(false);
    EXPECT_TRUE(eventually([&] { return manager.isHeldBack(); })); // the next one too
    EXPECT_EQ(manager.requests, 2);
}

TEST(LoginPowerEventsTest, WithoutALoginManagerNothingComes)
{
    PrivateBus bus;
    std::string told;
    LoginPowerEvents onNoBus(QStringLiteral("unix:path=/nonexistent/bus"));
    LoginPowerEvents early(bus.address());
    listen(onNoBus, told);
    listen(early, told);
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "");

    LoginManagerStandIn manager(bus); // one that comes late is heard
    EXPECT_TRUE(eventually([&] {
        if (told.empty())
            manager.prepareForSleep(true);
        return !told.empty();
    }));
    EXPECT_EQ(told.front(), 'S');
}

} // namespace
} // namespace zib
