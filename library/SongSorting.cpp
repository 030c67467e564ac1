// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/SongSorting.h"

#include "library/BrowserIndex.h"
#include "records/RecordFields.h"
#include "records/RecordTable.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace zib {
namespace {

using Label = TextOrder::Label;

constexpr Label noValue = TextOrder::noText;

bool isText(SongColumn column)
{
    return column == SongColumn::Name || column == SongColumn::Artist || column == SongColumn::Album ||
           column == SongColumn::Genre;
}

/// Whether songs that have no such value have none of what is counted.
bool isCount(SongColumn column)
{
    return column == SongColumn::PlayCount || column == SongColumn::Love || column == SongColumn::Download;
}

RecordKey keyOf(SongColumn column)
{
    return column == SongColumn::Download ? keys::Downloaded : RecordKey::named(identifierOf(column));
}

/// In the order of the numbers, and never noValue.
Label labelOf(std::int64_t number)
{
    return std::min(static_cast<Label>(number) ^ (Label(1) << 63U), noValue - 1);
}

/// A number, or a date as its seconds.
Label valueLabel(const Record& song, RecordKey key, Label whenAbsent)
{
    const RecordFields& fields = song.content();
    const std::size_t place = fields.find(key);
    if (place == RecordFields::absent)
        return whenAbsent;
    switch (fields.type(place)) {
    case RecordFields::Type::Integer:
    case RecordFields::Type::Date:
        return labelOf(fields.integer(place));
    case RecordFields::Type::Boolean:
    case RecordFields::Type::Real:
        return labelOf(song.integer(key));
    default:
        return whenAbsent;
    }
}

} // namespace

SongSorting::SongSorting(const TextCollation& collation, const RecordTable& library,
                         BrowserIndex& libraryIndex)
    : collation_(collation)
    , library_(library)
    , libraryIndex_(libraryIndex)
{
}

SongSorting::Labels SongSorting::textLabels(const QList<Record>& songs, RecordKey key, Origin origin) const
{
    Labels result;
    result.reserve(std::size_t(songs.size()));
    if (origin.library) {
        libraryIndex_.refresh();
        const TextOrder& order = libraryIndex_.order(key);
        const bool placesKnown = origin.places != nullptr && origin.placing == libraryIndex_.placing();
        for (const Record& song : songs) {
            const std::optional<std::size_t> place =
                placesKnown ? (*origin.places)[std::size_t(song.integer(keys::Index))]
                            : library_.placeOf(song.utf8(keys::Id));
            result.push_back(place ? order.label(*place) : noValue);
        }
        return result;
    }
    TextOrder order(collation_);
    order.build(std::size_t(songs.size()),
                [&songs, key](std::size_t row) { return songs[qsizetype(row)].utf8(key); });
    for (std::size_t row = 0; row < std::size_t(songs.size()); ++row)
        result.push_back(order.label(row));
    return result;
}

SongSorting::Labels SongSorting::labels(const QList<Record>& songs, SongColumn column, Origin origin) const
{
    const RecordKey key = keyOf(column);
    if (isText(column))
        return textLabels(songs, key, origin);
    Labels result;
    result.reserve(std::size_t(songs.size()));
    constexpr qsizetype ahead = 16;
    for (qsizetype row = 0; row < songs.size(); ++row) {
        if (row + ahead < songs.size())
            songs[row + ahead].content().prefetchForReading();
        result.push_back(column == SongColumn::Index
                             ? labelOf(songs[row].integer(key))
                             : valueLabel(songs[row], key, isCount(column) ? labelOf(0) : noValue));
    }
    return result;
}

void SongSorting::sort(QList<Record>& songs, const QList<SortDescriptor>& descriptors, Origin origin) const
{
    std::vector<Labels> columns;
    for (const SortDescriptor& descriptor : descriptors) {
        const auto column = songColumn(descriptor.key);
        if (!column)
            continue; // of a layout that another version has saved
        columns.push_back(labels(songs, *column, origin));
        if (!descriptor.ascending)
            for (Label& label : columns.back())
                label = label == noValue ? noValue : noValue - 1 - label;
    }
    if (columns.empty())
        return;
    struct Row {
        Label label;
        std::uint32_t place;
    };
    std::vector<Row> rows;
    rows.reserve(std::size_t(songs.size()));
    for (const Label label : columns.front())
        rows.push_back({label, std::uint32_t(rows.size())});
    const auto isBefore = [&columns](const Row& a, const Row& b) {
        if (a.label != b.label)
            return a.label < b.label;
        for (std::size_t column = 1; column < columns.size(); ++column)
            if (columns[column][a.place] != columns[column][b.place])
                return columns[column][a.place] < columns[column][b.place];
        return a.place < b.place;
    };
    if (std::ranges::is_sorted(rows, isBefore))
        return;
    std::ranges::sort(rows, isBefore);
    QList<Record> unsorted;
    unsorted.swap(songs);
    Record* const from = unsorted.data();
    songs.reserve(unsorted.size());
    for (const Row& row : rows)
        songs.append(std::move(from[row.place]));
}

} // namespace zib
