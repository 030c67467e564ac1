// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/MusicFolder.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace zib {
namespace {

namespace fs = std::filesystem;

const QString kFolderName = QStringLiteral("Zib Music");

fs::path native(const QString& path)
{
    return {QDir::cleanPath(path).toStdString()};
}

QString withHome(const QString& path)
{
    return path.startsWith(QLatin1Char('~')) ? QDir::homePath() + path.mid(1) : path;
}

// Copies beside the target first, so that a disk that fills up leaves no half folder at the target.
void copyAcross(const fs::path& from, const fs::path& to, std::error_code& error)
{
    fs::path partial = to;
    partial += ".partial";
    fs::copy(from, partial, fs::copy_options::recursive | fs::copy_options::copy_symlinks, error);
    if (!error)
        fs::rename(partial, to, error);
    if (error) {
        std::error_code ignored;
        fs::remove_all(partial, ignored);
        return;
    }
    std::error_code ignored; // all is at the new place; a left-over at the old one is no failure of the move
    fs::remove_all(from, ignored);
}

tl::expected<void, QString> moveFolder(const QString& from, const QString& to)
{
    const auto failure = [](const std::error_code& error) {
        return tl::unexpected(
            QCoreApplication::translate("MusicFolder", "The music folder could not be moved: %1.")
                .arg(QString::fromStdString(error.message())));
    };
    const fs::path source = native(from);
    const fs::path target = native(to);
    std::error_code error;
    if (source == target || !fs::exists(source, error))
        return {};
    if (fs::exists(target, error))
        return failure(std::make_error_code(std::errc::file_exists));
    if (native(to + QLatin1Char('/')).string().starts_with(source.string() + '/'))
        return failure(std::make_error_code(std::errc::invalid_argument)); // into itself
    fs::create_directories(target.parent_path(), error);
    if (error)
        return failure(error);
    fs::rename(source, target, error);
    if (error == std::errc::cross_device_link) {
        error.clear();
        copyAcross(source, target, error);
    }
    if (error)
        return failure(error);
    return {};
}

} // namespace

QString defaultMusicFolder()
{
    return QDir::homePath() + QStringLiteral("/Music/Zib/") + kFolderName;
}

tl::expected<void, QString> changeMusicFolder(UserDefaults& defaults, const QString& pickedFolder)
{
    const QString picked = QFileInfo(pickedFolder).canonicalFilePath(); // links resolved
    const QString target = QDir(picked.isEmpty() ? pickedFolder : picked).filePath(kFolderName);
    auto moved = moveFolder(withHome(defaults.string(settings::MusicFolder)), target);
    if (moved)
        defaults.setValue(settings::MusicFolder, target);
    return moved;
}

bool resetMusicFolder(UserDefaults& defaults)
{
    const QString target = defaultMusicFolder();
    const auto moved = moveFolder(withHome(defaults.string(settings::MusicFolder)), target);
    defaults.setValue(settings::MusicFolder, target);
    return moved.has_value();
}

} // namespace zib
