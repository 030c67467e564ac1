// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/HttpMessage.h"
#include "catalogue/MusicCatalogue.h"

namespace zib {

/// The request SearchLyricDirect: what is sung in a song. Usable on any thread.
class LyricsService {
  public:
    explicit LyricsService(const MusicCatalogue& catalogue)
        : catalogue_(catalogue)
    {
    }

    /// Of a song that is unknown or without words the reply names nothing, which clients refuse.
    [[nodiscard]] HttpReply answer(const HttpRequest& request) const;

  private:
    const MusicCatalogue& catalogue_;
};

} // namespace zib
