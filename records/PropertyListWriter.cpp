// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/PropertyListWriter.h"

#include "records/PropertyList.h"
#include "records/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <utility>

namespace zib {
namespace {

/// The characters that are written as they are, without a look at their neighbours.
constexpr std::array<bool, 256> plainCharacters = [] {
    std::array<bool, 256> plain{};
    for (unsigned c = 0x20; c < 0x80; ++c)
        plain[c] = c != '<' && c != '&' && c != '>';
    plain['\t'] = plain['\n'] = true;
    return plain;
}();

constexpr bool isXmlCharacter(std::uint32_t code)
{
    return code == '\t' || code == '\n' || code == '\r' || (code >= 0x20 && code != 0xFFFE && code != 0xFFFF);
}

constexpr std::string_view head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                  "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                  "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                  "<plist version=\"1.0\">\n";
constexpr std::string_view tail = "</plist>\n";

} // namespace

PropertyListWriter::PropertyListWriter(Sink sink, std::initializer_list<RecordKey> omitted)
    : sink_(std::move(sink))
    , omitted_(omitted)
{
    buffer_.reserve(pieceSize * 2);
    buffer_.append(head);
}

void PropertyListWriter::flush()
{
    sink_(buffer_);
    buffer_.clear();
}

void PropertyListWriter::line(std::string_view text)
{
    buffer_.append(static_cast<std::size_t>(std::max(depth_, 0)), '\t');
    buffer_.append(text);
}

/// Whether one more level may begin. After a fault none does, or a circle would be walked in all its ways.
bool PropertyListWriter::enter()
{
    valid_ = valid_ && depth_ < propertyListDepth;
    return valid_;
}

void PropertyListWriter::open(std::string_view element)
{
    line("<");
    buffer_.append(element);
    buffer_.append(">\n");
    ++depth_;
}

void PropertyListWriter::close(std::string_view element)
{
    --depth_;
    line("</");
    buffer_.append(element);
    buffer_.append(">\n");
    if (buffer_.size() >= pieceSize)
        flush();
}

void PropertyListWriter::element(std::string_view name, std::string_view content)
{
    line("<");
    buffer_.append(name).append(">").append(content).append("</").append(name).append(">\n");
}

void PropertyListWriter::text(std::string_view name, std::string_view utf8)
{
    line("<");
    buffer_.append(name).push_back('>');
    escaped(utf8);
    buffer_.append("</").append(name).append(">\n");
}

void PropertyListWriter::escaped(std::string_view utf8)
{
    const auto isPlain = [](char c) { return plainCharacters[static_cast<unsigned char>(c)]; };
    const auto stop = std::ranges::find_if_not(utf8, isPlain);
    const auto plain = static_cast<std::size_t>(stop - utf8.begin());
    buffer_.append(utf8.substr(0, plain));
    if (plain < utf8.size())
        slowlyEscaped(utf8.substr(plain));
}

void PropertyListWriter::slowlyEscaped(std::string_view utf8)
{
    while (!utf8.empty()) {
        const auto [code, length] = firstCharacter(utf8);
        if (code == '<')
            buffer_.append("&lt;");
        else if (code == '>')
            buffer_.append("&gt;");
        else if (code == '&')
            buffer_.append("&amp;");
        else if (code == '\r')
            buffer_.append("&#13;"); // a bare one would be read as a line feed
        else if (length != 0 && isXmlCharacter(code))
            buffer_.append(utf8.substr(0, length));
        utf8.remove_prefix(std::max<std::size_t>(length, 1));
    }
}

void PropertyListWriter::number(std::string_view name, std::int64_t value)
{
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), value).ptr;
    element(name, std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
}

void PropertyListWriter::real(double value)
{
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), value).ptr;
    element("real", std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
}

