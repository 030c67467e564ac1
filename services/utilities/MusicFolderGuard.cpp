// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/utilities/MusicFolderGuard.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

#include <algorithm>
#include <climits>
#include <filesystem>
#include <system_error>

namespace zib {
namespace {

namespace fs = std::filesystem;

tl::unexpected<QString> refusal(const char* text, const QString& name)
{
    constexpr qsizetype shownLength = 120; // an alert has to hold it
    const QString shown = name.size() > shownLength ? name.left(shownLength) + QChar(0x2026) : name;
    return tl::unexpected(QCoreApplication::translate("MusicFolderGuard", text).arg(shown));
}

fs::path native(const QString& path)
{
    return {QFile::encodeName(path).toStdString()};
}

fs::path withoutSlashAtEnd(const fs::path& path)
{
    return path.has_filename() ? path : path.parent_path();
}

/// With the links of what exists of it resolved.
fs::path resolved(const fs::path& path, std::error_code& error)
{
    return withoutSlashAtEnd(fs::weakly_canonical(path, error));
}

bool isBelow(const fs::path& path, const fs::path& folder)
{
    const auto [inFolder, inPath] = std::ranges::mismatch(folder, path);
    return inFolder == folder.end() && inPath != path.end();
}

} // namespace

tl::expected<QString, QString> pathInMusicFolder(const QString& musicFolder, const QString& path)
{
    if (path.contains(QChar::Null)) // where it would end for the system
        return refusal(QT_TRANSLATE_NOOP("MusicFolderGuard", "No file can have the name “%1”."), path);
    const QString inside = path.startsWith(musicFolder) ? path.mid(musicFolder.size()) : path;
    const QStringList names = inside.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    // Even where it would end up inside: the folders of an album are not to be told apart by it.
    const bool climbs = names.contains(QLatin1String(".."));
    for (const QString& name : names)
        if (QFile::encodeName(name).size() > NAME_MAX)
            return refusal(QT_TRANSLATE_NOOP("MusicFolderGuard", "The name “%1” is too long for a file."),
                           name);
    if (QFile::encodeName(path).size() >= PATH_MAX)
        return refusal(QT_TRANSLATE_NOOP("MusicFolderGuard", "The path “%1” is too long for a file."), path);

    std::error_code folderError;
    std::error_code parentError;
    const fs::path folder = resolved(native(musicFolder), folderError);
    const fs::path target = withoutSlashAtEnd(native(path));
    const fs::path parent = resolved(target.parent_path(), parentError);
    const fs::path result = withoutSlashAtEnd((parent / target.filename()).lexically_normal());
    if (climbs || folderError || parentError || !native(musicFolder).is_absolute() ||
        !isBelow(result, folder))
        return refusal(QT_TRANSLATE_NOOP("MusicFolderGuard", "“%1” lies outside the music folder."), path);
    return QFile::decodeName(result.c_str());
}

} // namespace zib
