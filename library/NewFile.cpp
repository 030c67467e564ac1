// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/NewFile.h"

#include <atomic>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zib {
namespace {

constexpr mode_t readableByAll = 0666; // less what the user masks
constexpr mode_t accessibleByAll = 0777;

QByteArray folderOf(const QByteArray& path)
{
    return path.left(path.lastIndexOf('/') + 1);
}

bool exists(const QByteArray& path)
{
    struct stat status {};
    return ::lstat(path.constData(), &status) == 0;
}

} // namespace

NewFile::NewFile(const QByteArray& path, const QByteArray& workFolder)
    : path_(path)
    , file_(open(workFolder))
{
}

NewFile::~NewFile()
{
    if (!temporary_.isEmpty())
        ::unlink(temporary_.constData());
}

int NewFile::open(const QByteArray& workFolder)
{
    const int nameless = ::open(folderOf(path_).constData(), O_WRONLY | O_TMPFILE | O_CLOEXEC, readableByAll);
    if (nameless >= 0)
        return nameless;
    // Sticks with a simple file system and folders on the network cannot. Downloads and imports may write at
    // the same time.
    static std::atomic<int> number = 0;
    ::mkdir(workFolder.constData(), accessibleByAll);
    temporary_ = workFolder + '/' + QByteArray::number(++number);
    return ::open(temporary_.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW,
                  readableByAll);
}

bool NewFile::giveName() const
{
    if (!temporary_.isEmpty())
        return renameWithoutReplacing(temporary_, path_);
    const QByteArray self = "/proc/self/fd/" + QByteArray::number(file_.descriptor());
    return ::linkat(AT_FDCWD, self.constData(), AT_FDCWD, path_.constData(), AT_SYMLINK_FOLLOW) == 0;
}

bool NewFile::commit()
{
    if (!file_.sync() || !file_.check(giveName()))
        return false;
    temporary_.clear();
    return file_.check(WrittenFile::syncFolder(folderOf(path_)));
}

bool NewFile::renameWithoutReplacing(const QByteArray& from, const QByteArray& to)
{
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // This file system cannot be asked for both at once.
    if (exists(to)) {
        errno = EEXIST;
        return false;
    }
    return ::rename(from.constData(), to.constData()) == 0;
}

} // namespace zib
