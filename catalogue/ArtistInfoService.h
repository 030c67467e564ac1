// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/ArtistPictures.h"

namespace zib {

/// The request artist.getinfo: who an artist is and who is similar. Usable on any thread.
class ArtistInfoService {
  public:
    ArtistInfoService(const MusicCatalogue& catalogue, const AlbumCatalogue& albums,
                      const ArtistPictures& pictures)
        : catalogue_(catalogue)
        , albums_(albums)
        , pictures_(pictures)
    {
    }

    [[nodiscard]] HttpReply answer(const HttpRequest& request) const;

    /// The artist's biography as HTML, one line a paragraph; of an artist of the user's own what the files
    /// tell.
    [[nodiscard]] QString biography(const Artist& artist, const QString& base) const;

  private:
    [[nodiscard]] QString knownFacts(const Artist& artist, const QString& base) const;

    const MusicCatalogue& catalogue_;
    const AlbumCatalogue& albums_;
    const ArtistPictures& pictures_;
};

} // namespace zib
