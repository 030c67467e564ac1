// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace zib {

/// What the music-information service knows of an album.
struct AlbumInfo {
    QString name;
    QUrl url;     ///< of the cover, large if there is a large one; empty when there is none
    QString wiki; ///< HTML as the service sends it; empty when there is none
};

/// Takes what the reply says into what is known already. A reply that says nothing, or is none, is no
/// failure.
void readAlbumInfoReply(const QByteArray& reply, AlbumInfo& info);

} // namespace zib
