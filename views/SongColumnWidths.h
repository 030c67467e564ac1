// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SongColumns.h"

#include <QString>

#include <array>

namespace zib {

// How wide the columns of songs are, in device-independent pixels.

/// No column is narrower.
inline constexpr int smallestColumn = 28;

/// The columns that share the width which the others leave.
inline constexpr std::array flexibleColumns{SongColumn::Name, SongColumn::Artist, SongColumn::Album};

[[nodiscard]] bool isFlexible(SongColumn column);
/// Whether it only holds a mark, and needs no other width than the first.
[[nodiscard]] bool isFixed(SongColumn column);
/// Before the user chooses one.
/// @param title in the user's language; it has room.
[[nodiscard]] int firstWidth(SongColumn column, const QString& title);
/// Below which the last columns are given up.
/// @param width the one that the column wants
[[nodiscard]] int leastWidth(SongColumn column, int width);

} // namespace zib
