// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/playlists/PlaylistSongs.h"

namespace zib {

/// Reads published archives in processes of their own with bounded memory and time. What is read of an
/// archive makes record keys, which a process keeps as long as it lives, so that strangers could fill its
/// memory.
class PlaylistReading {
  public:
    /// @param program the path of this program, which is started as "PROGRAM read-playlist"; with an empty
    /// one archives are read in this process.
    explicit PlaylistReading(QString program)
        : program_(std::move(program))
    {
    }

    /// songsOfPlaylist(). Any thread; takes some milliseconds.
    [[nodiscard]] tl::expected<QList<PlaylistSong>, QString> songs(const QByteArray& archive) const;

    /// The process's own side: the archive on standard input, its songs as JSON on standard output; or what
    /// to tell the publisher, after which it fails.
    static int run();

  private:
    const QString program_;
};

} // namespace zib
