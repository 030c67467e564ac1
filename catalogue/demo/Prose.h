// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace zib::demo {

/// What a listener may want to know of the artist, in plain text.
QString aboutArtist(const QString& name);

/// One sentence on a song's place in its album.
/// @param number from 1
QString aboutTrack(const QString& title, int number, int tracks, const QString& album, int year);

} // namespace zib::demo
