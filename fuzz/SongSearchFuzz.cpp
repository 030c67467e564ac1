// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a reply of the song-search service that crashes, hangs or yields a record without a place to play
// from.
#include "services/SongSearchReply.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto tracks =
        zib::tracksOfSongSearchReply(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (tracks) {
        for (const zib::Record& track : *tracks) {
            if (!track.contains(zib::keys::Location) || !track.contains(zib::keys::Artist) ||
                track.string(zib::keys::Id).size() > 16)
                std::abort();
        }
    }
    return 0;
}
