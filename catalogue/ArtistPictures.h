// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/AlbumCatalogue.h"
#include "catalogue/InfoReply.h"
#include "catalogue/SongCovers.h"

namespace zib {

/// Which pictures there are of artists and albums: those of the demo songs, and the covers of the user's own.
/// Usable on any thread; no picture is read or painted for an answer.
class ArtistPictures {
  public:
    ArtistPictures(const MusicCatalogue& catalogue, const AlbumCatalogue& albums, const SongIndex& index)
        : catalogue_(catalogue)
        , albums_(albums)
        , index_(index)
    {
    }

    /// The addresses of all of the artist's pictures, the best first.
    [[nodiscard]] QStringList all(const QString& artistKey, const QString& base) const;
    /// One picture of the artist; empty addresses when there is none.
    [[nodiscard]] ImageAddresses one(const QString& artistKey, const QString& base) const;

    /// The address of the song's cover; empty when it has none.
    [[nodiscard]] QString cover(const CatalogueSong& song, const QString& base) const;
    /// Of the first song of the album that has one.
    [[nodiscard]] QString cover(const CatalogueAlbum& album, const QString& base) const;

  private:
    const MusicCatalogue& catalogue_;
    const AlbumCatalogue& albums_;
    const SongIndex& index_;
};

} // namespace zib
