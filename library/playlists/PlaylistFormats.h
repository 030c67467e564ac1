// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/playlists/PlaylistFile.h"

// The three formats, and what they share; for PlaylistFile.cpp.
namespace zib::playlists {

using Result = tl::expected<PlaylistDocument, QString>;

Result readM3u8(const QByteArray& bytes, const PlaylistPlace& place);
Result readXspf(const QByteArray& bytes, const PlaylistPlace& place);
Result readJspf(const QByteArray& bytes, const PlaylistPlace& place);
QByteArray writeM3u8(const PlaylistDocument& playlist, const QString& folder);
QByteArray writeXspf(const PlaylistDocument& playlist);
QByteArray writeJspf(const PlaylistDocument& playlist);

/// One line without control characters or what XML cannot hold, and not longer than a name can be.
QString plainText(QStringView text);
/// The seconds of a length in milliseconds; 0 for what no song's length can be.
qint64 secondsOf(qint64 milliseconds);

/// The address of what stands in a playlist; empty for what is no file and no web address.
/// @{
QString addressOfUri(const QString& uri, const PlaylistPlace& place);
QString addressOfPath(const QString& pathOrUrl, const PlaylistPlace& place);
/// @}

/// A location as it is written; empty for what no reader takes, such as one of several lines.
QString writtenLocation(const QString& location);

/// Identifiers of our own songs, as XSPF and JSPF hold them.
/// @{
QString identifierOf(const QString& id);
QString idOf(const QString& identifier); ///< empty for any other
/// @}

QString tooManySongs();

} // namespace zib::playlists
