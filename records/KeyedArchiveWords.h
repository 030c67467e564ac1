// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/RecordKeys.h"

#include <QLatin1String>
#include <QStringList>

// The words of the archive format, for its writer and its reader alone.

namespace zib::archive {

inline constexpr QLatin1String archiverName("NSKeyedArchiver");
inline constexpr int version = 100000;
inline constexpr QLatin1String nullName("$null"); ///< object 0, which stands for no object

#define ZIB_ARCHIVE_WORD(function, word)                                                                     \
    inline RecordKey function()                                                                              \
    {                                                                                                        \
        static const RecordKey key = RecordKey::named(word);                                                 \
        return key;                                                                                          \
    }
ZIB_ARCHIVE_WORD(archiverKey, "$archiver")
ZIB_ARCHIVE_WORD(versionKey, "$version")
ZIB_ARCHIVE_WORD(topKey, "$top")
ZIB_ARCHIVE_WORD(rootKey, "root")
ZIB_ARCHIVE_WORD(objectsKey, "$objects")
ZIB_ARCHIVE_WORD(classKey, "$class")
ZIB_ARCHIVE_WORD(classNameKey, "$classname")
ZIB_ARCHIVE_WORD(classesKey, "$classes")
ZIB_ARCHIVE_WORD(keysKey, "NS.keys")
ZIB_ARCHIVE_WORD(elementsKey, "NS.objects")
ZIB_ARCHIVE_WORD(timeKey, "NS.time")
ZIB_ARCHIVE_WORD(stringKey, "NS.string")
ZIB_ARCHIVE_WORD(dataKey, "NS.data")
ZIB_ARCHIVE_WORD(uidKey, "CF$UID") ///< how the property-list reader gives a reference
#undef ZIB_ARCHIVE_WORD

/// A class and those that it is derived from.
/// @{
inline QStringList dictionaryClasses()
{
    return {QStringLiteral("NSMutableDictionary"), QStringLiteral("NSDictionary"),
            QStringLiteral("NSObject")};
}
inline QStringList arrayClasses()
{
    return {QStringLiteral("NSMutableArray"), QStringLiteral("NSArray"), QStringLiteral("NSObject")};
}
inline QStringList dateClasses()
{
    return {QStringLiteral("NSDate"), QStringLiteral("NSObject")};
}
/// @}

} // namespace zib::archive
