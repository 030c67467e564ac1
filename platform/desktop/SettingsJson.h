// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QVariantMap>

#include <optional>

namespace zib {

/// Whether the settings file can hold the value with its type: a boolean, an integer, a finite real, a
/// string.
bool isStorable(const QVariant& value);

/// The settings as JSON. A real is written as {"real": 1}, because JSON does not tell 1.0 from 1.
/// @param values storable ones.
QByteArray settingsToJson(const QVariantMap& values);

/// The settings in the JSON, or nothing when it is none. A value of another kind is left out.
std::optional<QVariantMap> settingsFromJson(const QByteArray& json);

} // namespace zib
