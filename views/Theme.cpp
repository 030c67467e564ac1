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

#include <algorithm>
#include <cmath>
#include <optional>

// Outside the namespace, as the resource's own function is.
static void initialiseResources()
{
    Q_INIT_RESOURCE(views);
}

namespace zib {

namespace {

Theme currentTheme = Theme::light();
bool reduceMotion = false;

// Above what any ordinary theme has, and what black and white just reach.
constexpr double highestOrdinaryContrast = 20;
constexpr double readable = 4.5;
constexpr double visible = 3;

double luminance(const QColor& colour)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

QColor mixed(const QColor& ground, const QColor& other, double part)
{
    const auto mix = [part](double a, double b) { return float(a + (b - a) * part); };
    return QColor::fromRgbF(mix(ground.redF(), other.redF()), mix(ground.greenF(), other.greenF()),
                            mix(ground.blueF(), other.blueF()));
}

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

bool isHighContrast(const QPalette& palette)
{
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::Window, QPalette::WindowText},
        {QPalette::Base, QPalette::Text},
        {QPalette::Button, QPalette::ButtonText}};
    return std::all_of(std::begin(pairs), std::end(pairs), [&](const auto& pair) {
        return contrast(palette.color(pair.first), palette.color(pair.second)) >= highestOrdinaryContrast;
    });
}

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
        palette.setColor(QPalette::Disabled, role, theme.disabled);
    return palette;
}

QString textOf(const QString& resource)
{
    QFile file(resource);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The style sheet with every @role replaced by the theme's colour, and every @measure by its pixels.
QString styleSheetOf(const Theme& theme)
{
    QString sheet = textOf(QStringLiteral(":/zib/style.qss"));
    if (theme.highContrast)
        sheet += textOf(QStringLiteral(":/zib/contrast.qss"));
    // A sheet can draw no picture in a colour of the theme.
    const bool lightMark = theme.onAccent.lightness() > theme.accent.lightness();
    sheet.replace(QLatin1String("@checkMark;"), lightMark ? QLatin1String("url(:/zib/check-light.svg);")
                                                          : QLatin1String("url(:/zib/check-dark.svg);"));
    if (QGuiApplication::isRightToLeft())
        sheet.replace(QLatin1String("border-right:"), QLatin1String("border-left:"));
    const std::pair<const char*, QColor> colours[] = {
        {"@window", theme.window},    {"@alternate", theme.alternate}, {"@bar", theme.bar},
        {"@source", theme.source},    {"@border", theme.border},       {"@quiet", theme.quiet},
        {"@outline", theme.outline},  {"@text", theme.text},           {"@secondary", theme.secondary},
        {"@accent", theme.accent},    {"@onAccent", theme.onAccent},   {"@error", theme.error},
        {"@disabled", theme.disabled}};
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

Theme themeFor(const QString& appearance, const QPalette& desktop)
{
    const bool dark =
        appearance == QLatin1String("dark") || (appearance != QLatin1String("light") && isDark(desktop));
    if (isHighContrast(desktop) && dark == isDark(desktop))
        return Theme::highContrastOf(desktop);
    return dark ? Theme::darkTheme() : Theme::light();
}

} // namespace

double contrast(const QColor& a, const QColor& b)
{
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

const Theme& Theme::current()
{
    return currentTheme;
}

Theme Theme::highContrastOf(const QPalette& desktop)
{
    const QColor ground = desktop.color(QPalette::Base);
    const QColor text = desktop.color(QPalette::Text);
    const auto orText = [&](const QColor& colour, double least) {
        return contrast(colour, ground) >= least ? colour : text;
    };
    const QColor accent = orText(desktop.color(QPalette::Highlight), visible);
    const QColor onAccent = desktop.color(QPalette::HighlightedText);
    const QColor disabled = mixed(ground, text, 0.6);
    const bool dark = isDark(desktop);
    const Theme& ordinary = dark ? darkTheme() : light();
    return {.window = ground,
            .alternate = ground,
            .bar = desktop.color(QPalette::Window),
            .source = desktop.color(QPalette::Window),
            .border = text,
            .quiet = mixed(ground, text, 0.25),
            .outline = text,
            .text = text,
            .secondary = text,
            .accent = accent,
            .onAccent = contrast(onAccent, accent) >= readable ? onAccent : ground,
            .loved = orText(ordinary.loved, readable),
            .error = orText(ordinary.error, readable),
            .unplayable = disabled,
            .disabled = disabled,
            .dark = dark,
            .highContrast = true};
}

void useTheme(QApplication& application, const Theme& theme)
{
    initialiseResources();
    currentTheme = theme;
    application.setPalette(paletteOf(theme));
    application.setStyleSheet(styleSheetOf(theme));
}

/// What moves looks whether it may when its style changes.
void useMotion(bool reduced)
{
    reduceMotion = reduced;
    QEvent change(QEvent::StyleChange);
    for (QWidget* widget : QApplication::allWidgets())
        QCoreApplication::sendEvent(widget, &change);
}

void applyTheme(QApplication& application, UserDefaults& defaults)
{
    const QPalette desktop = application.palette();
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    useTheme(application, themeFor(defaults.string(settings::Appearance), desktop));
    reduceMotion = defaults.boolean(settings::ReduceMotion);
    QObject::connect(&defaults, &UserDefaults::changed, &application, [&, desktop](const QString& key) {
        if (key == settings::Appearance)
            useTheme(application, themeFor(defaults.string(settings::Appearance), desktop));
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
