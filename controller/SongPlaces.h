// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

namespace zib {

/// Whether the song is a file on this machine.
inline bool isLocalFile(const Record& track)
{
    return track.string(keys::Location).startsWith(QLatin1String("file://"));
}

/// Whether the song is on the web and no copy of it is here: it plays while the machine is online only.
inline bool needsConnection(const Record& track)
{
    return track.string(keys::Location).startsWith(QLatin1String("http://")) &&
           !track.boolean(keys::Downloaded);
}

} // namespace zib
