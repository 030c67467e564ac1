// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/Theme.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QWidget>

// Outside the namespace, as the resource's own function is.
static void initialiseResources()
{
    Q_INIT_RESOURCE(views);
}

namespace zib {

namespace {

const Theme* currentTheme = &Theme::light();
bool reduceMotion = false;

QPalette paletteOf(const Theme& theme)
{
    QPalette palette;
    palette.setColor(QPalette::Window, theme.bar);
    palette.setColor(QPalette::WindowText, theme.text);
    palette.setColor(QPalette::Base, theme.window);
    palette.setColor(QPalette::AlternateBase, theme.alternate);
    palette.setColor(QPalette::Text, theme.text);
    palette.setColor(QPalette::PlaceholderText, theme.secondary);
    palette.setColor(QPalette::Button, theme.bar);
    palette.setColor(QPalette::ButtonText, theme.text);
    palette.setColor(QPalette::BrightText, theme.error);
    palette.setColor(QPalette::Highlight, theme.accent);
    palette.setColor(QPalette::HighlightedText, theme.onAccent);
    palette.setColor(QPalette::Link, theme.accent);
    palette.setColor(QPalette::LinkVisited, theme.accent);
    palette.setColor(QPalette::ToolTipBase, theme.text);
    palette.setColor(QPalette::ToolTipText, theme.window);
    palette.setColor(QPalette::Mid, theme.border);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, theme.outline);
    return palette;
}

/// The style sheet with every @role replaced by the theme's colour, and every @measure by its pixels.
QString styleSheetOf(const Theme& theme)
{
    QFile file(QStringLiteral(":/zib/style.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QString sheet = QString::fromUtf8(file.readAll());
    const std::pair<const char*, QColor> colours[] = {
        {"@window", theme.window},     {"@alternate", theme.alternate}, {"@bar", theme.bar},
        {"@source", theme.source},     {"@border", theme.border},       {"@outline", theme.outline},
        {"@text", theme.text},         {"@secondary", theme.secondary}, {"@accent", theme.accent},
        {"@onAccent", theme.onAccent}, {"@error", theme.error}};
    for (const auto& [name, colour] : colours)
        sheet.replace(QLatin1String(name) + QLatin1Char(';'), colour.name() + QLatin1Char(';'));
    const std::pair<const char*, int> measures[] = {{"@corner", Theme::corner},
                                                    {"@tableText", Theme::tableText},
                                                    {"@secondarySize", Theme::secondaryText},
                                                    {"@headerText", Theme::headerText},
                                                    {"@titleText", Theme::titleText}};
    for (const auto& [name, pixels] : measures)
        sheet.replace(QLatin1String(name) + QLatin1Char(';'), QString::number(pixels) + QLatin1String("px;"));
    return sheet;
}

/// What moves looks whether it may when its style changes.
void useMotion(bool reduced)
{
    reduceMotion = reduced;
    QEvent change(QEvent::StyleChange);
    for (QWidget* widget : QApplication::allWidgets())
        QCoreApplication::sendEvent(widget, &change);
}

void useTheme(QApplication& application, const Theme& theme)
{
    currentTheme = &theme;
    application.setPalette(paletteOf(theme));
    application.setStyleSheet(styleSheetOf(theme));
}

const Theme& themeFor(const QString& appearance, bool desktopIsDark)
{
    const bool dark =
        appearance == QLatin1String("dark") || (appearance != QLatin1String("light") && desktopIsDark);
    return dark ? Theme::darkTheme() : Theme::light();
}

} // namespace

const Theme& Theme::current()
{
    return *currentTheme;
}

void applyTheme(QApplication& application, UserDefaults& defaults)
{
    initialiseResources();
    const QPalette desktop = application.palette();
    const bool desktopIsDark =
        desktop.color(QPalette::Window).lightness() < desktop.color(QPalette::WindowText).lightness();
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    useTheme(application, themeFor(defaults.string(settings::Appearance), desktopIsDark));
    reduceMotion = defaults.boolean(settings::ReduceMotion);
    QObject::connect(&defaults, &UserDefaults::changed, &application, [&, desktopIsDark](const QString& key) {
        if (key == settings::Appearance)
            useTheme(application, themeFor(defaults.string(settings::Appearance), desktopIsDark));
        else if (key == settings::ReduceMotion)
            useMotion(defaults.boolean(settings::ReduceMotion));
    });
}

bool motionReduced(const QWidget& widget)
{
    // A desktop that wants no motion sets the duration of animations to nothing.
    return reduceMotion ||
           widget.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &widget) == 0;
}

} // namespace zib
