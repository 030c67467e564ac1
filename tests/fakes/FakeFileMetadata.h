// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/FileMetadata.h"

#include <QFileInfo>
#include <QHash>

namespace zib {

/// Folders are those on disk; a file has the attributes that the test gave its name, else none.
class FakeFileMetadata : public FileMetadata {
  public:
    QList<FileAttributes> attributes(const QStringList& paths) override
    {
        QList<FileAttributes> result;
        for (const QString& path : paths) {
            const QFileInfo info(path);
            FileAttributes attributes = files.value(info.fileName());
            if (info.isDir())
                attributes.kind = folderKind;
            attributes.displayName = info.completeBaseName();
            result.append(attributes);
        }
        return result;
    }
    void release() override {}

    /// A sound file of that title, by its file name.
    void addSound(const QString& fileName, const QString& title)
    {
        FileAttributes attributes;
        attributes.mediaTypes = {soundMedia};
        attributes.title = title;
        files.insert(fileName, attributes);
    }

    QHash<QString, FileAttributes> files; ///< by file name; only changed while nobody asks
};

} // namespace zib
