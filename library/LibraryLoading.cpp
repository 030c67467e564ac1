// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibraryLoading.h"

#include <QFile>

#include <sys/stat.h>

namespace zib {

LibraryLoading::FileState LibraryLoading::stateOf(const LibraryFile& file)
{
    struct stat status {};
    if (::stat(QFile::encodeName(file.path()).constData(), &status) != 0)
        return {};
    return {qint64(status.st_ino), qint64(status.st_size), qint64(status.st_mtim.tv_sec),
            qint64(status.st_mtim.tv_nsec)};
}

LibraryLoading::LibraryLoading(const QString& path)
    : file_(path)
    , state_(stateOf(file_))
    , loading_(std::async(std::launch::async, &LibraryLoading::load, file_, stop_.get_token()))
{
}

std::optional<LibraryLoading::Result> LibraryLoading::load(const LibraryFile& file,
                                                           const std::stop_token& stop)
{
    if (!file.exists())
        return std::nullopt;
    return file.load(stop);
}

std::optional<LibraryLoading::Result> LibraryLoading::take()
{
    std::optional<Result> loaded = loading_.get();
    return stateOf(file_) == state_ ? std::move(loaded) : load(file_, {});
}

} // namespace zib
