// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/PropertyValue.h"

#include <limits>

namespace zib {

/// A record with a value of every kind, at the edges of what it may hold.
inline Record everyKindOfValue()
{
    Record record = Record::make({
        {keys::Name, QStringLiteral("<b> & \"c\" ]]> 'd' \u00e9\u4e2d\U0001F3B5\ttab\nline\rreturn")},
        {keys::Album, QString()},
        {keys::Year, std::numeric_limits<qint64>::min()},
        {keys::Duration, std::numeric_limits<qint64>::max()},
        {keys::Hotness, 0.1},
        {keys::Familiarity, 1e300},
        {keys::Favorite, true},
        {keys::Downloaded, false},
        {keys::FoundDate, QDateTime(QDate(1900, 2, 28), QTime(23, 59, 59), Qt::UTC)},
        {keys::PlayDate, QDateTime(QDate(2400, 2, 29), QTime(0, 0), Qt::UTC)},
        {keys::ShareId, QByteArray("\0\x01\xff bytes", 9)},
        {keys::Tracks, PropertyArray{QStringLiteral("one"), 2, 3.5, false, PropertyArray{}, Record::make()}},
    });
    record.set(RecordKey::named(std::string_view("a key <of> & its own")),
               Record::make({{keys::Name, QStringLiteral("nested")}}));
    return record;
}

} // namespace zib
