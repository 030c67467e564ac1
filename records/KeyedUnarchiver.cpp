// SPDX-License-Identifier: GPL-3.0-or-later
// The reading half of keyed archives.
#include "records/KeyedArchive.h"
#include "records/KeyedArchiveWords.h"
#include "records/PropertyList.h"
#include "records/RecordFields.h"

#include <QHash>

#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

namespace zib {

using namespace archive;

namespace {

constexpr qint64 secondsFrom1970To2001 = 978307200;
constexpr double mostSeconds = 1e12;
constexpr qsizetype mostBytes = qsizetype(1) << 20U; // of fifty songs 30 KB
constexpr qsizetype mostObjects = 100'000;
/// What shared objects may unfold to when each is written out wherever it stands, in bytes.
constexpr quint64 mostUnfolded = quint64(16) << 20U;
constexpr quint64 costOfObject = 16;

/// What an object of a class is for us.
enum class Kind { Dictionary, Array, Text, Data, Date, Null };

std::optional<Kind> kindOf(const QString& className)
{
    static const QHash<QString, Kind> kinds{
        {QStringLiteral("NSDictionary"), Kind::Dictionary},
        {QStringLiteral("NSMutableDictionary"), Kind::Dictionary},
        {QStringLiteral("NSArray"), Kind::Array},
        {QStringLiteral("NSMutableArray"), Kind::Array},
        {QStringLiteral("NSString"), Kind::Text},
        {QStringLiteral("NSMutableString"), Kind::Text},
        {QStringLiteral("NSData"), Kind::Data},
        {QStringLiteral("NSMutableData"), Kind::Data},
        {QStringLiteral("NSDate"), Kind::Date},
        {QStringLiteral("NSNull"), Kind::Null},
    };
    const auto found = kinds.constFind(className);
    return found != kinds.constEnd() ? std::optional(*found) : std::nullopt;
}

quint64 bytesOf(const PropertyValue& value)
{
    if (const auto* text = value.get<QString>())
        return quint64(text->size()) * sizeof(QChar);
    const auto* data = value.get<QByteArray>();
    return data != nullptr ? quint64(data->size()) : 0;
}

/// Every reading function answers false at the first fault; error() then says what it was.
class Unarchiver {
  public:
    bool read(const PropertyValue& archive, PropertyValue& root)
    {
        const auto* dictionary = archive.get<Record>();
        if (dictionary == nullptr || dictionary->string(archiverKey()) != archiverName ||
            dictionary->integer(versionKey()) != version)
            return fail("not an archive of this kind");
        const PropertyValue objects = dictionary->value(objectsKey());
        const PropertyValue top = dictionary->value(topKey());
        if (objects.get<PropertyArray>() == nullptr || top.get<Record>() == nullptr)
            return fail("no objects");
        objects_ = *objects.get<PropertyArray>();
        if (objects_.size() > mostObjects)
            return fail("too many objects");
        known_.resize(static_cast<std::size_t>(objects_.size()));
        return readReference(top.get<Record>()->value(rootKey()), 0, root);
    }
    [[nodiscard]] QString error() const { return error_; }

  private:
    struct Known {
        bool isOpen = false; ///< its parts are being read: to meet it again is a circle
        quint64 cost = 0;    ///< what it unfolds to; 0 before it was read
        PropertyValue value;
    };

    bool fail(const char* text)
    {
        error_ = QStringLiteral("keyed archive: %1").arg(QLatin1String(text));
        return false;
    }
    bool spend(quint64 cost)
    {
        spent_ += cost;
        return spent_ <= mostUnfolded || fail("unfolds to too much");
    }

    bool objectAt(const PropertyValue& reference, std::size_t& object)
    {
        const auto* record = reference.get<Record>();
        const PropertyValue number = record != nullptr ? record->value(uidKey()) : PropertyValue();
        const auto* uid = number.get<qint64>();
        if (uid == nullptr || *uid < 0 || *uid >= objects_.size())
            return fail("no such object");
        object = static_cast<std::size_t>(*uid);
        return true;
    }

    bool readReference(const PropertyValue& reference, int depth, PropertyValue& value)
    {
        std::size_t object = 0;
        if (!objectAt(reference, object))
            return false;
        if (object == 0) {
            value = {};
            return spend(costOfObject);
        }
        if (known_[object].isOpen)
            return fail("an object within itself");
        if (known_[object].cost == 0) {
            const quint64 before = spent_;
            known_[object].isOpen = true;
            if (!readObject(objects_.at(qsizetype(object)), depth, known_[object].value))
                return false;
            known_[object].isOpen = false;
            known_[object].cost = spent_ - before;
        } else if (!spend(known_[object].cost)) {
            return false;
        }
        value = known_[object].value;
        return true;
    }

