// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

#include <QDBusObjectPath>
#include <QVariantMap>

namespace zib {

/// A song as the desktop's remote controls know it (MPRIS metadata), with what is known of it; empty without
/// a song.
/// @param durationSeconds as measured; 0 takes what the song's record says.
/// @param artAddress of its cover; empty for none.
[[nodiscard]] QVariantMap songMetadata(const Record& track, int durationSeconds, const QString& artAddress);

/// What such metadata tell of the song.
/// @{
[[nodiscard]] QDBusObjectPath trackIdOf(const QVariantMap& metadata);
/// Microseconds; 0 while unknown.
[[nodiscard]] qint64 lengthOf(const QVariantMap& metadata);
/// @}

} // namespace zib
