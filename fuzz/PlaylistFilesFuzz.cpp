// SPDX-License-Identifier: GPL-3.0-or-later
// Playlist files from anywhere: the first byte chooses the format. What was read must survive being written.
#include "library/playlists/PlaylistFile.h"

#include <QUrl>

#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace zib;
    if (size == 0)
        return 0;
    const auto format = PlaylistFormat(data[0] % 3);
    const QString folder = QStringLiteral("/lists");
    const PlaylistPlace place{folder, [](const QString& path) { return path.size() % 2 == 0; }};
    const QByteArray bytes(reinterpret_cast<const char*>(data) + 1, qsizetype(size) - 1);
    const auto list = readPlaylist(bytes, format, place);
    if (!list) {
        require(!list.error().isEmpty());
        return 0;
    }
    const PlaylistPlace sure{folder, [](const QString&) { return true; }};
    for (const PlaylistEntry& entry : list->entries) {
        require(entry.durationSeconds >= 0);
        const QUrl url(entry.location);
        require(entry.location.isEmpty() || url.isLocalFile() || url.scheme() == QLatin1String("http") ||
                url.scheme() == QLatin1String("https"));
        for (const QString& text : {entry.id, entry.name, entry.artist, entry.album, entry.location})
            require(!text.contains(QLatin1Char('\n')) && !text.contains(QChar(u'\0')));
    }
    for (const auto target : {PlaylistFormat::M3u8, PlaylistFormat::Xspf, PlaylistFormat::Jspf}) {
        const auto again = readPlaylist(writePlaylist(*list, target, folder), target, sure);
        require(again.has_value());
        if (target == PlaylistFormat::M3u8) // has no songs without a location
            continue;
        require(again->entries.size() == list->entries.size());
        for (qsizetype i = 0; i < list->entries.size(); ++i)
            require(again->entries[i].location == list->entries[i].location);
    }
    return 0;
}
