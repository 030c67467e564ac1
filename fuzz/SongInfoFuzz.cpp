// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a reply of the music-information service that crashes, hangs, or brings markup of its own into what
// is shown of it.
#include "services/SongInfoReply.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray reply(reinterpret_cast<const char*>(data), qsizetype(size));
    zib::SongInfo info;
    zib::readSongInfoReply(reply, QStringLiteral("h"), info);
    if (!info.artist || !info.album || !info.name || !info.mbid || info.artworkLarge.isEmpty() ||
        info.tags.size() > reply.size())
        std::abort();
    return 0;
}
