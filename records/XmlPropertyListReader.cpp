// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/PropertyListReaders.h"

#include "records/Utf8.h"

#include <charconv>
#include <chrono>
#include <cstring>
#include <limits>

namespace zib {
namespace {

constexpr bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// The characters that stand for themselves in a text and need no look.
constexpr std::array<bool, 256> plainCharacters = [] {
    std::array<bool, 256> plain{};
    for (unsigned c = 1; c < 0x80; ++c)
        plain[c] = c != '<' && c != '&' && c != '\r';
    return plain;
}();

constexpr bool isPlain(char c)
{
    return plainCharacters[static_cast<unsigned char>(c)];
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

constexpr std::string_view elementNames[] = {"key",   "dict",  "real",  "true",   "date",   "data",
                                             "array", "false", "plist", "string", "integer"};

bool digits(std::string_view text, std::size_t begin, std::size_t length, int& number)
{
    const char* const first = text.data() + begin;
    const auto [last, error] = std::from_chars(first, first + length, number);
    return *first != '-' && error == std::errc() && last == first + length;
}

} // namespace

XmlPropertyListReader::XmlPropertyListReader(std::string_view text, const TableTarget* target)
    : begin_(text.data())
    , at_(begin_)
    , end_(begin_ + text.size())
    , target_(target)
{
}

bool XmlPropertyListReader::fail(const char* text)
{
    if (error_.isEmpty())
        error_ = QStringLiteral("%1 at byte %2").arg(QLatin1String(text)).arg(at_ - begin_);
    return false;
}

bool XmlPropertyListReader::startsWith(std::string_view text) const
{
    return std::string_view(at_, static_cast<std::size_t>(end_ - at_)).starts_with(text);
}

bool XmlPropertyListReader::skipPast(std::string_view end, const char* otherwise)
{
    const std::string_view rest(at_, static_cast<std::size_t>(end_ - at_));
    const std::size_t found = rest.find(end);
    if (found == std::string_view::npos)
        return fail(otherwise);
    at_ += found + end.size();
    return true;
}

/// Skips the declaration with its inner subset. Entities that it declares are unknown ever after, so none can
/// unfold.
bool XmlPropertyListReader::skipDoctype()
{
    int brackets = 0;
    while (at_ != end_) {
        if (startsWith("<!--")) {
            if (!skipPast("-->", "comment without end"))
                return false;
            continue;
        }
        const char c = *at_++;
        if (c == '"' || c == '\'') {
            if (!skipPast(std::string_view(&c, 1), "quote without end"))
                return false;
        } else if (c == '[') {
            ++brackets;
        } else if (c == ']') {
            --brackets;
        } else if (c == '>' && brackets <= 0) {
            return true;
        }
    }
    return fail("document type without end");
}

bool XmlPropertyListReader::skipToTag()
{
    for (;;) {
        while (at_ != end_ && isBlank(*at_))
            ++at_;
        if (at_ == end_)
            return true;
        if (*at_ != '<')
            return fail("text where markup belongs");
        if (end_ - at_ < 2 || (at_[1] != '!' && at_[1] != '?'))
            return true;
        bool skipped = false;
        if (startsWith("<!--"))
            skipped = skipPast("-->", "comment without end");
        else if (at_[1] == '?')
            skipped = skipPast("?>", "processing instruction without end");
        else if (startsWith("<!DOCTYPE"))
            skipped = skipDoctype();
        else
            fail("unknown markup");
        if (!skipped)
            return false;
    }
}

bool XmlPropertyListReader::readElementName(Element& element)
{
    const char* const name = at_;
    while (at_ != end_ && *at_ >= 'a' && *at_ <= 'z')
        ++at_;
    const std::string_view view(name, static_cast<std::size_t>(at_ - name));
    for (std::size_t i = 0; i < std::size(elementNames); ++i) {
        if (view == elementNames[i]) {
            element = static_cast<Element>(i);
            return true;
        }
    }
    return fail("unknown element");
}

bool XmlPropertyListReader::readTag(Tag& tag)
{
    if (!skipToTag())
        return false;
    if (at_ == end_)
        return fail("unexpected end");
    ++at_;
    tag.closing = at_ != end_ && *at_ == '/';
    if (tag.closing)
        ++at_;
    if (!readElementName(tag.element))
        return false;
    tag.empty = false;
    if (at_ != end_ && *at_ == '>') {
        ++at_;
        return true;
    }
    // blanks and attributes, which say nothing here
    while (at_ != end_ && *at_ != '>') {
        const char c = *at_++;
        if (c == '<')
            return fail("tag without end");
        if ((c == '"' || c == '\'') && !skipPast(std::string_view(&c, 1), "quote without end"))
            return false;
        tag.empty = c == '/' && at_ != end_ && *at_ == '>';
    }
    if (at_ == end_)
        return fail("tag without end");
    ++at_;
    return !(tag.closing && tag.empty) || fail("malformed tag");
}

bool XmlPropertyListReader::readOpening(Element element)
{
    Tag tag;
    return readTag(tag) && ((tag.element == element && !tag.closing && !tag.empty) || fail("wrong element"));
}

bool XmlPropertyListReader::readClosing(Element element)
{
    Tag tag;
    return readTag(tag) && ((tag.element == element && tag.closing) || fail("wrong closing tag"));
}

bool XmlPropertyListReader::read(PropertyValue& root)
{
    if (startsWith("\xEF\xBB\xBF"))
        at_ += 3;
    if (!skipToTag())
        return false;
    if (at_ == end_)
        return fail("empty document");
    Tag tag;
    if (!readOpening(Element::Plist) || !readTag(tag) || !readValue(tag, 0, root))
        return false;
    return readClosing(Element::Plist) && skipToTag() && (at_ == end_ || fail("content after the end"));
}

bool XmlPropertyListReader::readText(const Tag& tag, std::string_view& text)
{
    text = {};
    if (tag.empty)
        return true;
    const char* const start = at_;
    while (at_ != end_ && isPlain(*at_))
        ++at_;
    text = std::string_view(start, static_cast<std::size_t>(at_ - start));
    const std::string_view name = elementNames[static_cast<std::size_t>(tag.element)];
    const std::size_t closing = name.size() + 3;
    const auto isClosing = [this, name, closing] {
        return static_cast<std::size_t>(end_ - at_) >= closing && at_[0] == '<' && at_[1] == '/' &&
               std::memcmp(at_ + 2, name.data(), name.size()) == 0 && at_[closing - 1] == '>';
    };
    if (isClosing()) {
        at_ += closing;
        return true;
    }
    at_ = start;
    return readMixedText(text) && readClosing(tag.element);
}

/// A text with characters that want a look, references, comments or literal sections, up to the next tag.
bool XmlPropertyListReader::readMixedText(std::string_view& text)
{
    scratch_.clear();
    while (at_ != end_) {
        if (*at_ == '&') {
            if (!readReference())
                return false;
        } else if (*at_ != '<') {
            if (!appendRun())
                return false;
        } else if (startsWith("<![CDATA[")) {
            at_ += 9;
            const char* const start = at_;
            if (!skipPast("]]>", "literal section without end"))
                return false;
            scratch_.append(start, at_ - 3);
        } else if (startsWith("<!--")) {
            if (!skipPast("-->", "comment without end"))
                return false;
        } else {
            if (!isUtf8(scratch_))
                return fail("text is not UTF-8");
            text = scratch_;
            return true;
        }
    }
    return fail("unexpected end");
}

/// Text up to markup or a reference; every line end becomes a line feed.
bool XmlPropertyListReader::appendRun()
{
    while (at_ != end_ && *at_ != '<' && *at_ != '&') {
        if (*at_ == '\r') {
            scratch_.push_back('\n');
            ++at_;
            if (at_ != end_ && *at_ == '\n')
                ++at_;
        } else if (*at_ == '\0') {
            return fail("illegal character");
        } else {
            scratch_.push_back(*at_++);
        }
    }
    return true;
}

bool XmlPropertyListReader::readReference()
{
    const std::string_view rest(at_, std::min<std::size_t>(static_cast<std::size_t>(end_ - at_), 16));
    const std::size_t semicolon = rest.find(';');
    if (semicolon == std::string_view::npos)
        return fail("reference without end");
    const std::string_view name = rest.substr(1, semicolon - 1);
    static constexpr std::pair<std::string_view, char> named[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [entity, character] : named) {
        if (name == entity) {
            scratch_.push_back(character);
            at_ += semicolon + 1;
            return true;
        }
    }
    if (name.size() < 2 || name[0] != '#')
        return fail("unknown entity");
    const bool hexadecimal = name[1] == 'x';
    const char* const first = name.data() + (hexadecimal ? 2 : 1);
    const char* const last = name.data() + name.size();
    std::uint32_t code = 0;
    const auto [stopped, error] = std::from_chars(first, last, code, hexadecimal ? 16 : 10);
    if (error != std::errc() || stopped != last || !appendUtf8(scratch_, code))
        return fail("wrong character reference");
    at_ += semicolon + 1;
    return true;
}

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
        const FieldStart& known = fieldStarts_[candidate];
        if (startsWith(known.text)) {
            at_ += known.text.size();
            place = candidate + 1;
            return &known;
        }
    }
    return nullptr;
}

