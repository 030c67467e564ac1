// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

#include <QList>
#include <QStringList>

namespace zib {

/// At most five of the distinct values that the tracks have under the key, those least played first. Of more
/// than five the scramble picks five.
/// @param scramble any number that differs from time to time.
QStringList boostedArtists(RecordKey key, const QList<Record>& tracks, qint64 scramble);

/// Picks four values from the front of the scrambled list and the one at its very end. Five values or fewer
/// stay as they are.
QStringList fiveOf(QStringList values, qint64 scramble);

} // namespace zib
