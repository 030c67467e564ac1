// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts a program in a language that nobody asked for, and numbers with the wrong form of what they count.
#include "translations/Translations.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <utility>

namespace zib {
namespace {

TEST(Translations, SpeaksTheFirstLanguageThatItKnows)
{
    const std::pair<QStringList, const char*> cases[] = {
        {{QStringLiteral("it-IT"), QStringLiteral("de-AT"), QStringLiteral("fr")}, "de"},
        {{QStringLiteral("es"), QStringLiteral("de")}, "es"},
        {{QStringLiteral("en-GB"), QStringLiteral("fr-FR")}, "en"},
        {{QStringLiteral("ja-JP")}, "en"},
        {{QStringLiteral("C")}, "en"},
        {{}, "en"},
    };
    for (const auto& [wanted, language] : cases)
        EXPECT_EQ(spokenLanguage(wanted), QLatin1String(language)) << wanted.join(u' ').toStdString();
}

TEST(Translations, CountsInEachLanguage)
{
    const auto songs = [](int count) {
        return QCoreApplication::translate("RVMainController", "%Ln songs", nullptr, count);
    };
    EXPECT_EQ(songs(1), QStringLiteral("1 song")) << "the tests speak English";
    EXPECT_EQ(songs(2), QStringLiteral("2 songs"));
    installTranslations({QStringLiteral("fr")});
    EXPECT_EQ(songs(0), QStringLiteral("0 morceau")) << "French counts none as one";
    EXPECT_EQ(songs(2), QStringLiteral("2 morceaux"));
    EXPECT_EQ(QCoreApplication::translate("Notices", "Cancel"), QStringLiteral("Annuler"));
}

} // namespace
} // namespace zib
