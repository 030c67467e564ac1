// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a dead service that is said to answer, an answer out of the cache, a probe that tells twice or reads
// what a hostile host sends without end.
#include "services/ServiceProbe.h"

#include "platform/SettingsKeys.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeUrlLoader.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

using Outcome = ServiceProbe::Outcome;

struct Probing {
    FakeUrlLoader loader;
    FakeUserDefaults defaults{{{settings::LyricsHost, QStringLiteral("h:1/a")}}};
    FakeClock clock;
    std::vector<Outcome> told;
    QString reason;
    std::unique_ptr<ServiceProbe> probe;

    void ask(const QString& key)
    {
        probe = std::make_unique<ServiceProbe>(WebServices{loader, defaults, clock}, key,
                                               [this](Outcome outcome, const QString& why) {
                                                   told.push_back(outcome);
                                                   reason = why;
                                                   probe.reset();
                                               });
    }
};

TEST(ServiceProbe, TheFirstWordOfTheServerDecides)
{
    const std::pair<int, Outcome> cases[] = {
        {200, Outcome::Answers}, {404, Outcome::Answers}, {302, Outcome::Answers}, {503, Outcome::Fails}};
    for (const auto& [status, outcome] : cases) {
        Probing probing;
        probing.ask(settings::LyricsHost);
        EXPECT_EQ(probing.loader.last().request.url, "http://h:1/a/");
        EXPECT_FALSE(probing.loader.last().request.returnCacheDataElseLoad);
        EXPECT_TRUE(probing.told.empty());
        probing.loader.last().respond({status, -1, {}});
        EXPECT_FALSE(probing.loader.last().isRunning());
        EXPECT_EQ(probing.told, std::vector{outcome}) << status;
        EXPECT_EQ(probing.reason.isEmpty(), outcome == Outcome::Answers);
    }
}

TEST(ServiceProbe, NoAnswerSaysWhy)
{
    Probing probing;
    probing.ask(settings::LyricsHost);
    probing.loader.last().fail(QStringLiteral("The connection timed out."));
    EXPECT_EQ(probing.told, std::vector{Outcome::Silent});
    EXPECT_EQ(probing.reason, QStringLiteral("The connection timed out."));

    probing.ask(settings::ReleaseHost); // which has no host
    EXPECT_EQ(probing.told.size(), 2U);
    EXPECT_EQ(probing.loader.exchanges.size(), 1U);
    EXPECT_FALSE(probing.reason.isEmpty());
}

} // namespace
} // namespace zib
