// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SourceTypes.h"
#include "services/RVPlaylistDownloader.h"

#include <QString>

namespace zib {

/// Whether such a source is one of several lists: a recent search or a playlist.
inline bool isListSource(SourceType source)
{
    return source == SourceType::RecentSearches || source == SourceType::Playlists;
}

/// The kind tag of a recent search's row.
inline QString kindTagOfSearch(qint64 kind)
{
    switch (kind) {
    case RVPlaylistDownloader::Artist:
        return QStringLiteral("artist");
    case RVPlaylistDownloader::SimilarArtists:
        return QStringLiteral("artistradio");
    default:
        return QStringLiteral("tag");
    }
}

} // namespace zib
