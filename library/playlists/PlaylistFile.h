// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <tl/expected.hpp>

#include <functional>
#include <optional>

namespace zib {

/// A song as a playlist file names it. What is not known is empty or 0.
struct PlaylistEntry {
    QString id; ///< of our own library
    QString name;
    QString artist;
    QString album;
    qint64 durationSeconds = 0;
    QString location; ///< an address of http, https or a local file, escaped

    friend bool operator==(const PlaylistEntry&, const PlaylistEntry&) = default;
};

struct PlaylistDocument {
    QString title;
    QList<PlaylistEntry> entries;

    friend bool operator==(const PlaylistDocument&, const PlaylistDocument&) = default;
};

enum class PlaylistFormat { M3u8, Xspf, Jspf };

/// What is read, in bytes and songs, and no more.
/// @{
inline constexpr qint64 largestPlaylistFile = qint64(16) << 20;
inline constexpr qsizetype mostPlaylistEntries = 100'000;
/// @}

/// By the file's extension: m3u8 or m3u, xspf, jspf. Nothing for any other.
std::optional<PlaylistFormat> playlistFormatOf(const QString& path);

/// What relative locations in a playlist file are resolved with.
struct PlaylistPlace {
    QString folder; ///< where the file lies, absolute
    /// Whether there is such a file: names hold what looks like an escape, and escapes stand where there
    /// should be none, so only the disk knows which path is meant.
    std::function<bool(const QString& path)> fileExists;
};

/// Reads a playlist file's bytes, which may come from anybody. Locations of other kinds than http, https and
/// local files are left out, control characters in names become blanks. An error is a text for people. Any
/// thread.
tl::expected<PlaylistDocument, QString> readPlaylist(const QByteArray& bytes, PlaylistFormat format,
                                                     const PlaylistPlace& place);

/// The bytes of a playlist file that lies in that folder, UTF-8. M3U8 has no room for songs without a
/// location, and files below the folder are named relative to it there. Any thread.
QByteArray writePlaylist(const PlaylistDocument& playlist, PlaylistFormat format, const QString& folder);

} // namespace zib
