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

namespace zib {
namespace {

/// A palette of a desktop, by the ground of windows and what stands on it.
QPalette paletteOf(const QColor& ground, const QColor& text, const QColor& highlight)
{
    QPalette palette(text, ground, text, ground, ground, text, text, ground, ground);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, ground);
    return palette;
}

TEST(Theme, TextStandsOutFromEveryGroundItIsDrawnOn)
{
    const std::pair<const char*, Theme> themes[] = {
        {"light", Theme::light()},
        {"dark", Theme::darkTheme()},
        {"black on white", Theme::highContrastOf(paletteOf(Qt::white, Qt::black, 0x0037c8))},
        {"white on black", Theme::highContrastOf(paletteOf(Qt::black, Qt::white, 0xffd800))},
        {"a highlight that can't be told", Theme::highContrastOf(paletteOf(Qt::black, Qt::white, 0x101060))}};
    for (const auto& [name, theme] : themes) {
        SCOPED_TRACE(name);
        for (const QColor& ground : {theme.window, theme.alternate, theme.bar, theme.source}) {
            EXPECT_GE(contrast(theme.text, ground), 4.5);
            EXPECT_GE(contrast(theme.secondary, ground), 4.5);
        }
        for (const QColor& ground : {theme.window, theme.alternate}) {
            EXPECT_GE(contrast(theme.error, ground), 4.5);
            EXPECT_GE(contrast(theme.unplayable, ground), 4.5);
        }
        EXPECT_GE(contrast(theme.onAccent, theme.accent), 4.5);
        EXPECT_GE(contrast(theme.text, theme.quiet), 4.5);
        for (const QColor& ground : {theme.window, theme.alternate, theme.bar})
            for (const QColor& control : {theme.accent, theme.loved, theme.outline, theme.disabled})
                EXPECT_GE(contrast(control, ground), 3);
        for (const QColor& mark : {theme.accent, theme.error, theme.secondary})
            EXPECT_GE(contrast(mark, theme.quiet), 3) << "marks of a selected row without the keyboard";
    }
}

TEST(Theme, HonoursADesktopOfHighContrastAndTakesNoOtherForOne)
{
    const QColor highlight(0xffd800);
    const std::tuple<const char*, QPalette, QString, bool> desktops[] = {
        {"white on black", paletteOf(Qt::black, Qt::white, highlight), QString(), true},
        {"the user wants it light", paletteOf(Qt::black, Qt::white, highlight), QStringLiteral("light"),
         false},
        {"the toolkit's own", paletteOf(0xefefef, Qt::black, 0x308cc6), QString(), false},
        {"an ordinary dark one", paletteOf(0x1e1e1e, Qt::white, 0x308cc6), QString(), false}};
    for (const auto& [name, palette, appearance, isHonoured] : desktops) {
        SCOPED_TRACE(name);
        FakeUserDefaults defaults({{settings::Appearance, appearance}});
        qApp->setPalette(palette);
        applyTheme(*qApp, defaults);
        EXPECT_EQ(Theme::current().highContrast, isHonoured);
        EXPECT_EQ(qApp->palette().color(QPalette::Highlight) == highlight, isHonoured);
    }
    useTheme(*qApp, Theme::light());
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
