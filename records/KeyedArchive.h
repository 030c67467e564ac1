// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/PropertyValue.h"

#include <QByteArrayView>
#include <QString>

#include <tl/expected.hpp>

namespace zib {

/// Arrays and dictionaries of an archive are written and read so deep, no deeper.
inline constexpr int keyedArchiveDepth = 64;

/// The value as a keyed archive, the form in which shared playlists travel: a binary property list whose
/// "$objects" hold every value once and refer to each other by number. A record that stands in several places
/// is one object, and so are equal texts. None when the value has no form in an archive: a missing value, a
/// date that is none, too deep, or a record within itself. Main thread.
QByteArray archivedData(const PropertyValue& root);

/// Reads a keyed archive. Dictionaries, arrays, texts, data, dates, numbers, booleans and null are
/// understood, whether they were changeable or not where they were written; an object that is referred to
/// twice comes out as the same record. The bytes may come from anywhere: anything else, circles, and what is
/// too deep or unfolds to more than a few megabytes yield an error text for the log.
tl::expected<PropertyValue, QString> unarchivedValue(QByteArrayView archive);

} // namespace zib
