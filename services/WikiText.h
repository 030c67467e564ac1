// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace zib {

/// Which of the links to the service's own pages become links within the program.
enum class WikiLinks { ToArtists, ToArtistsAndTags };

/// A text about an artist, an album or a song as it is shown: the music-information service's HTML with links
/// to its pages about artists (and tags) turned into "zib://search/artist/…" (".../tag/…"), all other tags
/// removed and line breaks as "<br>". What follows the last line break is dropped, see
/// stringByReplacingNewlineCharactersWithHTMLTags.
/// @param webSite HOST[:PORT][/PATH] of the service's pages for people.
QString wikiText(QString html, const QString& webSite, WikiLinks links);

} // namespace zib
