// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/Record.h"

#include "records/PropertyValue.h"
#include "records/RecordFields.h"

#include <atomic>
#include <limits>
#include <mutex>
#include <thread>

namespace zib {
namespace {

/// Held for a few instructions, and one stands in every record: a byte in place of a mutex's forty.
class TinyLock {
  public:
    void lock() noexcept
    {
        while (held_.exchange(true, std::memory_order_acquire))
            std::this_thread::yield();
    }
    void unlock() noexcept { held_.store(false, std::memory_order_release); }

  private:
    std::atomic<bool> held_ = false;
};

RecordBuilder& sharedBuilder()
{
    thread_local RecordBuilder builder;
    return builder;
}

} // namespace

class RecordObject {
  public:
    static constexpr std::int32_t noIndex = -1;

    std::atomic<std::uint32_t> references{1};
    // Held to change the members below, and to read them away from the main thread.
    mutable TinyLock mutex;
    // "Index" stands beside the fields: numbering the shown songs sets it on every one of them, on copies
    // that can so go on sharing the fields. An index of another kind than a row's stands among the fields.
    std::int32_t index = noIndex;
    RecordFields fields;

    RecordObject() = default;
    RecordObject(RecordFields content, std::int32_t place)
        : index(place)
        , fields(std::move(content))
    {
    }

    [[nodiscard]] bool hasIndex() const { return index != noIndex; }

