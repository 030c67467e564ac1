// SPDX-License-Identifier: GPL-3.0-or-later
// What the markup holds: dictionaries, arrays and the simple values.
#include "records/PropertyListReaders.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <limits>

namespace zib {
namespace {

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool digits(std::string_view text, std::size_t begin, std::size_t length, int& number)
{
    const char* const first = text.data() + begin;
    const auto [last, error] = std::from_chars(first, first + length, number);
    return *first != '-' && error == std::errc() && last == first + length;
}

} // namespace

RecordKey XmlPropertyListReader::interned(std::string_view name)
{
    // Nearly every key has just been met in the record before; the shared table of names is locked.
    std::size_t hash = name.size() * 31;
    if (!name.empty())
        hash += static_cast<unsigned char>(name.front()) * 7U + static_cast<unsigned char>(name.back()) +
                static_cast<unsigned char>(name[name.size() / 2]) * 3U;
    CachedKey& cached = cachedKeys_[hash % cachedKeys_.size()];
    if (cached.name != name || cached.name.data() == nullptr) {
        cached.key = RecordKey::named(name);
        cached.name = cached.key.name();
    }
    return cached.key;
}

/// The next key of a dictionary and the tag of its value.
bool XmlPropertyListReader::readKey(Tag& tag, bool& atEnd, std::string_view& name)
{
    if (!readTag(tag))
        return false;
    atEnd = tag.closing;
    if (atEnd)
        return tag.element == Element::Dict || fail("wrong closing tag");
    return tag.element == Element::Key ? readText(tag, name) : fail("value without a key");
}

/// The start of a field that looks like one met before: the one after the last, or few places on, for a field
/// that other records have may be missing.
const XmlPropertyListReader::FieldStart* XmlPropertyListReader::knownFieldStart(std::size_t& place)
{
    constexpr std::size_t window = 4;
    const std::size_t last = std::min(place + window, fieldStarts_.size());
    for (std::size_t candidate = place; candidate < last; ++candidate) {
        const KnownFieldStart& known = fieldStarts_[candidate];
        if (startsWith(known.text)) {
            at_ += known.text.size();
            place = candidate + 1;
            return &known.start;
        }
    }
    return nullptr;
}

void XmlPropertyListReader::rememberFieldStart(std::size_t& place, std::string_view text,
                                               const FieldStart& start)
{
    constexpr std::size_t most = 64;
    if (fieldStarts_.size() >= most) {
        fieldStarts_.clear();
        place = 0;
    }
    fieldStarts_.insert(fieldStarts_.begin() + static_cast<std::ptrdiff_t>(place),
                        {std::string(text), start});
    ++place;
}

/// Reads the key of the next field and the opening tag of its value.
bool XmlPropertyListReader::readFieldStart(std::size_t& place, FieldStart& start, bool& atEnd)
{
    if (const FieldStart* known = knownFieldStart(place)) {
        start = *known;
        return true;
    }
    const char* const begin = at_;
    std::string_view name;
    if (!readKey(start.tag, atEnd, name))
        return false;
    if (atEnd)
        return true;
    start.key = interned(name);
    if (!readTag(start.tag))
        return false;
    rememberFieldStart(place, {begin, static_cast<std::size_t>(at_ - begin)}, start);
    return true;
}

bool XmlPropertyListReader::readDictionary(const Tag& tag, int depth, RecordFields& fields)
{
    RecordBuilder& builder = builders_.at(depth);
    std::size_t place = 0;
    bool atEnd = tag.empty;
    while (!atEnd) {
        FieldStart start;
        if (!readFieldStart(place, start, atEnd))
            return false;
        if (atEnd)
            break;
        if (!readField(builder, start.key, start.tag, depth))
            return false;
        place = std::min(place, fieldStarts_.size()); // nested dictionaries remember theirs in the same place
    }
    fields = builder.build(target_ != nullptr ? &blocks_ : nullptr);
    return true;
}

bool XmlPropertyListReader::readRootDictionary(const Tag& tag, PropertyValue& root)
{
    constexpr int depth = 1;
    RecordBuilder& builder = builders_.at(depth);
    bool atEnd = tag.empty;
    while (!atEnd) {
        FieldStart start;
        const auto readStart = [this, &start, &atEnd] {
            std::size_t place = 0;
            return readFieldStart(place, start, atEnd);
        };
        if (!readWhole(readStart))
            return false;
        if (atEnd)
            break;
        const auto readRest = [&] { return readField(builder, start.key, start.tag, depth); };
        const bool isTable = target_ != nullptr && start.key == target_->key;
        if (!(isTable ? readTable(start.tag, depth + 1) : readWhole(readRest)))
            return false;
    }
    root = Record::make(builder.build());
    return true;
}

bool XmlPropertyListReader::readTable(const Tag& tag, int depth)
{
    if (tag.element != Element::Dict || tag.closing)
        return fail("a dictionary belongs here");
    target_->table.clear();
    bool atEnd = tag.empty;
    while (!atEnd)
        if (!readWhole([this, depth, &atEnd] { return readTableEntry(depth, atEnd); }))
            return false;
    return true;
}

bool XmlPropertyListReader::readTableEntry(int depth, bool& atEnd)
{
    Tag tag;
    std::string_view name;
    if (!readKey(tag, atEnd, name))
        return false;
    if (atEnd)
        return true;
    tableId_ = name; // whose place in memory another text may take
    if (!readTag(tag))
        return false;
    if (tag.element != Element::Dict || tag.closing)
        return fail("a dictionary belongs here");
    RecordFields fields;
    if (!readDictionary(tag, depth + 1, fields))
        return false;
    target_->table.insert(std::string_view(tableId_), Record::make(fields));
    return true;
}

bool XmlPropertyListReader::readField(RecordBuilder& builder, RecordKey key, const Tag& tag, int depth)
{
    if (!tag.closing && tag.element == Element::String) {
        std::string_view text;
        if (!readText(tag, text))
            return false;
        builder.addText(key, text);
        return true;
    }
    if (!tag.closing && tag.element == Element::Date) {
        std::int64_t seconds = 0;
        if (!readDate(tag, seconds))
            return false;
        builder.addDate(key, seconds);
        return true;
    }
    PropertyValue value;
    if (!readValue(tag, depth, value))
        return false;
    builder.add(key, value);
    return true;
}

bool XmlPropertyListReader::readValue(const Tag& tag, int depth, PropertyValue& value)
{
    if (tag.closing)
        return fail("a value belongs here");
    switch (tag.element) {
    case Element::Dict: {
        if (depth >= propertyListDepth)
            return fail("nested too deep");
        RecordFields fields;
        if (!readDictionary(tag, depth + 1, fields))
            return false;
        value = Record::make(fields);
        return true;
    }
    case Element::Array:
        return readArray(tag, depth, value);
    case Element::String: {
        std::string_view text;
        if (!readText(tag, text))
            return false;
        value = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        return true;
    }
    case Element::Integer:
        return readInteger(tag, value);
    case Element::Real: {
        double real = 0;
        if (!readReal(tag, real))
            return false;
        value = real;
        return true;
    }
    case Element::Date: {
        std::int64_t seconds = 0;
        if (!readDate(tag, seconds))
            return false;
        value = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
        return true;
    }
    case Element::Data:
        return readData(tag, value);
    case Element::True:
    case Element::False:
        value = tag.element == Element::True;
        return tag.empty || readClosing(tag.element);
    case Element::Key:
    case Element::Plist:
        break;
    }
    return fail("a value belongs here");
}

bool XmlPropertyListReader::readArray(const Tag& tag, int depth, PropertyValue& value)
{
    if (depth >= propertyListDepth)
        return fail("nested too deep");
    PropertyArray elements;
    Tag next;
    while (!tag.empty) {
        if (!readTag(next))
            return false;
        if (next.closing)
            break;
        PropertyValue element;
        if (!readValue(next, depth + 1, element))
            return false;
        elements.append(std::move(element));
    }
    if (!tag.empty && next.element != Element::Array)
        return fail("wrong closing tag");
    value = std::move(elements);
    return true;
}

bool XmlPropertyListReader::readInteger(const Tag& tag, PropertyValue& value)
{
    std::string_view text;
    if (!readText(tag, text))
        return false;
    text = trimmed(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (hexadecimal)
        text.remove_prefix(2);
    std::uint64_t magnitude = 0;
    const char* const last = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), last, magnitude, hexadecimal ? 16 : 10);
    if (error != std::errc() || stopped != last)
        return fail("wrong integer");
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<qint64>::max());
    if (magnitude > largest + (negative ? 1 : 0))
        value = negative ? -static_cast<double>(magnitude) : static_cast<double>(magnitude);
    else
        value = static_cast<qint64>(negative ? 0 - magnitude : magnitude);
    return true;
}

