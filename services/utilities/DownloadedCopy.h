// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

#include <QString>

namespace zib {

class SongPaths;

/// The file below the artist's folder that a download of the song has the name of, whatever the album and the
/// letters' case; the first as the file system lists them, or none. Any thread.
QString downloadedCopy(const SongPaths& paths, const Record& track);

} // namespace zib
