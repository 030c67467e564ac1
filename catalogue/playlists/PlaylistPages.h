// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/HttpMessage.h"
#include "catalogue/playlists/PlaylistStore.h"

namespace zib {

/// The public address of a publication's page.
/// @param base what the service's addresses begin with, "http://HOST"
QString playlistAddress(const QString& base, const PublishedPlaylist& playlist);

/// The page of one playlist: what it is, its songs, and a player that streams them one after another.
HttpReply playlistPage(const QString& base, const PublishedPlaylist& playlist,
                       const QList<PlaylistSong>& songs);

/// A page of the list of public playlists, with a search.
/// @param playlists as PlaylistStore::list() gives them
HttpReply playlistListPage(const QString& base, const ListQuery& query,
                           const QList<PublishedPlaylist>& playlists);

/// A page that says in one sentence why there is nothing else to see.
HttpReply playlistMessagePage(int status, const QString& title, const QString& text);

/// A file that the pages use, by its name; nothing when there is none.
std::optional<HttpReply> playlistPageFile(const QString& name, const HttpRequest& request);

} // namespace zib
