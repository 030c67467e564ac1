// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a network that is up taken for down and the reverse, a desktop without NetworkManager left offline.
#include "platform/desktop/NetworkReachability.h"
#include "tests/desktop/Eventually.h"
#include "tests/desktop/NetworkManagerStandIn.h"
#include "tests/fakes/FakeReachability.h"

#include <gtest/gtest.h>

#include <vector>

namespace zib {
namespace {

constexpr quint32 Online = Reachability::Reachable;
constexpr quint32 Offline = Reachability::ConnectionRequired;

/// The fake, switched by hand.
class FakeSide {
  public:
    FakeReachability port;
    void setConnected(bool connected) { port.change(connected ? Online : Offline); }
};

/// The real one, with NetworkManager acted by the test.
class RealSide {
  public:
    RealSide() { manager_.appear(); }
    void setConnected(bool connected) { manager_.change({{QStringLiteral("State"), connected ? 70U : 20U}}); }

  private:
    PrivateBus bus_;
    NetworkManagerStandIn manager_{bus_};

  public:
    NetworkReachability port{bus_.address()};
};

template <typename Side>
class ReachabilityContract : public testing::Test {
  protected:
    ReachabilityContract()
    {
        QObject::connect(&side.port, &Reachability::flagsChanged, &side.port,
                         [this](quint32 flags) { reports.push_back(flags); });
    }
    /// Whether that many reports come, the last of them this one.
    bool reportIs(std::size_t count, quint32 flags)
    {
        return eventually([&] { return reports.size() >= count; }) && reports.size() == count &&
               reports.back() == flags;
    }

    Side side;
    std::vector<quint32> reports;
};
using Sides = testing::Types<FakeSide, RealSide>;
TYPED_TEST_SUITE(ReachabilityContract, Sides);

TYPED_TEST(ReachabilityContract, ReportsFromTheEventLoopAndThenEveryChange)
{
    this->side.port.watch(QStringLiteral("songs.example"));
    EXPECT_TRUE(this->reports.empty());
    EXPECT_TRUE(this->reportIs(1, Online));
    this->side.setConnected(false);
    EXPECT_TRUE(this->reportIs(2, Offline));
    this->side.setConnected(true);
    EXPECT_TRUE(this->reportIs(3, Online));
}

TYPED_TEST(ReachabilityContract, EveryHostIsReportedAnew)
{
    this->side.port.watch(QStringLiteral("songs.example"));
    EXPECT_TRUE(this->reportIs(1, Online));
    this->side.port.watch(QStringLiteral("other.example"));
    EXPECT_TRUE(this->reportIs(2, Online));
    this->side.setConnected(false);
    EXPECT_TRUE(this->reportIs(3, Offline));
}

TYPED_TEST(ReachabilityContract, ThisMachineIsAlwaysReachable)
{
    this->side.port.watch(QStringLiteral("songs.example"));
    EXPECT_TRUE(this->reportIs(1, Online));
    this->side.setConnected(false);
    EXPECT_TRUE(this->reportIs(2, Offline));
    std::size_t count = 2;
    for (const char* host : {"localhost", "127.0.0.1", "127.8.9.10", "::1"}) {
        this->side.port.watch(QString::fromLatin1(host));
        EXPECT_TRUE(this->reportIs(++count, Online)) << host;
    }
}

class NetworkReachabilityTest : public testing::Test {
  protected:
    PrivateBus bus;
    NetworkManagerStandIn manager{bus};
    std::vector<quint32> reports;

