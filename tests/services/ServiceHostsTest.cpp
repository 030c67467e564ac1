// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: an address that is none accepted for all services, slashes doubled or lost on the way to one.
#include "services/ServiceHosts.h"

#include "platform/SettingsKeys.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

TEST(ServiceHosts, OneBaseSetsThemAll)
{
    const std::pair<const char*, const char*> cases[] = {
        {"http://h", "h"},
        {"http://h/", "h"},
        {"http://h:8080", "h:8080"},
        {"http://h:8080/a/b//", "h:8080/a/b"},
        {"http://127.0.0.1:1", "127.0.0.1:1"},
        {"http://[::1]:8080/", "[::1]:8080"},
        {"HTTP://H", "h"},
        {"h", nullptr},
        {"h:80", nullptr},
        {"", nullptr},
        {"http://", nullptr},
        {"http:///x", nullptr},
        {"https://h", nullptr},
        {"ftp://h", nullptr},
        {"file:///x", nullptr},
        {"http://h?x", nullptr},
        {"http://h#x", nullptr},
        {"http://me:secret@h", nullptr},
        {"http://h:99999", nullptr},
        {"http://h h", nullptr},
    };
    for (const auto& [base, host] : cases) {
        const auto hosts = hostsAtBase(QString::fromUtf8(base));
        ASSERT_EQ(hosts.has_value(), host != nullptr) << base;
        if (!hosts)
            continue;
        EXPECT_EQ(hosts->size(), serviceHostKeys().size());
        for (const QString& key : serviceHostKeys())
            EXPECT_EQ(hosts->value(key).toString().toStdString(), host) << base;
    }
}

TEST(ServiceHosts, WhatIsTypedBecomesAHost)
{
    const std::pair<const char*, const char*> cases[] = {
        {" music.example ", "music.example"},
        {"h:8080/a/", "h:8080/a"},
        {"http://h/", "h"},
        {"https://h", nullptr},
        {"", nullptr},
        {"h h", nullptr},
    };
    for (const auto& [typed, host] : cases)
        EXPECT_EQ(serviceHostFrom(QString::fromUtf8(typed)).value_or(QStringLiteral("none")).toStdString(),
                  host != nullptr ? host : "none")
            << typed;
}

TEST(ServiceHosts, NoServiceIsNamedByDefault)
{
    const QVariantMap defaults = defaultAddresses();
    for (const QString& key : serviceHostKeys())
        EXPECT_FALSE(defaults.contains(key)) << key.toStdString();
    for (const QString& key :
         {settings::HomePage, settings::SupportPage, settings::SharedPlaylistsPage, settings::VideoSite})
        EXPECT_TRUE(defaults.contains(key)) << key.toStdString();
}

TEST(ServiceHosts, AddressesJoinHostAndPath)
{
    const std::pair<const char*, const char*> cases[] = {
        {"h", "http://h/p?q"}, {"h/", "http://h/p?q"}, {"h:1/a", "http://h:1/a/p?q"}, {"", ""}, {"/", ""},
    };
    for (const auto& [host, address] : cases) {
        const FakeUserDefaults defaults({{settings::LyricsHost, QString::fromUtf8(host)}});
        EXPECT_EQ(serviceAddress(defaults, settings::LyricsHost, QStringLiteral("/p?q")).toStdString(),
                  address);
        EXPECT_EQ(serviceAddress(defaults, settings::ReleaseHost, QStringLiteral("/p?q")).toStdString(), "");
    }
}

} // namespace
} // namespace zib
