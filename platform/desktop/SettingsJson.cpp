// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/SettingsJson.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <limits>

namespace zib {
namespace {

const QString real = QStringLiteral("real");

bool isReal(const QVariant& value)
{
    return value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float;
}

QVariant fromJson(const QJsonValue& value)
{
    if (value.isObject()) {
        const QJsonValue number = value[real];
        return number.isDouble() ? QVariant(number.toDouble()) : QVariant();
    }
    QVariant result = value.toVariant();
    if (result.typeId() == QMetaType::LongLong) {
        const qint64 integer = result.toLongLong();
        if (integer >= std::numeric_limits<int>::min() && integer <= std::numeric_limits<int>::max())
            result = int(integer);
    }
    return isStorable(result) ? result : QVariant();
}

} // namespace

bool isStorable(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::QString:
        return true;
    default:
        return isReal(value) && std::isfinite(value.toDouble());
    }
}

QByteArray settingsToJson(const QVariantMap& values)
{
    QJsonObject object;
    for (auto entry = values.begin(); entry != values.end(); ++entry) {
        if (isReal(*entry))
            object.insert(entry.key(), QJsonObject{{real, entry->toDouble()}});
        else
            object.insert(entry.key(), QJsonValue::fromVariant(*entry));
    }
    return QJsonDocument(object).toJson();
}

std::optional<QVariantMap> settingsFromJson(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return std::nullopt;
    const QJsonObject object = document.object();
    QVariantMap values;
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        if (const QVariant value = fromJson(*entry); value.isValid())
            values.insert(entry.key(), value);
    }
    return values;
}

} // namespace zib
