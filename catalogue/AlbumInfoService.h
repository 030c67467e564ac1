// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/ArtistPictures.h"

namespace zib {

/// The request album.getinfo: an album's cover, description and songs. Usable on any thread.
class AlbumInfoService {
  public:
    AlbumInfoService(const MusicCatalogue& catalogue, const AlbumCatalogue& albums,
                     const ArtistPictures& pictures)
        : catalogue_(catalogue)
        , albums_(albums)
        , pictures_(pictures)
    {
    }

    [[nodiscard]] HttpReply answer(const HttpRequest& request) const;

  private:
    const MusicCatalogue& catalogue_;
    const AlbumCatalogue& albums_;
    const ArtistPictures& pictures_;
};

} // namespace zib
