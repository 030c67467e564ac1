// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/AtomicFile.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace zib {
namespace {

constexpr mode_t readableByAll = 0666; // less what the user masks

QByteArray folderOf(const QByteArray& path)
{
    return path.left(path.lastIndexOf('/') + 1);
}

} // namespace

AtomicFile::AtomicFile(const QString& path)
{
    const QFileInfo info(path);
    path_ = QFile::encodeName(info.exists() ? info.canonicalFilePath() : info.absoluteFilePath());
    temporary_ = folderOf(path_) + '.' + path_.mid(folderOf(path_).size()) + ".new";
    file_ =
        ::open(temporary_.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, readableByAll);
    check(file_ >= 0);
}

AtomicFile::~AtomicFile()
{
    if (file_ >= 0)
        ::close(file_);
    if (!committed_ && file_ >= 0)
        ::unlink(temporary_.constData());
}

bool AtomicFile::check(bool succeeded)
{
    if (!succeeded && error_ == 0)
        error_ = errno;
    return succeeded;
}

void AtomicFile::write(std::string_view bytes)
{
    while (error_ == 0 && !bytes.empty()) {
        const ssize_t written = ::write(file_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (!check(written >= 0))
            return;
        bytes.remove_prefix(static_cast<std::size_t>(written));
        written_ += written;
    }
    // The disk begins while more is being written, so that commit() has less to wait for.
    constexpr off_t stretch = off_t(4) << 20U;
    if (written_ - started_ >= stretch) {
        ::sync_file_range(file_, started_, written_ - started_, SYNC_FILE_RANGE_WRITE);
        started_ = written_;
    }
}

bool AtomicFile::commit()
{
    if (error_ != 0 || !check(::fsync(file_) == 0))
        return false;
    if (!check(::rename(temporary_.constData(), path_.constData()) == 0))
        return false;
    committed_ = true;
    return check(syncFolder());
}

/// Makes the new name itself lasting.
bool AtomicFile::syncFolder() const
{
    const int folder = ::open(folderOf(path_).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return false;
    const bool synced = ::fsync(folder) == 0 || errno == EINVAL; // some file systems cannot, and need not
    ::close(folder);
    return synced;
}

QString AtomicFile::error() const
{
    return qt_error_string(error_);
}

} // namespace zib
