// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/RecordKeys.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace zib {

class PropertyValue;
class RecordFields;
class RecordObject;

/// A string-keyed dictionary of property-list values that has identity: a handle to one shared object.
///
/// Copying a Record copies the handle, so both names see every later change; copy() makes a new object of
/// equal content. isSame() compares identity, operator== content. A default-constructed Record is no record:
/// it reads as empty and must not be changed.
///
/// Threads: handles may be copied and destroyed on any thread. A record is changed and read through this
/// interface on the main thread only, until it is frozen for another thread with snapshot().
class Record {
  public:
    using Field = std::pair<RecordKey, PropertyValue>;

    Record() noexcept = default;
    Record(const Record& other) noexcept;
    Record(Record&& other) noexcept;
    Record& operator=(Record other) noexcept;
    ~Record();

    /// A new record with those fields; of a key that stands twice the last value holds.
    static Record make(std::initializer_list<Field> fields = {});
    /// A new record that shares that block of fields.
    static Record make(const RecordFields& fields);
    /// The same with an "Index", of fields that hold none: a row of a list.
    static Record makeRow(const RecordFields& fields, std::int32_t index);

    [[nodiscard]] bool isNull() const noexcept { return object_ == nullptr; }
    explicit operator bool() const noexcept { return object_ != nullptr; }

    /// Identity: whether both are the very same object.
    [[nodiscard]] bool isSame(const Record& other) const noexcept { return object_ == other.object_; }
    /// Content: whether both hold equal values under the same keys, in whatever order; no record equals no
    /// record.
    friend bool operator==(const Record& a, const Record& b);
    /// Content but for "Index": whether both are the same song as it stands, wherever each is shown.
    [[nodiscard]] bool equalsButIndex(const Record& other) const;

    /// A new object of equal content, which is shared until one of the two is changed. Nested records are
    /// the same records, not copies.
    [[nodiscard]] Record copy() const;

    [[nodiscard]] bool contains(RecordKey key) const;
    [[nodiscard]] QList<RecordKey> keys() const;
    /// The value, or a null value when the key is absent.
    [[nodiscard]] PropertyValue value(RecordKey key) const;

    /// The typed getters answer with an empty value when the key is absent or holds another type, but numbers
    /// and booleans stand for each other: a real is truncated to an integer, true counts 1, any non-zero is
    /// true.
    [[nodiscard]] QString string(RecordKey key) const;
    /// The string as UTF-8, valid until this record is next changed.
    [[nodiscard]] std::string_view utf8(RecordKey key) const;
    [[nodiscard]] qint64 integer(RecordKey key) const;
    [[nodiscard]] double real(RecordKey key) const;
    [[nodiscard]] bool boolean(RecordKey key) const;
    [[nodiscard]] QDateTime date(RecordKey key) const;
    /// The strings, or the records, of an array; its other elements are left out.
    [[nodiscard]] QStringList strings(RecordKey key) const;
    [[nodiscard]] QList<Record> records(RecordKey key) const;

    /// Sets a value on the shared object: every holder sees it. A null value removes the key.
    void set(RecordKey key, const PropertyValue& value);
    void remove(RecordKey key);

    /// The fields as they are now, for reading and writing in bulk. Without a row's "Index", which belongs to
    /// a shown list and is never stored. Callable on any thread while the main thread changes the record.
    [[nodiscard]] RecordFields fields() const;
    /// The same without sharing them, for the main thread alone: valid until this record is next changed.
    [[nodiscard]] const RecordFields& content() const noexcept;
    /// Whether the fields are still that very block, and so nothing but "Index" was changed since it was
    /// taken. The other way round nothing is said: another block may hold the same.
    [[nodiscard]] bool hasFields(const RecordFields& block) const;

    /// A new object with the content as it is now, which no later change of this one touches. Callable on any
    /// thread while the main thread changes the record; the result is for the caller alone.
    [[nodiscard]] Record snapshot() const;

  private:
    explicit Record(RecordObject* object) noexcept;

    RecordObject* object_ = nullptr;
};

} // namespace zib
