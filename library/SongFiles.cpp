// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/SongFiles.h"

#include "library/NewFile.h"
#include "services/utilities/MusicFolderGuard.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace zib {
namespace {

namespace fs = std::filesystem;

constexpr qint64 pieceBytes = qint64(1) << 20U;

tl::unexpected<QString> failure(const QString& path, int error)
{
    if (error == EEXIST)
        return tl::unexpected(
            QCoreApplication::translate("SongFiles", "There is another file at “%1” already.").arg(path));
    return tl::unexpected(QCoreApplication::translate("SongFiles", "The file “%1” could not be written: %2.")
                              .arg(path, qt_error_string(error)));
}

/// Also a link to nothing.
bool isTaken(const QString& path)
{
    struct stat status {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0;
}

/// Whether it is the same file by two names, as where case does not count.
bool isSameFile(const QString& a, const QString& b)
{
    std::error_code none;
    return fs::equivalent(QFile::encodeName(a).constData(), QFile::encodeName(b).constData(), none);
}

SongFiles::Result makeFolderOf(const QString& path)
{
    const QString folder = QFileInfo(path).path();
    std::error_code error;
    fs::create_directories(QFile::encodeName(folder).constData(), error);
    if (error)
        return tl::unexpected(
            QCoreApplication::translate("SongFiles", "The folder “%1” could not be created: %2.")
                .arg(folder, QString::fromStdString(error.message())));
    return {};
}

} // namespace

tl::expected<QString, QString> SongFiles::place(const Record& track) const
{
    return pathInMusicFolder(paths_.musicFolder(), paths_.filePath(track));
}

QString SongFiles::workFolder() const
{
    return paths_.musicFolder() + QStringLiteral("/.zib-unfinished");
}

void SongFiles::removeUnfinished() const
{
    QDir folder(workFolder());
    if (QFileInfo(folder.path()).isSymLink()) // not ours
        return;
    const QStringList files = folder.entryList(QDir::Files | QDir::Hidden);
    for (const QString& file : files)
        folder.remove(file);
    ::rmdir(QFile::encodeName(folder.path()).constData());
}

SongFiles::Result SongFiles::copyFile(const QString& from, const QString& to) const
{
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return tl::unexpected(QCoreApplication::translate("SongFiles", "The file “%1” could not be read: %2.")
                                  .arg(from, source.errorString()));
    NewFile target(QFile::encodeName(to), QFile::encodeName(workFolder()));
    QByteArray piece(pieceBytes, Qt::Uninitialized);
    qint64 count = 0;
    while (target.error() == 0 && (count = source.read(piece.data(), piece.size())) > 0)
        target.write({piece.constData(), static_cast<std::size_t>(count)});
    if (count < 0)
        return failure(to, EIO);
    if (!target.commit())
        return failure(to, target.error());
    return {};
}

SongFiles::Result SongFiles::moveFile(const QString& from, const QString& to) const
{
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    const bool moved = isSameFile(from, to) ? ::rename(source.constData(), target.constData()) == 0
                                            : NewFile::renameWithoutReplacing(source, target);
    if (moved)
        return {};
    if (errno != EXDEV)
        return failure(to, errno);
    // A folder inside the music folder can be another disk.
    if (auto copied = copyFile(from, to); !copied)
        return copied;
    ::unlink(source.constData()); // when it stays, there are two, and none is lost
    return {};
}

tl::expected<bool, QString> SongFiles::write(const Record& track, const QByteArray& bytes) const
{
    const auto path = place(track);
    if (!path)
        return tl::unexpected(path.error());
    if (isTaken(*path))
        return false;
    if (auto made = makeFolderOf(*path); !made)
        return tl::unexpected(made.error());
    NewFile file(QFile::encodeName(*path), QFile::encodeName(workFolder()));
    file.write({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    if (file.commit())
        return true;
    if (file.error() == EEXIST)
        return false;
    removeEmptyFolders(*path);
    return failure(*path, file.error());
}

SongFiles::Result SongFiles::copy(const QString& from, const Record& track) const
{
    const auto path = place(track);
    if (!path)
        return tl::unexpected(path.error());
    if (isTaken(*path))
        return failure(*path, EEXIST);
    if (auto made = makeFolderOf(*path); !made)
        return made;
    auto copied = copyFile(from, *path);
    if (!copied)
        removeEmptyFolders(*path);
    return copied;
}

tl::expected<SongFiles::Places, QString> SongFiles::placesOfMove(const Record& before,
                                                                 const Record& after) const
{
    const QString oldPath = paths_.filePath(before);
    if (oldPath == paths_.filePath(after) || !QFileInfo(oldPath).isFile())
        return Places();
    const auto from = place(before);
    if (!from)
        return tl::unexpected(from.error());
    const auto to = place(after);
    if (!to)
        return tl::unexpected(to.error());
    if (*from == *to)
        return Places();
    if (isTaken(*to) && !isSameFile(*from, *to))
        return failure(*to, EEXIST);
    return Places{*from, *to};
}

SongFiles::Result SongFiles::checkMove(const Record& before, const Record& after) const
{
    return placesOfMove(before, after).map([](const Places&) {});
}

SongFiles::Result SongFiles::move(const Record& before, const Record& after) const
{
    const auto places = placesOfMove(before, after);
    if (!places)
        return tl::unexpected(places.error());
    if (places->from.isEmpty())
        return {};
    if (auto made = makeFolderOf(places->to); !made)
        return made;
    auto moved = moveFile(places->from, places->to);
    removeEmptyFolders(moved ? places->from : places->to);
    return moved;
}

/// From the folder of a file that is not there up to the artist's.
void SongFiles::removeEmptyFolders(const QString& lost) const
{
    QString folder = QFileInfo(lost).path();
    while (const auto inside = pathInMusicFolder(paths_.musicFolder(), folder)) {
        if (::rmdir(QFile::encodeName(*inside).constData()) != 0)
            break; // something is in it
        folder = QFileInfo(*inside).path();
    }
}

} // namespace zib
