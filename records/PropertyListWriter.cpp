// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/PropertyListWriter.h"

#include "records/PropertyList.h"
#include "records/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
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
    buffer_.append(static_cast<std::size_t>(depth_), '\t');
    buffer_.append(text);
}

/// Whether one more level may begin. After a fault none does, or a circle would be walked in all its ways.
bool PropertyListWriter::enter()
{
    valid_ = valid_ && depth_ < propertyListDepth;
    return valid_;
}

void PropertyListWriter::open(std::string_view tag)
{
    line(tag);
    ++depth_;
}

void PropertyListWriter::close(std::string_view tag)
{
    --depth_;
    line(tag);
    if (buffer_.size() >= pieceSize)
        flush();
}

void PropertyListWriter::element(std::string_view opening, std::string_view content, std::string_view closing)
{
    line(opening);
    buffer_.append(content);
    buffer_.append(closing);
}

void PropertyListWriter::text(std::string_view opening, std::string_view utf8, std::string_view closing)
{
    line(opening);
    escaped(utf8);
    buffer_.append(closing);
}

void PropertyListWriter::fieldKey(RecordKey key)
{
    if (key.id() >= keyLines_.size()) {
        this->key(key);
        return;
    }
    KeyLine& known = keyLines_[key.id()];
    if (known.depth != depth_) {
        const std::size_t start = buffer_.size();
        this->key(key);
        known.depth = depth_;
        known.text = buffer_.substr(start);
        return;
    }
    buffer_.append(known.text);
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

void PropertyListWriter::integer(std::int64_t value)
{
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), value).ptr;
    element("<integer>", {digits.data(), static_cast<std::size_t>(end - digits.data())}, "</integer>\n");
}

void PropertyListWriter::real(double value)
{
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), value).ptr;
    element("<real>", {digits.data(), static_cast<std::size_t>(end - digits.data())}, "</real>\n");
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
    std::array<char, 20> text{};
    char* at = text.data();
    const auto put = [&at](std::int64_t number, int digits, char separator) {
        for (int i = digits - 1; i >= 0; --i, number /= 10)
            at[i] = static_cast<char>('0' + number % 10);
        at += digits;
        *at++ = separator;
    };
    put(year, 4, '-');
    put(unsigned(calendar.month()), 2, '-');
    put(unsigned(calendar.day()), 2, 'T');
    put(clock.hours().count(), 2, ':');
    put(clock.minutes().count(), 2, ':');
    put(clock.seconds().count(), 2, 'Z');
    element("<date>", {text.data(), text.size()}, "</date>\n");
}

void PropertyListWriter::data(const QByteArray& bytes)
{
    const QByteArray base64 = bytes.toBase64();
    element("<data>", {base64.constData(), static_cast<std::size_t>(base64.size())}, "</data>\n");
}

void PropertyListWriter::beginDictionary()
{
    enter();
    open("<dict>\n");
}

void PropertyListWriter::endDictionary()
{
    close("</dict>\n");
}

void PropertyListWriter::key(std::string_view utf8)
{
    text("<key>", utf8, "</key>\n");
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
    open("<dict>\n");
    for (std::size_t place = 0; place < fields.size(); ++place)
        if (std::ranges::find(omitted_, fields.key(place)) == omitted_.end())
            field(fields, place);
    endDictionary();
}

void PropertyListWriter::field(const RecordFields& fields, std::size_t place)
{
    fieldKey(fields.key(place));
    switch (fields.type(place)) {
    case RecordFields::Type::Boolean:
        line(fields.boolean(place) ? "<true/>\n" : "<false/>\n");
        break;
    case RecordFields::Type::Integer:
        integer(fields.integer(place));
        break;
    case RecordFields::Type::Real:
        real(fields.real(place));
        break;
    case RecordFields::Type::Date:
        date(fields.seconds(place));
        break;
    case RecordFields::Type::String:
        text("<string>", fields.text(place), "</string>\n");
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
    open("<array>\n");
    for (const PropertyValue& element : array)
        value(element);
    close("</array>\n");
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
    } else if (const auto* number = value.get<qint64>()) {
        integer(*number);
    } else if (const auto* floating = value.get<double>()) {
        real(*floating);
    } else if (const auto* moment = value.get<QDateTime>(); moment != nullptr && moment->isValid()) {
        date(moment->toSecsSinceEpoch());
    } else if (const auto* string = value.get<QString>()) {
        const QByteArray utf8 = string->toUtf8();
        text("<string>", {utf8.constData(), static_cast<std::size_t>(utf8.size())}, "</string>\n");
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
