// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zib {

/// What the song table can show; the numbers are also the rows of the source list and are stored. 3 is the
/// source list's separator and no source.
enum class SourceType : int {
    NowPlaying = 0,
    TopHot = 1,
    Recommended = 2,
    RecentSearches = 4,
    Library = 5,
    Playlists = 6,
};

/// Which of a browser source's records are shown.
enum class FilterType : int { All = 0, Downloads = 1, Imported = 2, Favorites = 3 };

} // namespace zib
