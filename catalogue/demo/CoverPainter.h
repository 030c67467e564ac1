// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>

#include <cstdint>

namespace zib::demo {

constexpr int coverSize = 600; ///< pixels, wide and high

/// An abstract picture in the colours of the first tags, as a JPEG file; needs no display, any thread.
QByteArray paintCover(const QStringList& tags, std::uint64_t seed);

} // namespace zib::demo
