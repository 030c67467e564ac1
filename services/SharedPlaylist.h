// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/UrlConnection.h"
#include "records/Record.h"

namespace zib {

class UserDefaults;

/// A playlist that somebody has published.
struct SharedPlaylist {
    QString name;
    QList<Record> tracks; ///< songs of the web, with nothing but what is known of a song
};

/// Asks the playlist service for the playlist of that identifier, which goes out as it stands.
UrlRequest sharedPlaylistRequest(const UserDefaults& userDefaults, const QString& identifier);

/// Reads the service's reply: an archive in base64, percent-escaped, whose plus signs have become blanks on
/// their way. Anybody can publish anything: songs that lie on this machine, that have no identifier, and
/// fields that a song does not have from its maker are left out.
/// @return an error text for the log when it is no playlist.
tl::expected<SharedPlaylist, QString> readSharedPlaylist(QByteArrayView reply);

} // namespace zib
