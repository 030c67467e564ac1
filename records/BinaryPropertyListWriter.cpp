// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/BinaryPropertyListWriter.h"

#include "records/PropertyList.h"
#include "records/RecordFields.h"

#include <QHash>
#include <QtEndian>

#include <bit>
#include <optional>
#include <vector>

namespace zib {
namespace {

constexpr qint64 secondsFrom1970To2001 = 978307200;
constexpr std::size_t trailerPadding = 6;

/// The number of bytes, a power of two, that hold the number.
int widthOf(quint64 number)
{
    if (number <= 0xFF)
        return 1;
    if (number <= 0xFFFF)
        return 2;
    return number <= 0xFFFF'FFFF ? 4 : 8;
}

void appendNumber(QByteArray& bytes, quint64 number, int width)
{
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
        bytes.append(static_cast<char>(number >> static_cast<unsigned>(shift)));
}

/// An integer object: fewer than eight bytes are unsigned.
void appendInteger(QByteArray& bytes, qint64 value)
{
    const int width = value < 0 ? 8 : widthOf(quint64(value));
    bytes.append(static_cast<char>(0x10 | std::countr_zero(unsigned(width))));
    appendNumber(bytes, quint64(value), width);
}

void appendMarker(QByteArray& bytes, unsigned kind, qsizetype count)
{
    constexpr qsizetype fewest = 0xF; // the count follows from there on
    bytes.append(static_cast<char>((kind << 4U) | unsigned(std::min(count, fewest))));
    if (count >= fewest)
        appendInteger(bytes, count);
}

std::optional<quint32> uidIn(const Record& record)
{
    static const RecordKey key = RecordKey::named("CF$UID");
    const RecordFields& fields = record.content();
    if (fields.size() != 1 || fields.key(0) != key || fields.type(0) != RecordFields::Type::Integer)
        return std::nullopt;
    const qint64 uid = fields.integer(0);
    return uid >= 0 && uid <= qint64(UINT32_MAX) ? std::optional(quint32(uid)) : std::nullopt;
}

class Writer {
  public:
    QByteArray write(const PropertyValue& root)
    {
        add(root, 0);
        if (!valid_)
            return {};
        const int referenceWidth = widthOf(objects_.size());
        QByteArray bytes = QByteArrayLiteral("bplist00");
        std::vector<qsizetype> offsets;
        offsets.reserve(objects_.size());
        for (const Object& object : objects_) {
            offsets.push_back(bytes.size());
            bytes += object.content;
            for (const quint64 reference : object.references)
                appendNumber(bytes, reference, referenceWidth);
        }
        const qsizetype table = bytes.size();
        const int offsetWidth = widthOf(quint64(table));
        for (const qsizetype offset : offsets)
            appendNumber(bytes, quint64(offset), offsetWidth);
        bytes.append(trailerPadding, '\0');
        bytes.append(static_cast<char>(offsetWidth));
        bytes.append(static_cast<char>(referenceWidth));
        appendNumber(bytes, offsets.size(), 8);
        appendNumber(bytes, 0, 8); // the root
        appendNumber(bytes, quint64(table), 8);
        return bytes;
    }

  private:
    struct Object {
        QByteArray content;
        std::vector<quint64> references;
    };

    quint64 addObject(const QByteArray& content)
    {
        objects_.push_back({content, {}});
        return objects_.size() - 1;
    }
    quint64 addOnce(const QByteArray& content)
    {
        const auto known = written_.constFind(content);
        return known != written_.constEnd() ? *known : *written_.insert(content, addObject(content));
    }
    quint64 fail()
    {
        valid_ = false;
        return 0;
    }

    quint64 add(const PropertyValue& value, int depth)
    {
        return std::visit([this, depth](const auto& each) { return addValue(each, depth); }, value.variant());
    }

    quint64 addValue(std::monostate, int) { return fail(); }
    quint64 addValue(bool value, int) { return addOnce(QByteArray(1, value ? '\x09' : '\x08')); }
    quint64 addValue(qint64 value, int)
    {
        QByteArray bytes;
        appendInteger(bytes, value);
        return addOnce(bytes);
    }
    quint64 addValue(double value, int) { return addReal('\x23', value); }
    quint64 addValue(const QDateTime& date, int)
    {
        return date.isValid() ? addReal('\x33', double(date.toSecsSinceEpoch() - secondsFrom1970To2001))
                              : fail();
    }
    quint64 addReal(char marker, double value)
    {
        QByteArray bytes(1, marker);
        appendNumber(bytes, std::bit_cast<quint64>(value), 8);
        return addOnce(bytes);
    }
    quint64 addValue(const QString& text, int)
    {
        QByteArray bytes;
        if (std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; })) {
            appendMarker(bytes, 0x5, text.size());
            bytes += text.toLatin1();
        } else {
            appendMarker(bytes, 0x6, text.size());
            for (const QChar c : text)
                appendNumber(bytes, c.unicode(), 2);
        }
        return addOnce(bytes);
    }
    quint64 addValue(const QByteArray& data, int)
    {
        QByteArray bytes;
        appendMarker(bytes, 0x4, data.size());
        return addObject(bytes + data);
    }
    quint64 addValue(const PropertyArray& array, int depth)
    {
        if (depth >= propertyListDepth)
            return fail();
        QByteArray bytes;
        appendMarker(bytes, 0xA, array.size());
        const quint64 object = addObject(bytes);
        std::vector<quint64> references;
        for (const PropertyValue& element : array)
            references.push_back(add(element, depth + 1));
        objects_[object].references = std::move(references);
        return object;
    }
    quint64 addValue(const Record& record, int depth)
    {
        if (const auto uid = uidIn(record)) {
            const int width = widthOf(*uid);
            QByteArray bytes(1, static_cast<char>(0x80 | (width - 1)));
            appendNumber(bytes, *uid, width);
            return addOnce(bytes);
        }
        if (depth >= propertyListDepth)
            return fail();
        const QList<RecordKey> keys = record.keys();
        QByteArray bytes;
        appendMarker(bytes, 0xD, keys.size());
        const quint64 object = addObject(bytes);
        std::vector<quint64> references;
        for (const RecordKey key : keys)
            references.push_back(add(QString::fromUtf8(key.name().data(), qsizetype(key.name().size())), 0));
        for (const RecordKey key : keys)
            references.push_back(add(record.value(key), depth + 1));
        objects_[object].references = std::move(references);
        return object;
    }

    std::vector<Object> objects_;
    QHash<QByteArray, quint64> written_; // what has no parts, by its bytes
    bool valid_ = true;
};

} // namespace

QByteArray writeBinaryPropertyList(const PropertyValue& root)
{
    return Writer().write(root);
}

} // namespace zib
