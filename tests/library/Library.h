// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/LibraryFile.h"
#include "records/PropertyValue.h"

#include <initializer_list>

namespace zib {

inline Record song(const QString& id, std::initializer_list<Record::Field> fields = {})
{
    Record record = Record::make(fields);
    record.set(keys::Id, id);
    record.set(keys::Name, QString(QStringLiteral("Song ") + id));
    return record;
}

inline LibrarySnapshot snapshotOf(LibraryContents& contents)
{
    return {contents.library.snapshot(), contents.playlists, contents.searches, contents.userInfo};
}

} // namespace zib
