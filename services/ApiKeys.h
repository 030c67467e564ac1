// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>

namespace zib {

/// The application's own key at the song-search service.
inline constexpr QLatin1String songSearchApiKey("QZ7KX2MB9TNV4WLRE");

} // namespace zib
