// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/ArtistPictures.h"

namespace zib {

/// The request artist/profile: pictures of an artist, terms, and what was written. Usable on any thread.
class ProfileService {
  public:
    ProfileService(const MusicCatalogue& catalogue, const ArtistPictures& pictures)
        : catalogue_(catalogue)
        , pictures_(pictures)
    {
    }

    /// Of an artist whom nobody knows the profile holds the name only: a client may show what else it found
    /// out.
    [[nodiscard]] HttpReply answer(const HttpRequest& request) const;

  private:
    const MusicCatalogue& catalogue_;
    const ArtistPictures& pictures_;
};

} // namespace zib
