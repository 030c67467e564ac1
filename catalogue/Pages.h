// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/HttpMessage.h"
#include "catalogue/MusicCatalogue.h"

namespace zib {

/// The page that says what this server is.
HttpReply frontPage(const QString& address, int artists, int songs);

/// The page of one song: what it is, and a player.
HttpReply songPage(const CatalogueSong& song);

} // namespace zib
