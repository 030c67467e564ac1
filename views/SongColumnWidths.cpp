// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SongColumnWidths.h"

#include "views/Theme.h"

#include <QFontMetrics>
#include <QGuiApplication>

#include <algorithm>

namespace zib {

namespace {

constexpr int legibleNames = 140;
constexpr int legibleText = 88;

int usualWidth(SongColumn column)
{
    switch (column) {
    case SongColumn::Speaker:
    case SongColumn::Love:
    case SongColumn::Download:
        return smallestColumn;
    case SongColumn::Index:
        return 40;
    case SongColumn::Name:
        return 220;
    case SongColumn::Artist:
    case SongColumn::Album:
        return 160;
    case SongColumn::Genre:
        return 104;
    case SongColumn::Progress:
        return 92;
    case SongColumn::PlayDate:
    case SongColumn::FoundDate:
        return 100;
    case SongColumn::Hotness:
    case SongColumn::Familiarity:
        return 80;
    default:
        return 60;
    }
}

/// Titles are longer in some languages.
int titleWidth(const QString& title)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(Theme::secondaryText);
    return QFontMetrics(font).horizontalAdvance(title) + 2 * Theme::between + 1; // and the line between two
}

} // namespace

bool isFlexible(SongColumn column)
{
    return std::ranges::find(flexibleColumns, column) != flexibleColumns.end();
}

bool isFixed(SongColumn column)
{
    return column == SongColumn::Speaker || column == SongColumn::Love || column == SongColumn::Download;
}

int firstWidth(SongColumn column, const QString& title)
{
    return std::max(usualWidth(column), titleWidth(title));
}

int leastWidth(SongColumn column, int width)
{
    if (column == SongColumn::Name)
        return legibleNames;
    return isFlexible(column) ? legibleText : width;
}

} // namespace zib
