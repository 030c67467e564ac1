// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/MusicCatalogue.h"

namespace zib {

/// An album as it is told to clients; empty where nothing is known.
struct CatalogueAlbum {
    QString id; ///< the release's MusicBrainz id
    QString artist;
    QString title;
    QString type;
    QString date; ///< "2011", "2011-05" or "2011-05-04"
    QString country;
    QString label;
    MarkedText about;
    QList<CatalogueSong> songs; ///< in the album's order, at least one
};

/// The albums of the demo songs and of the user's own. Usable on any thread.
class AlbumCatalogue {
  public:
    AlbumCatalogue(const MusicCatalogue& catalogue, const SongIndex& index)
        : catalogue_(catalogue)
        , index_(index)
    {
    }

    /// The artist's albums, by year. Songs that are on none make none.
    [[nodiscard]] QList<CatalogueAlbum> albums(const QString& artistKey) const;
    /// The artist's album of that title, case and accents apart.
    [[nodiscard]] std::optional<CatalogueAlbum> albumNamed(const QString& artistKey,
                                                           const QString& title) const;
    [[nodiscard]] std::optional<CatalogueAlbum> albumWithId(const QString& id) const;

  private:
    const MusicCatalogue& catalogue_;
    const SongIndex& index_;
};

} // namespace zib
