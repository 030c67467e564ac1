// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CoverProcess.h"
#include "catalogue/SongIndex.h"

#include <QCache>

#include <mutex>

namespace zib {

/// The covers of the user's own songs: the picture in the file, else the one beside it. Usable on any thread;
/// reading a file blocks for as long as that takes.
class SongCovers {
  public:
    explicit SongCovers(CoverProcess reader);

    /// A picture file of a kind that pictureType() knows; empty when the song has none.
    [[nodiscard]] QByteArray cover(const IndexedSong& song) const;

  private:
    const CoverProcess reader_;
    mutable std::mutex mutex_; ///< guards what follows
    /// By path and date. First a song is asked whether it has a cover, then for it.
    mutable QCache<QByteArray, QByteArray> recent_;
};

} // namespace zib
