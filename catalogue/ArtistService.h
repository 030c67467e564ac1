// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/MusicCatalogue.h"
#include "catalogue/XmlReply.h"

namespace zib {

/// The artist requests: artist/search by name or by description, artist/similar, artist/top_hottt. Usable on
/// any thread.
class ArtistService {
  public:
    explicit ArtistService(const MusicCatalogue& catalogue);

    /// @param method what follows "/api/v4/artist/" in the path
    /// @return nothing when there is no such method
    [[nodiscard]] std::optional<HttpReply> answer(const QString& method, const HttpRequest& request) const;

  private:
    [[nodiscard]] HttpReply listed(const QList<Artist>& artists, const HttpRequest& request) const;
    void addSongs(pugi::xml_node element, const Artist& artist, int most, const HttpRequest& request) const;

    const MusicCatalogue& catalogue_;
};

} // namespace zib
