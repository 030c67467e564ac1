// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/PropertyValue.h"
#include "records/Record.h"

#include <QDateTime>

namespace zib {

/// How many songs a large library has.
inline constexpr int songCount = 100'000;

/// One of them, of 15 fields.
inline Record makeSong(int number)
{
    const QString id = QStringLiteral("%1").arg(number * 2654435761U, 16, 16, QLatin1Char('0'));
    const int artist = number % 2500;
    const QDateTime found = QDateTime::fromSecsSinceEpoch(1'200'000'000 + number * 731, Qt::UTC);
    return Record::make({
        {keys::Id, id},
        {keys::Name, QStringLiteral("A song of some length, number %1").arg(number)},
        {keys::Artist, QStringLiteral("Artist & Friends %1").arg(artist)},
        {keys::Album, QStringLiteral("The album called %1").arg(number / 12)},
        {keys::Genre, QStringLiteral("Genre %1").arg(number % 40)},
        {keys::Year, 1960 + number % 60},
        {keys::Duration, 120 + number % 300},
        {keys::Position, number % 12 + 1},
        {keys::Location, QStringLiteral("http://127.0.0.1:8642/audio/%1/%2.mp3").arg(artist).arg(id)},
        {keys::Info, QStringLiteral("http://127.0.0.1:8642/song/%1").arg(id)},
        {keys::Hotness, number % 101},
        {keys::Familiarity, number % 97},
        {keys::FoundDate, found},
        {keys::PlayCount, number % 50},
        {keys::PlayDate, found.addDays(90)},
    });
}

} // namespace zib
