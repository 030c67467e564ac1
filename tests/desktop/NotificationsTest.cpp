// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: notifications that pile up, stay for good, or show markup; buttons that do nothing.
#include "platform/desktop/DesktopNotifications.h"
#include "tests/desktop/Eventually.h"
#include "tests/desktop/NotificationServerStandIn.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

Notification song(const char* title)
{
    return {QLatin1String(title), QStringLiteral("A & <b>")};
}

TEST(DesktopNotificationsTest, OneTakesThePlaceOfTheOtherAndItsButtonsWork)
{
    PrivateBus bus;
    NotificationServerStandIn server(bus, {QStringLiteral("actions"), QStringLiteral("body-markup")});
    DesktopNotifications notifications(bus.address());
    QString told;
    QObject::connect(&notifications, &Notifications::activated, &notifications,
                     [&told](const QString& token) { told += token; });
    QObject::connect(&notifications, &Notifications::nextRequested, &notifications,
                     [&told] { told += QStringLiteral("next "); });

    for (const char* title : {"1", "2", "3"}) // sooner than the server answers
        notifications.show(song(title));
    EXPECT_TRUE(eventually([&] { return !server.shown.isEmpty(); }));
    notifications.show(song("4"));
    EXPECT_TRUE(eventually([&] { return server.shown.size() >= 2; }));
    EXPECT_EQ(server.shown, (QStringList{QStringLiteral("41 3|A &amp; &lt;b&gt;"),
                                         QStringLiteral("41 4|A &amp; &lt;b&gt;")}));
    EXPECT_EQ(server.actions.size(), 4);

    server.press(40, QStringLiteral("next")); // another program's
    server.press(41, QStringLiteral("next"));
    server.press(41, QStringLiteral("default"));
    EXPECT_TRUE(eventually([&] { return told.contains(QLatin1String("token")); }));
    EXPECT_EQ(told, QStringLiteral("next token"));

    notifications.withdraw();
    notifications.show(song("5"));
    EXPECT_TRUE(eventually([&] { return server.shown.size() >= 4; }));
    EXPECT_EQ(server.shown.mid(2, 2),
              (QStringList{QStringLiteral("closed 41"), QStringLiteral("42 5|A &amp; &lt;b&gt;")}));
}

TEST(DesktopNotificationsTest, WhatIsWithdrawnAtOnceDoesNotStay)
{
    PrivateBus bus;
    NotificationServerStandIn server(bus, {});
    DesktopNotifications notifications(bus.address());
    notifications.show(song("1"));
    EXPECT_TRUE(eventually([&] { return !server.shown.isEmpty(); }));
    notifications.withdraw();
    EXPECT_TRUE(eventually([&] { return server.shown.size() >= 2; }));
    EXPECT_EQ(server.shown, (QStringList{QStringLiteral("41 1|A & <b>"), QStringLiteral("closed 41")}));
    EXPECT_EQ(server.actions, QStringList());
}

TEST(DesktopNotificationsTest, AServerThatComesLateIsFound)
{
    PrivateBus bus;
    DesktopNotifications notifications(bus.address());
    notifications.show(song("1"));
    NotificationServerStandIn server(bus, {});
    EXPECT_TRUE(eventually([&] {
        notifications.show(song("2"));
        return !server.shown.isEmpty();
    }));
}

} // namespace
} // namespace zib