    bool readObject(const PropertyValue& object, int depth, PropertyValue& value)
    {
        if (!spend(costOfObject + bytesOf(object)))
            return false;
        if (object.get<PropertyArray>() != nullptr)
            return fail("an array that is no object");
        const auto* record = object.get<Record>();
        if (record == nullptr) {
            value = object;
            return true;
        }
        std::size_t classObject = 0;
        if (!objectAt(record->value(classKey()), classObject))
            return false;
        const PropertyValue description = objects_.at(qsizetype(classObject));
        const auto* names = description.get<Record>();
        const auto kind = names != nullptr ? kindOf(names->string(classNameKey())) : std::nullopt;
        if (!kind)
            return fail("unknown class");
        switch (*kind) {
        case Kind::Dictionary:
            return readDictionary(*record, depth, value);
        case Kind::Array: {
            PropertyArray elements;
            if (!readReferences(*record, elementsKey(), depth, elements))
                return false;
            value = std::move(elements);
            return true;
        }
        case Kind::Text:
            return readWrapped<QString>(record->value(stringKey()), value);
        case Kind::Data:
            return readWrapped<QByteArray>(record->value(dataKey()), value);
        case Kind::Date:
            return readDate(record->value(timeKey()), value);
        case Kind::Null:
            break;
        }
        value = {};
        return true;
    }

    /// The text or the data within an object, where it stands or where it refers to.
    template <typename T>
    bool readWrapped(const PropertyValue& content, PropertyValue& value)
    {
        value = content;
        std::size_t object = 0;
        if (content.get<Record>() != nullptr) {
            if (!objectAt(content, object))
                return false;
            value = objects_.at(qsizetype(object));
        }
        return value.get<T>() != nullptr ? spend(bytesOf(value)) : fail("an object without its content");
    }

    bool readDate(const PropertyValue& time, PropertyValue& value)
    {
        const auto* real = time.get<double>();
        const auto* whole = time.get<qint64>();
        if (real == nullptr && whole == nullptr)
            return fail("a date without its time");
        const double seconds = real != nullptr ? *real : double(*whole);
        if (!(std::abs(seconds) < mostSeconds))
            return fail("wrong date");
        value = QDateTime::fromSecsSinceEpoch(qint64(std::floor(seconds)) + secondsFrom1970To2001, Qt::UTC);
        return true;
    }

    bool readReferences(const Record& object, RecordKey key, int depth, PropertyArray& values)
    {
        const PropertyValue references = object.value(key);
        const auto* list = references.get<PropertyArray>();
        if (list == nullptr)
            return fail("a container without its parts");
        if (depth >= keyedArchiveDepth)
            return fail("nested too deep");
        for (const PropertyValue& reference : *list) {
            PropertyValue value;
            if (!readReference(reference, depth + 1, value))
                return false;
            values.append(std::move(value));
        }
        return true;
    }

    bool readDictionary(const Record& object, int depth, PropertyValue& value)
    {
        PropertyArray names;
        PropertyArray values;
        if (!readReferences(object, keysKey(), depth, names) ||
            !readReferences(object, elementsKey(), depth, values))
            return false;
        if (names.size() != values.size())
            return fail("keys without values");
        RecordBuilder builder;
        for (qsizetype i = 0; i < names.size(); ++i) {
            const auto* name = names.at(i).get<QString>();
            if (name == nullptr)
                return fail("a key that is no text");
            builder.add(RecordKey::named(*name), values.at(i));
        }
        value = Record::make(builder.build());
        return true;
    }

    PropertyArray objects_;
    std::vector<Known> known_;
    quint64 spent_ = 0;
    QString error_;
};

} // namespace

tl::expected<PropertyValue, QString> unarchivedValue(QByteArrayView archive)
{
    if (archive.size() > mostBytes)
        return tl::unexpected(QStringLiteral("keyed archive: too large"));
    const auto list = readPropertyList(archive);
    if (!list)
        return tl::unexpected(list.error());
    Unarchiver unarchiver;
    PropertyValue root;
    if (!unarchiver.read(*list, root))
        return tl::unexpected(unarchiver.error());
    return root;
}

} // namespace zib
