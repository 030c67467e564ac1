// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: text that can't be read on its ground, a colour of the style sheet that nobody gave.
#include "views/Theme.h"
#include "platform/SettingsKeys.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "views/Icons.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace zib {
namespace {

double luminance(const QColor& colour)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

TEST(Theme, TextStandsOutFromEveryGroundItIsDrawnOn)
{
    for (const Theme* theme : {&Theme::light(), &Theme::darkTheme()}) {
        SCOPED_TRACE(theme->dark ? "dark" : "light");
        for (const QColor& ground : {theme->window, theme->alternate, theme->bar, theme->source}) {
            EXPECT_GE(contrast(theme->text, ground), 4.5);
            EXPECT_GE(contrast(theme->secondary, ground), 4.5);
        }
        for (const QColor& ground : {theme->window, theme->alternate}) {
            EXPECT_GE(contrast(theme->error, ground), 4.5);
            EXPECT_GE(contrast(theme->unplayable, ground), 4.5);
        }
        EXPECT_GE(contrast(theme->onAccent, theme->accent), 4.5);
        for (const QColor& ground : {theme->window, theme->alternate, theme->bar})
            for (const QColor& control : {theme->accent, theme->loved, theme->outline})
                EXPECT_GE(contrast(control, ground), 3);
    }
}

TEST(Theme, TheStyleSheetKnowsEveryRoleItNames)
{
    const QRegularExpression leftOver(QStringLiteral("@\\w+"));
    EXPECT_FALSE(qApp->styleSheet().isEmpty());
    const QString sheet = QString(qApp->styleSheet()).remove(QStringLiteral("\"@name;\""));
    EXPECT_EQ(leftOver.match(sheet).captured(), QString());
}

TEST(Theme, FollowsTheSettingWhileItRuns)
{
    FakeUserDefaults defaults({{settings::Appearance, QStringLiteral("dark")}});
    applyTheme(*qApp, defaults);
    EXPECT_TRUE(Theme::current().dark);
    EXPECT_EQ(qApp->palette().color(QPalette::Base), Theme::darkTheme().window);
    defaults.setValue(settings::Appearance, QStringLiteral("light"));
    EXPECT_FALSE(Theme::current().dark);
    EXPECT_EQ(qApp->palette().color(QPalette::Base), Theme::light().window);
}

TEST(Icons, EveryOneIsDrawnInTheColourAskedFor)
{
    const QStringList files = QDir(QStringLiteral(":/zib/icons")).entryList();
    ASSERT_FALSE(files.isEmpty());
    for (const QString& file : files) {
        const QImage image = icon(file.chopped(4), Tint::Loved).pixmap(40, 40).toImage();
        int drawn = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                drawn += image.pixelColor(x, y).alpha() == 255 &&
                         image.pixelColor(x, y).rgb() == Theme::current().loved.rgb();
        EXPECT_GT(drawn, 20) << file.toStdString();
    }
}

} // namespace
} // namespace zib