void XmlPropertyListReader::rememberFieldStart(std::size_t& place, const FieldStart& start)
{
    constexpr std::size_t most = 64;
    if (fieldStarts_.size() >= most) {
        fieldStarts_.clear();
        place = 0;
    }
    fieldStarts_.insert(fieldStarts_.begin() + static_cast<std::ptrdiff_t>(place), start);
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
    start.text = std::string_view(begin, static_cast<std::size_t>(at_ - begin));
    rememberFieldStart(place, start);
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
        const bool isTable = depth == 1 && target_ != nullptr && start.key == target_->key;
        if (!(isTable ? readTable(start.tag, depth + 1) : readField(builder, start.key, start.tag, depth)))
            return false;
        place = std::min(place, fieldStarts_.size()); // nested dictionaries remember theirs in the same place
    }
    fields = builder.build();
    return true;
}

bool XmlPropertyListReader::readTable(const Tag& tag, int depth)
{
    if (tag.element != Element::Dict || tag.closing)
        return fail("a dictionary belongs here");
    target_->table.clear();
    bool atEnd = tag.empty;
    std::string id;
    while (!atEnd) {
        Tag next;
        std::string_view name;
        if (!readKey(next, atEnd, name))
            return false;
        if (atEnd)
            break;
        id = name;
        if (!readTag(next))
            return false;
        if (next.element != Element::Dict || next.closing)
            return fail("a dictionary belongs here");
        RecordFields fields;
        if (!readDictionary(next, depth + 1, fields))
            return false;
        target_->table.insert(std::string_view(id), Record::make(fields));
    }
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
    seconds = std::int64_t(days.count()) * 86400 + hour * 3600 + minute * 60 + second;
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
