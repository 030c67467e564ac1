// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/FileMetadata.h"

#include <QSet>
#include <QStringList>

#include <deque>
#include <optional>

namespace zib {

/// The files among some paths and in the folders among them, depth first, each folder in the order of its
/// names, with their attributes. A folder that is reached twice, by way of links, is walked once, so loops
/// end. One thread at a time.
class FileWalk {
  public:
    struct File {
        QString path;
        FileAttributes attributes;
    };

    /// @param metadata outlives the walk.
    FileWalk(FileMetadata& metadata, const QStringList& paths);

    /// The next files, at most some dozens; none at the end.
    QList<File> next();

  private:
    struct Entry {
        QString path;
        std::optional<FileAttributes> attributes;
    };

    [[nodiscard]] bool lookAhead();
    std::size_t enterFolder(std::size_t place);

    FileMetadata& metadata_;
    std::deque<Entry> entries_;
    QSet<QString> entered_; // folders, with links resolved
};

} // namespace zib
