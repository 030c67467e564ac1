// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/AlbumCatalogue.h"
#include "catalogue/HttpMessage.h"

namespace zib {

/// The requests /ws/1/release/: when, where and by whom an album was published, and its songs. Usable on any
/// thread.
class ReleaseService {
  public:
    ReleaseService(const MusicCatalogue& catalogue, const AlbumCatalogue& albums)
        : catalogue_(catalogue)
        , albums_(albums)
    {
    }

    /// @param id what follows "/ws/1/release/" in the path; when it is empty, artist and title are parameters
    [[nodiscard]] HttpReply answer(const QString& id, const HttpRequest& request) const;

  private:
    [[nodiscard]] std::optional<CatalogueAlbum> albumAsked(const QString& id,
                                                           const HttpRequest& request) const;

    const MusicCatalogue& catalogue_;
    const AlbumCatalogue& albums_;
};

} // namespace zib
