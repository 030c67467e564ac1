// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/PropertyValue.h"

#include <QByteArray>

namespace zib {

/// The value as a binary property list, or none when it has no form in one: a missing value, a date that is
/// none, more than propertyListDepth levels. A dictionary of nothing but the integer "CF$UID", 0 to 2^32 - 1,
/// is written as the UID that readPropertyList() makes such a dictionary of. Equal texts, and equal UIDs, are
/// written once. Main thread.
QByteArray writeBinaryPropertyList(const PropertyValue& root);

} // namespace zib
