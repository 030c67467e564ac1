// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace zib {

struct SimilarArtist {
    QString artist; ///< the name
    QString url;    ///< address of a picture
};

/// What the music-information service knows of an artist.
struct ArtistInfo {
    QString name;
    QString bio; ///< HTML as the service sends it
    QList<SimilarArtist> similar;
};

/// Takes what the reply says into what is known already. A reply that says nothing, or is none, is no
/// failure.
void readArtistInfoReply(const QByteArray& reply, ArtistInfo& info);

} // namespace zib
