// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/PropertyListReaders.h"

#include <QStringConverter>

#include <bit>
#include <cmath>
#include <limits>

namespace zib {
namespace {

constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;
constexpr std::int64_t secondsFrom1970To2001 = 978307200;
// One object may stand in many containers, and those in many others, so that a few bytes unfold without end.
constexpr std::uint64_t freeBudget = 64ULL << 20U;
constexpr std::uint64_t budgetPerByte = 16;
constexpr std::uint64_t costOfValue = 16;
constexpr std::uint64_t costOfIdentifier = 96; // becomes a record

enum Marker : unsigned {
    Simple = 0x0,
    Integer = 0x1,
    Real = 0x2,
    Date = 0x3,
    Data = 0x4,
    Ascii = 0x5,
    Utf16 = 0x6,
    Uid = 0x8,
    Array = 0xA,
    Dictionary = 0xD,
};

} // namespace

BinaryPropertyListReader::BinaryPropertyListReader(std::string_view bytes, const TableTarget* target)
    : bytes_(bytes)
    , target_(target)
    , budget_(freeBudget + bytes.size() * budgetPerByte)
{
}

bool BinaryPropertyListReader::fail(const char* text)
{
    if (error_.isEmpty())
        error_ = QStringLiteral("binary property list: %1").arg(QLatin1String(text));
    return false;
}

std::uint64_t BinaryPropertyListReader::number(std::size_t offset, std::size_t width) const
{
    std::uint64_t result = 0;
    for (std::size_t i = 0; i < width; ++i)
        result = (result << 8U) | static_cast<unsigned char>(bytes_[offset + i]);
    return result;
}

bool BinaryPropertyListReader::spend(std::uint64_t bytes)
{
    if (bytes + costOfValue > budget_)
        return fail("unfolds to too much");
    budget_ -= bytes + costOfValue;
    return true;
}

bool BinaryPropertyListReader::readTrailer(std::uint64_t& rootObject)
{
    if (!bytes_.starts_with("bplist0") || bytes_.size() < headerSize + trailerSize)
        return fail("too short, or of an unknown version");
    const std::size_t trailer = bytes_.size() - trailerSize;
    offsetWidth_ = number(trailer + 6, 1);
    referenceWidth_ = number(trailer + 7, 1);
    objectCount_ = number(trailer + 8, 8);
    rootObject = number(trailer + 16, 8);
    const std::uint64_t offsets = number(trailer + 24, 8);
    const bool widths =
        offsetWidth_ >= 1 && offsetWidth_ <= 8 && referenceWidth_ >= 1 && referenceWidth_ <= 8;
    if (!widths || offsets < headerSize || offsets > trailer ||
        objectCount_ > (trailer - offsets) / offsetWidth_)
        return fail("wrong trailer");
    offsets_ = static_cast<std::size_t>(offsets);
    open_.resize(static_cast<std::size_t>(objectCount_));
    return true;
}

bool BinaryPropertyListReader::offsetOf(std::uint64_t object, std::size_t& offset)
{
    if (object >= objectCount_)
        return fail("no such object");
    const std::uint64_t stored =
        number(offsets_ + static_cast<std::size_t>(object) * offsetWidth_, offsetWidth_);
    if (stored < headerSize || stored >= offsets_)
        return fail("an object outside");
    offset = static_cast<std::size_t>(stored);
    return true;
}

bool BinaryPropertyListReader::readCount(std::size_t& offset, std::size_t unit, std::uint64_t& count)
{
    count = number(offset, 1) & 0xFU;
    ++offset;
    if (count == 0xF) {
        if (offset >= offsets_ || number(offset, 1) >> 4U != Marker::Integer)
            return fail("wrong count");
        const std::uint64_t power = number(offset, 1) & 0xFU;
        ++offset;
        if (power > 3 || offsets_ - offset < (1U << power))
            return fail("wrong count");
        count = number(offset, std::size_t(1) << power);
        offset += std::size_t(1) << power;
    }
    return count <= (offsets_ - offset) / unit || fail("a count beyond the data");
}

bool BinaryPropertyListReader::read(PropertyValue& root)
{
    std::uint64_t rootObject = 0;
    return readTrailer(rootObject) && readObject(rootObject, 0, root);
}

bool BinaryPropertyListReader::readObject(std::uint64_t object, int depth, PropertyValue& value)
{
    std::size_t offset = 0;
    if (!offsetOf(object, offset) || !spend(0))
        return false;
    const std::uint64_t marker = number(offset, 1) >> 4U;
    if (marker != Marker::Array && marker != Marker::Dictionary)
        return readInline(offset, value);
    if (depth >= propertyListDepth)
        return fail("nested too deep");
    if (open_[object])
        return fail("an object within itself");
    open_[object] = true;
    const bool read = readContainer(offset, depth + 1, value);
    open_[object] = false;
    return read;
}

bool BinaryPropertyListReader::readInline(std::size_t offset, PropertyValue& value)
{
    const auto marker = static_cast<unsigned>(number(offset, 1));
    switch (marker >> 4U) {
    case Marker::Simple:
        value = marker == 0x09;
        return marker == 0x08 || marker == 0x09 || fail("unknown object");
    case Marker::Integer:
        return readInteger(offset, marker & 0xFU, value);
    case Marker::Real: {
        double real = 0;
        if (!readReal(offset, marker & 0xFU, real))
            return false;
        value = real;
        return true;
    }
    case Marker::Date: {
        double seconds = 0;
        if (!readReal(offset, marker & 0xFU, seconds))
            return false;
        if (!(std::abs(seconds) < 1e12))
            return fail("wrong date");
        const auto whole = static_cast<qint64>(std::floor(seconds)) + secondsFrom1970To2001;
        value = QDateTime::fromSecsSinceEpoch(whole, Qt::UTC);
        return true;
    }
    case Marker::Data:
    case Marker::Ascii:
    case Marker::Utf16:
        return readText(offset, value);
    case Marker::Uid: {
        const std::size_t width = (marker & 0xFU) + 1;
        if (width > 8 || offsets_ - offset - 1 < width)
            return fail("wrong identifier");
        if (!spend(costOfIdentifier))
            return false;
        value = Record::make({{RecordKey::named("CF$UID"), qint64(number(offset + 1, width))}});
        return true;
    }
    default:
        return fail("unknown object");
    }
}

bool BinaryPropertyListReader::readInteger(std::size_t offset, unsigned power, PropertyValue& value)
{
    if (power > 4 || offsets_ - offset - 1 < (1U << power))
        return fail("wrong integer");
    if (power < 4) { // up to four bytes unsigned, eight bytes signed
        value = static_cast<qint64>(number(offset + 1, std::size_t(1) << power));
        return true;
    }
    const auto high = static_cast<qint64>(number(offset + 1, 8));
    const std::uint64_t low = number(offset + 9, 8);
    const auto signedLow = static_cast<qint64>(low);
    if ((high == 0 && signedLow >= 0) || (high == -1 && signedLow < 0))
        value = signedLow;
    else
        value = double(high) * 18446744073709551616.0 + double(low);
    return true;
}

bool BinaryPropertyListReader::readReal(std::size_t offset, unsigned power, double& value)
{
    if ((power != 2 && power != 3) || offsets_ - offset - 1 < (1U << power))
        return fail("wrong real");
    const std::uint64_t bits = number(offset + 1, std::size_t(1) << power);
    value = power == 3 ? std::bit_cast<double>(bits)
                       : double(std::bit_cast<float>(static_cast<std::uint32_t>(bits)));
    return true;
}

bool BinaryPropertyListReader::readText(std::size_t offset, PropertyValue& value)
{
    const std::uint64_t marker = number(offset, 1) >> 4U;
    const std::size_t unit = marker == Marker::Utf16 ? 2 : 1;
    std::uint64_t count = 0;
    if (!readCount(offset, unit, count))
        return false;
    const std::uint64_t size = count * unit;
    if (!spend(size))
        return false;
    const char* const content = bytes_.data() + offset;
    const auto length = static_cast<qsizetype>(size);
    if (marker == Marker::Data)
        value = QByteArray(content, length);
    else if (marker == Marker::Ascii)
        value = QString::fromLatin1(content, length);
    else
        value = QString(QStringDecoder(QStringDecoder::Utf16BE, QStringDecoder::Flag::ConvertInitialBom)
                            .decode(QByteArrayView(content, length)));
    return true;
}

bool BinaryPropertyListReader::readContainer(std::size_t offset, int depth, PropertyValue& value)
{
    const bool isArray = number(offset, 1) >> 4U == Marker::Array;
    Container container;
    if (!readCount(offset, isArray ? referenceWidth_ : 2 * referenceWidth_, container.count))
        return false;
    container.references = offset;
    return isArray ? readArray(container, depth, value) : readDictionary(container, depth, value);
}

bool BinaryPropertyListReader::readArray(const Container& container, int depth, PropertyValue& value)
{
    PropertyArray elements;
    for (std::uint64_t i = 0; i < container.count; ++i) {
        const std::size_t reference = container.references + static_cast<std::size_t>(i) * referenceWidth_;
        PropertyValue element;
        if (!readObject(number(reference, referenceWidth_), depth, element))
            return false;
        elements.append(std::move(element));
    }
    value = std::move(elements);
    return true;
}

/// The key of a dictionary's entry, a text, and the object that is its value.
bool BinaryPropertyListReader::readEntry(const Container& container, std::uint64_t index, PropertyValue& key,
                                         std::uint64_t& object)
{
    const std::size_t keyReference = container.references + static_cast<std::size_t>(index) * referenceWidth_;
    const std::size_t keysSize = static_cast<std::size_t>(container.count) * referenceWidth_;
    object = number(keyReference + keysSize, referenceWidth_);
    std::size_t offset = 0;
    if (!offsetOf(number(keyReference, referenceWidth_), offset) || !spend(0))
        return false;
    const std::uint64_t marker = number(offset, 1) >> 4U;
    if (marker != Marker::Ascii && marker != Marker::Utf16)
        return fail("a key that is no text");
    return readText(offset, key);
}

bool BinaryPropertyListReader::readDictionary(const Container& container, int depth, PropertyValue& value)
{
    RecordBuilder& builder = builders_.at(depth);
    for (std::uint64_t i = 0; i < container.count; ++i) {
        PropertyValue name;
        std::uint64_t object = 0;
        if (!readEntry(container, i, name, object))
            return false;
        const RecordKey key = RecordKey::named(*name.get<QString>());
        if (depth == 1 && target_ != nullptr && key == target_->key) {
            if (!readTable(object, depth))
                return false;
            continue;
        }
        PropertyValue field;
        if (!readObject(object, depth, field))
            return false;
        builder.add(key, field);
    }
    value = Record::make(builder.build());
    return true;
}

bool BinaryPropertyListReader::readTable(std::uint64_t object, int depth)
{
    std::size_t offset = 0;
    if (!offsetOf(object, offset))
        return false;
    if (number(offset, 1) >> 4U != Marker::Dictionary)
        return fail("a dictionary belongs here");
    Container container;
    if (!readCount(offset, 2 * referenceWidth_, container.count))
        return false;
    container.references = offset;
    target_->table.clear();
    for (std::uint64_t i = 0; i < container.count; ++i) {
        PropertyValue id;
        std::uint64_t entry = 0;
        PropertyValue record;
        if (!readEntry(container, i, id, entry) || !readObject(entry, depth + 1, record))
            return false;
        if (record.get<Record>() == nullptr)
            return fail("a dictionary belongs here");
        target_->table.insert(*id.get<QString>(), *record.get<Record>());
    }
    return true;
}

} // namespace zib
