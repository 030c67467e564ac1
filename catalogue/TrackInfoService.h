// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/HttpMessage.h"
#include "catalogue/MusicCatalogue.h"
#include "catalogue/SongCovers.h"

namespace zib {

/// The request track.getinfo: what is known of one song. Usable on any thread.
class TrackInfoService {
  public:
    TrackInfoService(const MusicCatalogue& catalogue, const SongIndex& index, const SongCovers& covers);

    /// @return nothing when another method is asked for
    [[nodiscard]] std::optional<HttpReply> answer(const HttpRequest& request) const;

  private:
    [[nodiscard]] bool hasCover(const CatalogueSong& song) const;
    [[nodiscard]] QString description(const CatalogueSong& song, const Artist& artist,
                                      const QString& base) const;

    const MusicCatalogue& catalogue_;
    const SongIndex& index_;
    const SongCovers& covers_;
};

} // namespace zib
