// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibraryFile.h"

#include <QDir>
#include <QFileInfo>

namespace zib {

QString LibraryFile::standardPath()
{
    return QDir::home().filePath(QStringLiteral("Music/Zib/Zib Music Library.zib"));
}

bool LibraryFile::exists() const
{
    return QFileInfo::exists(path_);
}

tl::expected<LibraryContents, QString> LibraryFile::load() const
{
    return LibraryContents();
}

bool LibraryFile::save(const LibrarySnapshot& /*snapshot*/) const
{
    return false;
}

} // namespace zib
