// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>

namespace zib {

/// The application's own key at the song-search service.
inline constexpr QLatin1String songSearchApiKey("QZ7KX2MB9TNV4WLRE");
/// The one at the music-information service.
inline constexpr QLatin1String musicInfoApiKey("0f1e2d3c4b5a69788796a5b4c3d2e1f0");

} // namespace zib
