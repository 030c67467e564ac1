// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/ArtistInfoReply.h"
#include "services/ProfileReply.h"
#include "services/ReleaseReply.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

// The pieces that pages are filled with: pure functions from values to HTML. Values go in as they are.
namespace zib {

/// The block that stands where there is nothing to show.
QString sorryBlock(const QString& message);

/// The first tags as links to searches, as many as fit in the row; if there are any, followed by that one
/// more.
QString tagPills(const QStringList& tags, const QString& comboPill);
/// The search for all tags at once.
/// @{
QString artistComboPill();
QString songComboPill();
/// @}

/// The biography whole, with a link to less of it.
QString fullBio(const QString& bio);
/// Its beginning with a link to more of it, or all of it when it is short.
QString shortBio(const QString& bio);
/// The links as one paragraph, each after the other; empty without any.
QString artistLinks(const QList<ArtistLink>& links);
/// At most eight.
QString similarArtistTiles(const QList<SimilarArtist>& similar);

/// A row for each, counted from 1.
QString trackRows(const QList<ReleaseTrack>& tracklist);

/// A player for the first video that has the track's name in its title and can be embedded; or nothing.
QString embeddedVideo(const QList<WebVideo>& videos, const QString& track);
QString lyricsBlock(const QString& track, const QString& lyrics);

/// The first of the images, that many, and a link to more when more remain.
QString imageTiles(const QStringList& images, qsizetype count);

QString articleItems(const QList<WebArticle>& articles);
QString videoItems(const QList<WebVideo>& videos);

/// "Source: " and the links, each a label and an address.
QString footer(const QList<std::pair<QString, QString>>& sources);

} // namespace zib
