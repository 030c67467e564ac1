// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/utilities/ArrayUtilities.h"

#include "records/PropertyValue.h"

#include <QHash>

#include <ranges>

namespace zib {

QList<qsizetype> indexesOfObjects(const QList<Record>& list, const QList<Record>& objects)
{
    // Equal records have equal ids, so each record of the list meets only the objects of its own id: a large
    // selection in a large list costs their sum, not their product.
    QHash<std::string_view, QList<Record>> wanted;
    for (const Record& object : objects)
        wanted[object.utf8(keys::Id)].append(object);
    QList<qsizetype> indexes;
    for (qsizetype i = 0; i < list.size() && !wanted.isEmpty(); ++i) {
        const auto candidates = wanted.find(list[i].utf8(keys::Id));
        if (candidates != wanted.end() && candidates->removeAll(list[i]) > 0) {
            indexes.append(i);
            if (candidates->isEmpty())
                wanted.erase(candidates);
        }
    }
    return indexes;
}

bool containsObjectIdenticalTo(const QList<Record>& list, const Record& object)
{
    return std::ranges::any_of(list, [&](const Record& record) { return record.isSame(object); });
}

bool containsAnyObjectsIdenticalTo(const QList<Record>& list, const QList<Record>& objects)
{
    return std::ranges::any_of(objects,
                               [&](const Record& object) { return containsObjectIdenticalTo(list, object); });
}

QList<Record> indexedArray(const QList<Record>& list)
{
    QList<Record> copies;
    copies.reserve(list.size());
    for (const Record& record : list)
        copies.append(record.copy());
    for (qsizetype i = 0; i < copies.size(); ++i)
        copies[i].set(keys::Index, i);
    return copies;
}

QList<Record> indexedArrayWithArray(const QList<Record>& list)
{
    QList<Record> same = list;
    for (qsizetype i = 0; i < same.size(); ++i)
        same[i].set(keys::Index, i + 1);
    return same;
}

} // namespace zib