    void change(RecordFields content, std::int32_t place)
    {
        const std::scoped_lock lock(mutex);
        std::swap(fields, content); // the old block is freed outside the lock
        index = place;
    }
};

Record::Record(RecordObject* object) noexcept
    : object_(object)
{
}

Record::Record(const Record& other) noexcept
    : object_(other.object_)
{
    if (object_ != nullptr)
        object_->references.fetch_add(1, std::memory_order_relaxed);
}

Record::Record(Record&& other) noexcept
    : object_(std::exchange(other.object_, nullptr))
{
}

Record& Record::operator=(Record other) noexcept
{
    std::swap(object_, other.object_);
    return *this;
}

Record::~Record()
{
    if (object_ != nullptr && object_->references.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete object_;
}

Record Record::make(std::initializer_list<Field> fields)
{
    Record record(new RecordObject);
    for (const Field& field : fields)
        record.set(field.first, field.second);
    return record;
}

Record Record::make(const RecordFields& fields)
{
    const std::size_t place = fields.find(keys::Index);
    if (place == RecordFields::absent)
        return Record(new RecordObject(fields, RecordObject::noIndex));
    RecordBuilder& builder = sharedBuilder();
    builder.add(fields);
    builder.remove(keys::Index);
    Record record(new RecordObject(builder.build(), RecordObject::noIndex));
    record.set(keys::Index, fields.value(place));
    return record;
}

bool operator==(const Record& a, const Record& b)
{
    if (a.isSame(b))
        return true;
    return !a.isNull() && !b.isNull() && a.object_->index == b.object_->index &&
           a.object_->fields == b.object_->fields;
}

bool Record::equalsButIndex(const Record& other) const
{
    if (isNull() || other.isNull())
        return isSame(other);
    return object_->fields == other.object_->fields;
}

Record Record::copy() const
{
    return object_ != nullptr ? Record(new RecordObject(object_->fields, object_->index)) : make();
}

Record Record::makeRow(const RecordFields& fields, std::int32_t index)
{
    return Record(new RecordObject(fields, index));
}

const RecordFields& Record::content() const noexcept
{
    static const RecordFields none;
    return object_ != nullptr ? object_->fields : none;
}

bool Record::hasFields(const RecordFields& block) const
{
    return object_ != nullptr && object_->fields.isSame(block);
}

bool Record::contains(RecordKey key) const
{
    if (object_ == nullptr)
        return false;
    return object_->fields.find(key) != RecordFields::absent || (key == keys::Index && object_->hasIndex());
}

QList<RecordKey> Record::keys() const
{
    QList<RecordKey> result;
    if (object_ == nullptr)
        return result;
    for (std::size_t place = 0; place < object_->fields.size(); ++place)
        result.append(object_->fields.key(place));
    if (object_->hasIndex())
        result.append(keys::Index);
    return result;
}

PropertyValue Record::value(RecordKey key) const
{
    if (object_ == nullptr)
        return {};
    if (key == keys::Index && object_->hasIndex())
        return object_->index;
    const std::size_t place = object_->fields.find(key);
    return place != RecordFields::absent ? object_->fields.value(place) : PropertyValue();
}

std::string_view Record::utf8(RecordKey key) const
{
    return object_ != nullptr ? object_->fields.text(key) : std::string_view();
}

QString Record::string(RecordKey key) const
{
    const std::string_view text = utf8(key);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

qint64 Record::integer(RecordKey key) const
{
    const PropertyValue found = value(key);
    if (const auto* integer = found.get<qint64>())
        return *integer;
    const double real = this->real(key);
    // Beyond the range a conversion would be undefined; a value that is no number counts nothing.
    constexpr double limit = 9223372036854775808.0;
    if (real >= limit)
        return std::numeric_limits<qint64>::max();
    if (real < -limit)
        return std::numeric_limits<qint64>::min();
    return real == real ? static_cast<qint64>(real) : 0;
}

double Record::real(RecordKey key) const
{
    const PropertyValue found = value(key);
    if (const auto* integer = found.get<qint64>())
        return double(*integer);
    if (const auto* real = found.get<double>())
        return *real;
    const auto* boolean = found.get<bool>();
    return boolean != nullptr && *boolean ? 1 : 0;
}

bool Record::boolean(RecordKey key) const
{
    return real(key) != 0;
}

QDateTime Record::date(RecordKey key) const
{
    const PropertyValue found = value(key);
    const auto* date = found.get<QDateTime>();
    return date != nullptr ? *date : QDateTime();
}

QStringList Record::strings(RecordKey key) const
{
    QStringList result;
    const PropertyValue found = value(key);
    if (const auto* array = found.get<PropertyArray>())
        for (const PropertyValue& element : *array)
            if (const auto* text = element.get<QString>())
                result.append(*text);
    return result;
}

QList<Record> Record::records(RecordKey key) const
{
    QList<Record> result;
    const PropertyValue found = value(key);
    if (const auto* array = found.get<PropertyArray>())
        for (const PropertyValue& element : *array)
            if (const auto* record = element.get<Record>())
                result.append(*record);
    return result;
}

void Record::set(RecordKey key, const PropertyValue& value)
{
    std::int32_t index = object_->index;
    const bool hasField = object_->fields.find(key) != RecordFields::absent;
    if (key == keys::Index) {
        const auto* row = value.get<qint64>();
        const bool isRow = row != nullptr && *row >= 0 && *row <= std::numeric_limits<std::int32_t>::max();
        index = isRow ? static_cast<std::int32_t>(*row) : RecordObject::noIndex;
        if (!hasField && (isRow || value.isNull())) {
            object_->change(object_->fields, index);
            return;
        }
    }
    RecordBuilder& builder = sharedBuilder();
    builder.add(object_->fields);
    builder.remove(key);
    if (key != keys::Index || index == RecordObject::noIndex)
        builder.add(key, value);
    object_->change(builder.build(), index);
}

void Record::remove(RecordKey key)
{
    if (contains(key))
        set(key, {});
}

RecordFields Record::fields() const
{
    if (object_ == nullptr)
        return {};
    const std::scoped_lock lock(object_->mutex);
    return object_->fields;
}

Record Record::snapshot() const
{
    if (object_ == nullptr)
        return {};
    const std::scoped_lock lock(object_->mutex);
    return copy();
}

} // namespace zib
