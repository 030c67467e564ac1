// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: online taken for offline and the reverse, reports while the machine sleeps, the wrong host watched.
#include "services/PKNetwork.h"

#include "platform/SettingsKeys.h"
#include "tests/fakes/FakePowerEvents.h"
#include "tests/fakes/FakeReachability.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace zib {
namespace {

class PKNetworkTest : public testing::Test, public PKNetworkDelegate {
  protected:
    FakeReachability reachability;
    FakePowerEvents powerEvents;
    FakeUserDefaults defaults{{{settings::SongSearchHost, QStringLiteral("songs.example:80/base")}}};
    std::string told;

    void connectedToInternetNotification() override { told += 'C'; }
    void disconnectedFromInternetNotification() override { told += 'D'; }
    void pause() override { told += 'P'; }
};

TEST_F(PKNetworkTest, TwoFlagsMeanOffline)
{
    PKNetwork network(reachability, powerEvents, defaults, this);
    const std::pair<quint32, const char*> cases[] = {
        {0, "C"},  {2, "C"},      {2 + 4, "D"}, {2 + 16, "D"},           {4, "D"},
        {16, "D"}, {4 + 16, "D"}, {8, "C"},     {0xFFFFFFFFU - 20, "C"}, {0xFFFFFFFFU, "D"},
    };
    for (const auto& [flags, report] : cases) {
        told.clear();
        reachability.change(flags);
        EXPECT_EQ(told, report) << flags;
    }
}

TEST_F(PKNetworkTest, TheFirstReportComesFromTheEventLoop)
{
    const PKNetwork network(reachability, powerEvents, defaults, this);
    EXPECT_EQ(told, "");
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "C");
}

TEST_F(PKNetworkTest, ChangesDuringSleepAreLost)
{
    PKNetwork network(reachability, powerEvents, defaults, this);
    powerEvents.sleep();
    reachability.change(Reachability::ConnectionRequired);
    reachability.change(Reachability::Reachable);
    EXPECT_EQ(told, "P");
    powerEvents.wake();
    EXPECT_EQ(told, "P");
    reachability.change(Reachability::ConnectionRequired);
    EXPECT_EQ(told, "PD");
}

TEST_F(PKNetworkTest, WatchesTheHostThatTheSettingsName)
{
    PKNetwork network(reachability, powerEvents, defaults, this);
    EXPECT_EQ(reachability.watchedHost.toStdString(), "songs.example");
    const std::pair<const char*, const char*> cases[] = {
        {"127.0.0.1:8080", "127.0.0.1"}, {"[::1]:8080/x", "::1"}, {"", "localhost"}, {"other", "other"},
        {"not a host", "localhost"},
    };
    for (const auto& [setting, host] : cases) {
        defaults.setValue(settings::SongSearchHost, QString::fromUtf8(setting));
        EXPECT_EQ(reachability.watchedHost.toStdString(), host);
    }
    reachability.watchedHost.clear();
    defaults.setValue(settings::LyricsHost, QStringLiteral("lyrics"));
    EXPECT_TRUE(reachability.watchedHost.isEmpty()); // no other setting matters
}

TEST_F(PKNetworkTest, TellsNobodyOnceItIsGone)
{
    {
        const PKNetwork network(reachability, powerEvents, defaults, this);
    }
    QCoreApplication::processEvents();
    reachability.change(0);
    powerEvents.sleep();
    defaults.setValue(settings::SongSearchHost, QStringLiteral("x"));
    EXPECT_EQ(told, "");
    EXPECT_EQ(reachability.watchedHost.toStdString(), "songs.example");
}

} // namespace
} // namespace zib