    void watch(NetworkReachability& reachability, const char* host = "songs.example")
    {
        QObject::connect(&reachability, &Reachability::flagsChanged, &reachability,
                         [this](quint32 flags) { reports.push_back(flags); });
        reachability.watch(QString::fromLatin1(host));
    }
    bool reportsAre(const std::vector<quint32>& expected)
    {
        return eventually([&] { return reports.size() >= expected.size(); }) && reports == expected;
    }
};

TEST_F(NetworkReachabilityTest, StartsOfflineWhenTheNetworkIsDown)
{
    manager.state = 20;
    manager.appear();
    NetworkReachability reachability(bus.address());
    watch(reachability);
    EXPECT_TRUE(reportsAre({Offline}));
}

TEST_F(NetworkReachabilityTest, WithoutABusOrAManagerItIsOnline)
{
    NetworkReachability onNoBus(QStringLiteral("unix:path=/nonexistent/bus"));
    watch(onNoBus);
    EXPECT_TRUE(reports.empty()); // not from within watch
    EXPECT_TRUE(reportsAre({Online}));
    NetworkReachability withoutManager(bus.address());
    watch(withoutManager);
    EXPECT_TRUE(reportsAre({Online, Online}));
}

TEST_F(NetworkReachabilityTest, FollowsTheManagersComingAndGoing)
{
    NetworkReachability reachability(bus.address());
    watch(reachability);
    EXPECT_TRUE(reportsAre({Online}));
    manager.state = 20;
    manager.appear();
    EXPECT_TRUE(reportsAre({Online, Offline}));
    manager.vanish();
    EXPECT_TRUE(reportsAre({Online, Offline, Online}));
}

TEST_F(NetworkReachabilityTest, ReportsChangesOnly)
{
    manager.appear();
    NetworkReachability reachability(bus.address());
    watch(reachability);
    EXPECT_TRUE(reportsAre({Online}));
    manager.change({{QStringLiteral("State"), 20U}}, QStringLiteral("org.freedesktop.NetworkManager.Other"));
    manager.change({{QStringLiteral("State"), 60U}});
    manager.change({{QStringLiteral("WirelessEnabled"), true}});
    manager.change({{QStringLiteral("Connectivity"), 2U}});
    EXPECT_TRUE(reportsAre({Online, Online | Reachability::InterventionRequired}));
}

TEST_F(NetworkReachabilityTest, WhatTheManagersNumbersMean)
{
    constexpr quint32 portal = Online | Reachability::InterventionRequired;
    struct Case {
        const char* host;
        quint32 state;
        quint32 connectivity;
        quint32 flags;
    };
    const Case cases[] = {
        {"songs.example", 0, 0, Online},
        {"songs.example", 10, 0, Offline},
        {"songs.example", 20, 0, Offline},
        {"songs.example", 30, 0, Offline},
        {"songs.example", 40, 1, Offline},
        {"songs.example", 50, 1, Offline},
        {"songs.example", 60, 3, Online},
        {"songs.example", 60, 2, portal},
        {"songs.example", 70, 4, Online},
        {"songs.example", 70, 0, Online},
        {"songs.example", 70, 2, portal},
        {"192.168.1.2", 50, 1, Online},
        {"192.168.1.2", 70, 2, Online},
        {"192.168.1.2", 20, 1, Offline},
        {"10.0.0.1", 50, 1, Online},
        {"172.16.0.1", 50, 1, Online},
        {"172.32.0.1", 50, 1, Offline},
        {"172.example", 50, 1, Offline},
        {"nas", 50, 1, Online},
        {"nas.local", 50, 1, Online},
        {"fe80::1", 50, 1, Online},
        {"2001:db8::1", 50, 1, Offline},
        {"localhost", 20, 1, Online},
        {"127.0.0.1", 20, 1, Online},
        {"127.example", 20, 1, Offline},
        {"10.example", 50, 1, Offline},
        {"169.254.1.1", 50, 1, Online},
    };
    for (const Case& entry : cases)
        EXPECT_EQ(
            NetworkReachability::flagsFor(QString::fromLatin1(entry.host), entry.state, entry.connectivity),
            entry.flags)
            << entry.host << ' ' << entry.state << ' ' << entry.connectivity;
}

TEST_F(NetworkReachabilityTest, AHostOfThisMachineNeedsNoBus)
{
    manager.state = 20;
    manager.appear();
    NetworkReachability reachability(bus.address());
    watch(reachability, "LOCALHOST");
    EXPECT_TRUE(reportsAre({Online}));
    reachability.watch(QStringLiteral("songs.example"));
    EXPECT_TRUE(reportsAre({Online, Offline})); // and not first what was never asked for
}

} // namespace
} // namespace zib
