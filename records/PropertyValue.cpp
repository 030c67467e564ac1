// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/PropertyValue.h"

namespace zib {

PropertyValue::PropertyValue(const QStringList& strings)
    : value_(PropertyArray(strings.begin(), strings.end()))
{
}

PropertyValue::PropertyValue(const QList<Record>& records)
    : value_(PropertyArray(records.begin(), records.end()))
{
}

} // namespace zib
