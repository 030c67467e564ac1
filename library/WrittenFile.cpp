// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/WrittenFile.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace zib {

WrittenFile::WrittenFile(int descriptor)
    : file_(descriptor)
{
    check(file_ >= 0);
}

WrittenFile::~WrittenFile()
{
    if (file_ >= 0)
        ::close(file_);
}

bool WrittenFile::check(bool succeeded)
{
    if (!succeeded && error_ == 0)
        error_ = errno;
    return succeeded;
}

void WrittenFile::write(std::string_view bytes)
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
    // The disk begins while more is being written, so that sync() has less to wait for.
    constexpr off_t stretch = off_t(4) << 20U;
    if (written_ - started_ >= stretch) {
        ::sync_file_range(file_, started_, written_ - started_, SYNC_FILE_RANGE_WRITE);
        started_ = written_;
    }
}

bool WrittenFile::sync()
{
    return error_ == 0 && check(::fsync(file_) == 0);
}

bool WrittenFile::syncFolder(const QByteArray& folder)
{
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const bool synced = ::fsync(descriptor) == 0 || errno == EINVAL; // some file systems cannot, and need not
    ::close(descriptor);
    return synced;
}

} // namespace zib
