// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

#include <QString>

namespace zib {

class UserDefaults;

/// Where the file of a track is stored: MUSIC FOLDER/ARTIST/ALBUM/NAME.EXTENSION, with the music folder as
/// the settings name it at each call. Any thread.
class SongPaths {
  public:
    /// @param userDefaults outlives this object.
    explicit SongPaths(const UserDefaults& userDefaults)
        : userDefaults_(userDefaults)
    {
    }

    /// The setting "MusicFolder" with a leading "~" expanded.
    [[nodiscard]] QString musicFolder() const;
    /// The artist's folder. Each "/" in the name becomes "-"; a missing name is "Unknown Artist".
    [[nodiscard]] QString artistPath(const Record& track) const;
    /// The album's folder, likewise "Unknown Album".
    [[nodiscard]] QString basePath(const Record& track) const;
    /// The file. Its name is the track's as it stands, slashes included: it may lie deeper than basePath, or
    /// outside of it, which is why pathInMusicFolder() stands before every write. The extension is "mp3" when the track's
    /// location has any, else empty after a bare full stop.
    [[nodiscard]] QString filePath(const Record& track) const;

  private:
    const UserDefaults& userDefaults_;
};

} // namespace zib
