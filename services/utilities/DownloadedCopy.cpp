// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/utilities/DownloadedCopy.h"

#include "services/utilities/PathUtilities.h"
#include "services/utilities/SongPaths.h"

#include <QDirIterator>

namespace zib {

QString downloadedCopy(const SongPaths& paths, const Record& track)
{
    const QString folder = paths.artistPath(track);
    QString extension = pathExtension(track.string(keys::Location));
    if (extension.isEmpty())
        extension = QStringLiteral("mp3");
    const QString wanted = (track.string(keys::Name) + QLatin1Char('.') + extension).toLower();
    QDirIterator entries(folder, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QString path = entries.next();
        if (path.mid(folder.size() + 1).toLower().endsWith(wanted))
            return path;
    }
    return {};
}

} // namespace zib
