// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SongIndex.h"
#include "catalogue/XmlReply.h"

#include <optional>

namespace zib {

/// What all artist requests have in common.

/// Why a request is answered with an error, if it lacks a key or asks for another format.
std::optional<HttpReply> artistRefusal(const HttpRequest& request);

HttpReply artistRefusal(ServiceStatus status, const char* message);

/// An element for the artist with its name, id, and those of its scores that are among the buckets.
pugi::xml_node addArtist(pugi::xml_node parent, const Artist& artist, const QStringList& buckets);

} // namespace zib
