// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"
#include "services/WebServiceClient.h"

#include <QByteArray>
#include <QList>

#include <tl/expected.hpp>

namespace zib {

/// The track records in a reply of the song-search service, in the order of its artists and of their songs;
/// none when it names artists but no song. What a song lacks it takes over from the song before it of the
/// same artist.
tl::expected<QList<Record>, ServiceError> tracksOfSongSearchReply(const QByteArray& reply);

} // namespace zib