void PropertyListWriter::date(std::int64_t seconds)
{
    using namespace std::chrono;
    const sys_seconds time{std::chrono::seconds(seconds)};
    const sys_days day = floor<days>(time);
    const year_month_day calendar(day);
    const int year = int(calendar.year());
    constexpr std::int64_t farthest = 400000000000; // beyond it the calendar's arithmetic overflows
    if (seconds < -farthest || seconds > farthest || year < 1 || year > 9999) {
        valid_ = false;
        return;
    }
    const hh_mm_ss clock(time - day);
    std::array<char, 32> text{};
    const int length =
        std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", year,
                      unsigned(calendar.month()), unsigned(calendar.day()), int(clock.hours().count()),
                      int(clock.minutes().count()), int(clock.seconds().count()));
    element("date", std::string_view(text.data(), static_cast<std::size_t>(length)));
}

void PropertyListWriter::data(const QByteArray& bytes)
{
    const QByteArray base64 = bytes.toBase64();
    element("data", std::string_view(base64.constData(), static_cast<std::size_t>(base64.size())));
}

void PropertyListWriter::beginDictionary()
{
    enter();
    open("dict");
}

void PropertyListWriter::endDictionary()
{
    close("dict");
}

void PropertyListWriter::key(std::string_view utf8)
{
    text("key", utf8);
}

void PropertyListWriter::table(const RecordTable::Snapshot& table)
{
    beginDictionary();
    table.forEach([this](std::string_view id, const Record& record) {
        key(id);
        dictionary(record.fields());
    });
    endDictionary();
}

void PropertyListWriter::dictionary(const RecordFields& fields)
{
    if (!enter()) // also the end of a record that holds itself
        return;
    open("dict");
    for (std::size_t place = 0; place < fields.size(); ++place)
        if (std::ranges::find(omitted_, fields.key(place)) == omitted_.end())
            field(fields, place);
    endDictionary();
}

void PropertyListWriter::field(const RecordFields& fields, std::size_t place)
{
    key(fields.key(place));
    switch (fields.type(place)) {
    case RecordFields::Type::Boolean:
        line(fields.boolean(place) ? "<true/>\n" : "<false/>\n");
        break;
    case RecordFields::Type::Integer:
        number("integer", fields.integer(place));
        break;
    case RecordFields::Type::Real:
        real(fields.real(place));
        break;
    case RecordFields::Type::Date:
        date(fields.seconds(place));
        break;
    case RecordFields::Type::String:
        text("string", fields.text(place));
        break;
    case RecordFields::Type::Nested:
        value(fields.nested(place));
        break;
    }
}

void PropertyListWriter::array(const PropertyArray& array)
{
    if (!enter())
        return;
    open("array");
    for (const PropertyValue& element : array)
        value(element);
    close("array");
}

void PropertyListWriter::value(const PropertyValue& value)
{
    if (const auto* record = value.get<Record>(); record != nullptr && *record) {
        dictionary(record->fields());
    } else if (const auto* elements = value.get<PropertyArray>()) {
        array(*elements);
    } else if (const auto* bytes = value.get<QByteArray>()) {
        data(*bytes);
    } else if (const auto* boolean = value.get<bool>()) {
        line(*boolean ? "<true/>\n" : "<false/>\n");
    } else if (const auto* integer = value.get<qint64>()) {
        number("integer", *integer);
    } else if (const auto* floating = value.get<double>()) {
        real(*floating);
    } else if (const auto* moment = value.get<QDateTime>(); moment != nullptr && moment->isValid()) {
        date(moment->toSecsSinceEpoch());
    } else if (const auto* string = value.get<QString>()) {
        const QByteArray utf8 = string->toUtf8();
        text("string", {utf8.constData(), static_cast<std::size_t>(utf8.size())});
    } else {
        valid_ = false;
    }
}

bool PropertyListWriter::finish()
{
    buffer_.append(tail);
    flush();
    return valid_;
}

QByteArray writePropertyList(const PropertyValue& root)
{
    QByteArray result;
    PropertyListWriter writer([&result](std::string_view piece) {
        result.append(piece.data(), static_cast<qsizetype>(piece.size()));
    });
    writer.value(root);
    return writer.finish() ? result : QByteArray();
}

} // namespace zib
