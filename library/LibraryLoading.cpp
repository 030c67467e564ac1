// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibraryLoading.h"

namespace zib {

LibraryLoading::LibraryLoading(const QString& path)
    : file_(path)
    , loading_(std::async(std::launch::async, [file = file_]() -> std::optional<Result> {
        if (!file.exists())
            return std::nullopt;
        return file.load();
    }))
{
}

} // namespace zib
