// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/PropertyValue.h"
#include "records/RecordTable.h"

#include <QByteArrayView>
#include <QString>

#include <tl/expected.hpp>

#include <cstddef>
#include <functional>
#include <span>

namespace zib {

/// Arrays and dictionaries within each other are read and written so deep, no deeper.
inline constexpr int propertyListDepth = 512;

/// Reads an XML or a binary property list, told apart by its first bytes. The bytes may come from anywhere:
/// what is malformed, too deep, or would unfold to far more than its size yields an error text for the log.
/// An unsigned integer that no qint64 holds is read as a real; a UID of an archive as a dictionary with the
/// integer "CF$UID". Any thread.
tl::expected<PropertyValue, QString> readPropertyList(QByteArrayView bytes);

/// A property list whose root is a dictionary, with one dictionary of dictionaries in it as a table.
struct TableDocument {
    Record root;       ///< all other fields
    RecordTable table; ///< empty when there was none
};

/// The same for a root that is a dictionary, whose field of that key is read straight into a table. It is an
/// error when the root is none or the field holds anything but dictionaries.
tl::expected<TableDocument, QString> readPropertyListWithTable(QByteArrayView bytes, RecordKey tableKey);

/// Puts the next bytes of a file at the front of the span and returns how many; 0 is the end. Giving few
/// bytes at once makes reading slow.
using ByteSource = std::function<std::size_t(std::span<char>)>;

/// The same for bytes that come in pieces. Of an XML list little more than the largest entry of the table, or
/// the largest other field, stands in memory at once.
tl::expected<TableDocument, QString> readPropertyListWithTable(const ByteSource& source, RecordKey tableKey);

} // namespace zib
