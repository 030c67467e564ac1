// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

#include <QList>

#include <algorithm>

namespace zib {

/// The positions in the list of the first record equal in content to each of the objects, ascending and each
/// once. Objects that are not there are ignored.
QList<qsizetype> indexesOfObjects(const QList<Record>& list, const QList<Record>& objects);
/// Whether the very object is in the list.
bool containsObjectIdenticalTo(const QList<Record>& list, const Record& object);
/// Whether any of the very objects is in the list.
bool containsAnyObjectsIdenticalTo(const QList<Record>& list, const QList<Record>& objects);

/// Copies of the records, each with "Index" = its position, counted from 0.
QList<Record> indexedArray(const QList<Record>& list);
/// The same records, each itself given "Index" = its position, counted from 1.
QList<Record> indexedArrayWithArray(const QList<Record>& list);

/// Moves the first element equal to the object so that it ends at that index; an absent object is inserted
/// there. An index beyond the end means the end.
template <typename T>
void moveObject(QList<T>& list, const T& object, qsizetype toIndex)
{
    const T moved = object; // the caller's reference may lie in the list
    const qsizetype from = list.indexOf(moved);
    if (from >= 0)
        list.removeAt(from);
    list.insert(std::clamp<qsizetype>(toIndex, 0, list.size()), moved);
}

} // namespace zib
