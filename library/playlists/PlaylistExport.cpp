// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/playlists/PlaylistExport.h"

#include "library/AtomicFile.h"
#include "library/RVDataManager.h"
#include "library/playlists/PlaylistMatching.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace zib {

tl::expected<void, QString> exportPlaylist(const RVDataManager& dataManager, const UserDefaults& defaults,
                                           const Record& playlist, const QString& path)
{
    const auto format = playlistFormatOf(path);
    if (!format)
        return tl::unexpected(QCoreApplication::translate(
            "PlaylistFile", "The name of the file must end in .m3u8, .xspf or .jspf."));
    PlaylistDocument document;
    document.title = playlist.string(keys::Name);
    const QStringList ids = playlist.strings(keys::Tracks);
    for (const QString& id : ids)
        if (const Record track = dataManager.library().find(id))
            document.entries.append(playlistEntryOf(track, defaults));
    const QByteArray bytes = writePlaylist(document, *format, QFileInfo(path).absolutePath());
    AtomicFile file(path);
    file.write({bytes.constData(), std::size_t(bytes.size())});
    if (!file.commit())
        return tl::unexpected(
            QCoreApplication::translate("PlaylistFile", "Writing %1 failed: %2.").arg(path, file.error()));
    return {};
}

} // namespace zib
