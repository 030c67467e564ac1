// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <tl/expected.hpp>

namespace zib {

/// What a page shows of a song.
struct PlaylistSong {
    QString title;
    QString artist;
    QString album;
    int seconds = 0;  ///< 0 when it is not known
    QString location; ///< an http or https address, else empty: it cannot be played from here

    friend bool operator==(const PlaylistSong&, const PlaylistSong&) = default;
};

/// The songs of a published playlist.
/// @param archive its record as a keyed archive, from anywhere
/// @return what to tell its publisher when it is no playlist of 1 to 50 songs. Any thread, but the names of
/// an archive's keys stay in the memory of the process: see PlaylistReading.
tl::expected<QList<PlaylistSong>, QString> songsOfPlaylist(const QByteArray& archive);

/// The songs as JSON, and back.
QByteArray songsAsJson(const QList<PlaylistSong>& songs);
QList<PlaylistSong> songsFromJson(const QByteArray& json);

} // namespace zib
