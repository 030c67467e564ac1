// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/BrowserIndex.h"

#include "records/RecordTable.h"
#include "services/utilities/WildcardMatch.h"

#include <algorithm>
#include <numeric>

namespace zib {
namespace {

/// More changes than that are not worked in one by one.
constexpr std::size_t manyChanges = 256;

/// The name as the artists are sorted: "The Zombies" stand under Z.
QStringView sortedBy(const QString& artist)
{
    const bool hasArticle =
        artist.size() > 3 && artist.startsWith(QLatin1String("the "), Qt::CaseInsensitive);
    return hasArticle ? QStringView(artist).sliced(4) : artist;
}

bool artistLess(const QString& a, const QString& b)
{
    const int order = sortedBy(a).compare(sortedBy(b), Qt::CaseInsensitive);
    return order != 0 ? order < 0 : a < b;
}

bool albumLess(const QString& a, const QString& b)
{
    return a < b;
}

std::uint8_t bit(FilterType filter)
{
    return std::uint8_t(1U << unsigned(filter));
}

/// Which filters let the song pass.
std::uint8_t filtersOf(const Record& track)
{
    std::uint8_t filters = bit(FilterType::All);
    if (track.boolean(keys::Downloaded))
        filters |= bit(FilterType::Downloads);
    if (track.utf8(keys::Location).starts_with("file://"))
        filters |= bit(FilterType::Imported);
    if (track.boolean(keys::Favorite))
        filters |= bit(FilterType::Favorites);
    return filters;
}

bool holdsText(const RecordFields& fields, RecordKey key)
{
    const std::size_t place = fields.find(key);
    return place != RecordFields::absent && fields.type(place) == RecordFields::Type::String;
}

} // namespace

NameNumbers::Number NameNumbers::number(std::string_view utf8)
{
    const auto found = numbers_.constFind(QByteArray::fromRawData(utf8.data(), qsizetype(utf8.size())));
    if (found != numbers_.constEnd())
        return *found;
    const auto number = Number(names_.size());
    numbers_.insert(QByteArray(utf8.data(), qsizetype(utf8.size())), number);
    names_.append(QString::fromUtf8(utf8.data(), qsizetype(utf8.size())));
    return number;
}

const std::vector<NameNumbers::Number>& NameNumbers::inOrder()
{
    const auto known = std::ptrdiff_t(order_.size());
    if (known == names_.size())
        return order_;
    order_.resize(std::size_t(names_.size()));
    std::iota(order_.begin() + known, order_.end(), Number(known));
    const auto less = [this](Number a, Number b) { return less_(names_[a], names_[b]); };
    std::sort(order_.begin() + known, order_.end(), less);
    std::inplace_merge(order_.begin(), order_.begin() + known, order_.end(), less);
    return order_;
}

BrowserIndex::BrowserIndex(const RecordTable& table, const TextCollation& collation)
    : table_(table)
    , collation_(collation)
    , artists_(artistLess)
    , albums_(albumLess)
{
}

void BrowserIndex::refresh()
{
    if (placing_ != table_.placing()) {
        entries_.clear();
        columns_.clear();
        placing_ = table_.placing();
    }
    entries_.resize(table_.placeCount());
    table_.forEachPlace([this](std::size_t place, const Record& record) {
        Entry& entry = entries_[place];
        const bool known = record ? record.hasFields(entry.fields) && entry.filters != 0 : entry.filters == 0;
        if (!known)
            read(place, record);
    });
}

void BrowserIndex::read(std::size_t place, const Record& record)
{
    Entry entry;
    entry.fields = record.fields();
    if (record)
        entry.filters = filtersOf(record);
    if (holdsText(entry.fields, keys::Artist))
        entry.artist = artists_.number(entry.fields.text(keys::Artist));
    if (holdsText(entry.fields, keys::Album))
        entry.album = albums_.number(entry.fields.text(keys::Album));
    for (auto& [key, column] : columns_)
        if (entry.fields.text(key) != entries_[place].fields.text(key))
            column.changed.push_back(std::uint32_t(place));
    entries_[place] = std::move(entry);
}

bool BrowserIndex::passes(const Entry& entry, FilterType filter)
{
    return (entry.filters & bit(filter)) != 0;
}

BrowserIndex::Marks BrowserIndex::matching(const NameNumbers& names, const QString& pattern)
{
    const WildcardMatch match(pattern);
    Marks marks(std::size_t(names.names().size()));
    for (qsizetype number = 0; number < names.names().size(); ++number)
        marks[std::size_t(number)] = match.matches(names.names()[number]);
    return marks;
}

bool BrowserIndex::isMarked(const Marks& marks, NameNumbers::Number number)
{
    return number != noName && marks[number];
}

QStringList BrowserIndex::marked(const Marks& marks, NameNumbers& names)
{
    QStringList result;
    for (const NameNumbers::Number number : names.inOrder())
        if (marks[number])
            result.append(names.names()[number]);
    return result;
}

QStringList BrowserIndex::artists(FilterType filter)
{
    Marks found(std::size_t(artists_.names().size()));
    for (const Entry& entry : entries_)
        if (entry.artist != noName && passes(entry, filter))
            found[entry.artist] = true;
    return marked(found, artists_);
}

QStringList BrowserIndex::albums(FilterType filter, const std::optional<QString>& artist)
{
    const Marks artists = artist ? matching(artists_, *artist) : Marks();
    Marks found(std::size_t(albums_.names().size()));
    for (const Entry& entry : entries_)
        if (entry.album != noName && passes(entry, filter) && (!artist || isMarked(artists, entry.artist)))
            found[entry.album] = true;
    return marked(found, albums_);
}

QList<Record> BrowserIndex::tracks(const Choice& choice, std::vector<std::uint32_t>* places) const
{
    const Marks artists = choice.artist ? matching(artists_, *choice.artist) : Marks();
    Marks albums;
    if (choice.album && choice.artist) {
        albums.resize(std::size_t(albums_.names().size()));
        const qsizetype number = albums_.names().indexOf(*choice.album);
        if (number >= 0)
            albums[std::size_t(number)] = true;
    } else if (choice.album) {
        albums = matching(albums_, *choice.album);
    }
    QList<Record> result;
    if (!choice.artist && !choice.album && choice.filter == FilterType::All)
        result.reserve(table_.size());
    constexpr std::size_t ahead = 16;
    for (std::size_t place = 0; place < entries_.size(); ++place) {
        if (place + ahead < entries_.size() && passes(entries_[place + ahead], choice.filter))
            entries_[place + ahead].fields.prefetch();
        const Entry& entry = entries_[place];
        if (passes(entry, choice.filter) && (!choice.artist || isMarked(artists, entry.artist)) &&
            (!choice.album || isMarked(albums, entry.album))) {
            result.append(Record::makeRow(entry.fields, std::int32_t(result.size())));
            if (places != nullptr)
                places->push_back(std::uint32_t(place));
        }
    }
    return result;
}

const TextOrder& BrowserIndex::order(RecordKey key)
{
    const auto texts = [this, key](std::size_t place) { return entries_[place].fields.text(key); };
    const auto [found, isNew] = columns_.try_emplace(key, collation_);
    Column& column = found->second;
    if (isNew || column.changed.size() > manyChanges)
        column.order.build(entries_.size(), texts);
    else
        column.order.change(column.changed, texts);
    column.changed.clear();
    return column.order;
}

} // namespace zib
