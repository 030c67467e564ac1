// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/ArtistPictures.h"

namespace zib {

/// The request track.getinfo: what is known of one song. Usable on any thread.
class TrackInfoService {
  public:
    TrackInfoService(const MusicCatalogue& catalogue, const AlbumCatalogue& albums,
                     const ArtistPictures& pictures)
        : catalogue_(catalogue)
        , albums_(albums)
        , pictures_(pictures)
    {
    }

    [[nodiscard]] HttpReply answer(const HttpRequest& request) const;

  private:
    [[nodiscard]] QString description(const CatalogueSong& song, const Artist& artist,
                                      const QString& base) const;

    const MusicCatalogue& catalogue_;
    const AlbumCatalogue& albums_;
    const ArtistPictures& pictures_;
};

} // namespace zib
