// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <stop_token>

namespace zib {

/// A file that may hold a song. Paths are bytes: a name on disk need not be valid text.
struct MusicFile {
    QByteArray path;
    QByteArray folder; ///< the music folder that it was found under
    qint64 size = 0;
    qint64 modified = 0; ///< nanoseconds since 1970
};

/// All files with the name of a song under these folders, in a settled order. Links are followed; a folder or
/// file that is reached twice counts once, so loops end. What cannot be read, hidden entries and files too
/// large for a song are left out.
QList<MusicFile> musicFiles(const QList<QByteArray>& folders, const std::stop_token& stop = {});

/// The extension of a file name in lower case when it is that of a song that can be played, else empty.
QString songExtension(const QByteArray& path);

/// The media type for such an extension.
QByteArray mediaType(const QString& extension);

} // namespace zib
