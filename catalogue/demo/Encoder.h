// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Artists.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <cstdint>
#include <vector>

namespace zib::demo {

/// Writes the samples (44.1 kHz, two channels interleaved) to `path` in the plan's format, with its tags and,
/// where the format has a place for it, the JPEG picture `cover` (`coverSize` pixels wide and high). False
/// when the file could not be written or `stop` became true; what lies at `path` is then worthless.
bool encode(const TrackPlan& plan, const std::vector<std::int16_t>& samples, const QByteArray& cover,
            int coverSize, const QString& path, const std::atomic<bool>& stop);

} // namespace zib::demo
