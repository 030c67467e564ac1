// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/DemoCatalogue.h"

#include <QHash>

namespace zib::demo {

struct AlbumTexts {
    QDate released;
    MarkedText about;
};

/// What is told of an artist, read from the files in texts/.
struct ArtistTexts {
    int members = 1;
    QString label;
    QString country;  ///< two letters
    QString portrait; ///< two sentences, without marks
    MarkedText biography;
    QHash<QString, AlbumTexts> albums; ///< by title
    QHash<QString, QString> lyrics;    ///< by the song's title
    QList<DemoArticle> articles;       ///< newest first
};

/// By the artist's name; the same object always.
const QHash<QString, ArtistTexts>& artistTexts();

/// One sentence on a song's place in its album.
/// @param number from 1
QString aboutTrack(const QString& title, int number, int tracks, const QString& album, int year);

} // namespace zib::demo
