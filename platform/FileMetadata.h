// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace zib {

/// What the system knows of a file; empty, or nothing, where it does not know.
struct FileAttributes {
    QString kind;           ///< folderKind for a folder; empty for what cannot be read
    QString displayName;    ///< the file's name without its extension
    QStringList mediaTypes; ///< soundMedia among them when the file holds sound; empty for any other file
    QStringList authors;
    QString album;
    /// Of a song that does not tell its title it is the display name, so that songs without tags can be
    /// told apart.
    QString title;
    QString musicalGenre;
    std::optional<int> recordingYear;
    std::optional<double> durationSeconds;
    std::optional<int> audioTrackNumber;

    friend bool operator==(const FileAttributes&, const FileAttributes&) = default;
};

inline const QString folderKind = QStringLiteral("Folder");
inline const QString soundMedia = QStringLiteral("Sound");

/// The attributes of files on disk. Texts are single lines of bounded length without control characters. A
/// file that is broken, unreadable, or no file at all has no media types; none can harm the program. One
/// thread at a time, any thread; waits for the disk.
class FileMetadata {
  public:
    virtual ~FileMetadata() = default;
    /// The attributes of each path, in the order of the paths. Asking for many at once is the quick way.
    [[nodiscard]] virtual QList<FileAttributes> attributes(const QStringList& paths) = 0;
    /// No more questions for now: lets go of what was kept to answer them quickly.
    virtual void release() = 0;
};

} // namespace zib
