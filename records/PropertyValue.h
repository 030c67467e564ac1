// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

#include <concepts>
#include <variant>

namespace zib {

class PropertyValue;
using PropertyArray = QList<PropertyValue>;

/// One property-list value. A dictionary is a Record, so nested dictionaries have identity too. Dates are
/// UTC. Equality is by content and by type: the integer 1, the real 1.0 and true differ.
class PropertyValue {
  public:
    using Variant = std::variant<std::monostate, bool, qint64, double, QDateTime, QString, QByteArray,
                                 PropertyArray, Record>;

    PropertyValue() = default;
    template <std::same_as<bool> T>
    PropertyValue(T value) // a template, so that no pointer turns into a boolean
        : value_(value)
    {
    }
    PropertyValue(int value)
        : value_(qint64(value))
    {
    }
    PropertyValue(qint64 value)
        : value_(value)
    {
    }
    PropertyValue(double value)
        : value_(value)
    {
    }
    PropertyValue(QDateTime value)
        : value_(std::move(value))
    {
    }
    PropertyValue(QString value)
        : value_(std::move(value))
    {
    }
    PropertyValue(QByteArray value)
        : value_(std::move(value))
    {
    }
    PropertyValue(PropertyArray value)
        : value_(std::move(value))
    {
    }
    PropertyValue(Record value)
        : value_(std::move(value))
    {
    }
    PropertyValue(const QStringList& strings);
    PropertyValue(const QList<Record>& records);

    [[nodiscard]] bool isNull() const { return std::holds_alternative<std::monostate>(value_); }
    [[nodiscard]] const Variant& variant() const { return value_; }
    /// The value when it has that type, else none; valid as long as this value lives unchanged.
    template <typename T>
    [[nodiscard]] const T* get() const
    {
        return std::get_if<T>(&value_);
    }

    friend bool operator==(const PropertyValue& a, const PropertyValue& b) = default;

  private:
    Variant value_;
};

} // namespace zib
