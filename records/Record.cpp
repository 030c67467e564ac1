// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/Record.h"

#include "records/PropertyValue.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <vector>

namespace zib {

class RecordObject {
  public:
    std::atomic<int> references{1};
    mutable std::mutex mutex; // held to change the fields, and to read them away from the main thread
    std::vector<Record::Field> fields;

    const PropertyValue* find(RecordKey key) const
    {
        const auto field = std::ranges::find(fields, key, &Record::Field::first);
        return field == fields.end() ? nullptr : &field->second;
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

bool operator==(const Record& a, const Record& b)
{
    if (a.isSame(b))
        return true;
    if (a.isNull() || b.isNull() || a.object_->fields.size() != b.object_->fields.size())
        return false;
    return std::ranges::all_of(a.object_->fields, [&b](const Record::Field& field) {
        const PropertyValue* other = b.object_->find(field.first);
        return other != nullptr && *other == field.second;
    });
}

Record Record::copy() const
{
    Record result = make();
    if (object_ != nullptr)
        result.object_->fields = object_->fields;
    return result;
}

bool Record::contains(RecordKey key) const
{
    return object_ != nullptr && object_->find(key) != nullptr;
}

QList<RecordKey> Record::keys() const
{
    QList<RecordKey> result;
    if (object_ != nullptr)
        std::ranges::transform(object_->fields, std::back_inserter(result), &Field::first);
    return result;
}

PropertyValue Record::value(RecordKey key) const
{
    const PropertyValue* found = object_ != nullptr ? object_->find(key) : nullptr;
    return found != nullptr ? *found : PropertyValue();
}

QString Record::string(RecordKey key) const
{
    const PropertyValue found = value(key);
    const auto* text = found.get<QString>();
    return text != nullptr ? *text : QString();
}

std::string_view Record::utf8(RecordKey) const
{
    return {};
}

qint64 Record::integer(RecordKey key) const
{
    return static_cast<qint64>(real(key));
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
    if (value.isNull()) {
        remove(key);
        return;
    }
    const std::scoped_lock lock(object_->mutex);
    const auto field = std::ranges::find(object_->fields, key, &Field::first);
    if (field != object_->fields.end())
        field->second = value;
    else
        object_->fields.emplace_back(key, value);
}

void Record::remove(RecordKey key)
{
    const std::scoped_lock lock(object_->mutex);
    std::erase_if(object_->fields, [key](const Field& field) { return field.first == key; });
}

Record Record::snapshot() const
{
    if (object_ == nullptr)
        return {};
    const std::scoped_lock lock(object_->mutex);
    return copy();
}

} // namespace zib