bool XmlPropertyListReader::readReal(const Tag& tag, double& value)
{
    std::string_view text;
    if (!readText(tag, text))
        return false;
    text = trimmed(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    const char* const last = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), last, value);
    if (error == std::errc::result_out_of_range) // too large, or too small to tell from nothing
        value = text.find("e-") == std::string_view::npos ? std::numeric_limits<double>::infinity() : 0;
    else if (error != std::errc())
        return fail("wrong real");
    return stopped == last || fail("wrong real");
}

bool XmlPropertyListReader::readDate(const Tag& tag, std::int64_t& seconds)
{
    std::string_view text;
    if (!readText(tag, text))
        return false;
    text = trimmed(text);
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    const bool wellFormed = text.size() == 20 && text[4] == '-' && text[7] == '-' && text[10] == 'T' &&
                            text[13] == ':' && text[16] == ':' && text[19] == 'Z' &&
                            digits(text, 0, 4, year) && digits(text, 5, 2, month) &&
                            digits(text, 8, 2, day) && digits(text, 11, 2, hour) &&
                            digits(text, 14, 2, minute) && digits(text, 17, 2, second);
    if (!wellFormed)
        return fail("wrong date");
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(unsigned(month)),
                                           std::chrono::day(unsigned(day))};
    if (!date.ok() || hour > 23 || minute > 59 || second > 60)
        return fail("wrong date");
    const auto days = std::chrono::sys_days(date).time_since_epoch();
    seconds =
        std::int64_t(days.count()) * 86400 + std::int64_t(hour) * 3600 + std::int64_t(minute) * 60 + second;
    return true;
}

bool XmlPropertyListReader::readData(const Tag& tag, PropertyValue& value)
{
    std::string_view text;
    if (!readText(tag, text))
        return false;
    QByteArray base64;
    base64.reserve(static_cast<qsizetype>(text.size()));
    for (const char c : text)
        if (!isBlank(c))
            base64.append(c);
    const auto decoded = QByteArray::fromBase64Encoding(base64, QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return fail("wrong data");
    value = *decoded;
    return true;
}

} // namespace zib
