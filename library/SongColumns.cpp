// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/SongColumns.h"

#include "records/RecordKeys.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zib {
namespace {

// In the order of the columns. Saved layouts and the sort descriptors in them hold these words.
constexpr std::array<std::string_view, songColumnCount> identifiers{
    "Speaker",    "Index",     "Favorite", "DL",          "Name",      "Artist",
    "Album",      "Progress",  "Duration", "Genre",       "Year",      "Position",
    "Play Count", "Play Date", "Hotness",  "Familiarity", "Found Date"};

} // namespace

QString identifierOf(SongColumn column)
{
    const std::string_view identifier = identifiers[std::size_t(column)];
    return QString::fromLatin1(identifier.data(), qsizetype(identifier.size()));
}

std::optional<SongColumn> songColumn(const QString& identifier)
{
    const QByteArray utf8 = identifier.toUtf8();
    const auto found =
        std::ranges::find(identifiers, std::string_view(utf8.constData(), std::size_t(utf8.size())));
    if (found == identifiers.end())
        return std::nullopt;
    return SongColumn(found - identifiers.begin());
}

} // namespace zib
