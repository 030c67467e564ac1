// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/AlbumCatalogue.h"
#include "catalogue/HttpMessage.h"

namespace zib {

/// The page that says what this server is.
HttpReply frontPage(const QString& address, int artists, int songs);

/// The page of one song: what it is, and a player.
HttpReply songPage(const CatalogueSong& song, const QString& base);

/// The page of one artist.
/// @param biography HTML, one line a paragraph
HttpReply artistPage(const Artist& artist, const QString& biography, const QStringList& pictures,
                     const QList<CatalogueAlbum>& albums, const QString& base);

/// The page of the artists with one tag.
HttpReply tagPage(const QString& tag, const QList<Artist>& artists, const QString& base);

/// The page of something that was written about an artist.
HttpReply articlePage(const DemoArticle& article, const QString& artist, const QString& base);

/// Where that page is.
QString articleAddress(const QString& base, const DemoArticle& article);

} // namespace zib
