// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/WebServiceClient.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <tl/expected.hpp>

namespace zib {

/// A page of a blog or of the news, or a review. Dates here and below are YYYY-MM-DD as a rule, and what the
/// service sends in any case.
struct WebArticle {
    QString title;
    QString url;
    QString summary;
    QString date;
    QString release; ///< of a review: the title of the album
};

struct WebVideo {
    QString title;
    QString site;  ///< like "youtube"
    QString image; ///< address of a picture
    QString url;
    QString date;
};

/// The artist's page at one site.
struct ArtistLink {
    QString site; ///< as people read it, like "Last FM"
    QString url;  ///< empty when the artist has none there
};

/// What the song-search service knows of an artist.
struct ArtistProfile {
    QString hotness;     ///< 0 to 1, as the service writes it
    QString familiarity; ///< likewise
    QList<WebArticle> blogs;
    QList<WebArticle> news;
    QList<WebArticle> reviews;
    QList<WebVideo> videos;
    QStringList images; ///< addresses
    QStringList tags;   ///< at most eleven
    QList<ArtistLink> links;
};

/// @return what the service reports, or that it said nothing or knows no such artist.
tl::expected<ArtistProfile, ServiceError> artistProfileOfReply(const QByteArray& reply);

} // namespace zib
