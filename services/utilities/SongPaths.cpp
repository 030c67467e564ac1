// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/utilities/SongPaths.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "services/utilities/PathUtilities.h"

#include <QCoreApplication>

namespace zib {
namespace {

QString folderName(const QString& name, const QString& unknown)
{
    QString folder = name.isEmpty() ? unknown : name;
    return folder.replace(QLatin1Char('/'), QLatin1Char('-'));
}

} // namespace

QString SongPaths::musicFolder() const
{
    return stringByExpandingTildeInPath(userDefaults_.string(settings::MusicFolder));
}

QString SongPaths::artistPath(const Record& track) const
{
    return stringByAppendingPathComponent(
        musicFolder(),
        folderName(track.string(keys::Artist), QCoreApplication::translate("SongPaths", "Unknown Artist")));
}

QString SongPaths::basePath(const Record& track) const
{
    return stringByAppendingPathComponent(
        artistPath(track),
        folderName(track.string(keys::Album), QCoreApplication::translate("SongPaths", "Unknown Album")));
}

QString SongPaths::filePath(const Record& track) const
{
    const bool hasExtension = !pathExtension(track.string(keys::Location)).isEmpty();
    const QString fileName =
        track.string(keys::Name) + (hasExtension ? QLatin1String(".mp3") : QLatin1String("."));
    return stringByAppendingPathComponent(basePath(track), fileName);
}

} // namespace zib
