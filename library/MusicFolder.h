// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <tl/expected.hpp>

namespace zib {

class UserDefaults;

/// The music folder while none was chosen: ~/Music/Zib/Zib Music.
QString defaultMusicFolder();

/// Moves the music folder into the picked one, as "Zib Music" there, and stores the new place. Works across
/// disks. A music folder that does not exist yet has nothing to move.
/// @return a localized description when the move failed; then all is as it was.
tl::expected<void, QString> changeMusicFolder(UserDefaults& defaults, const QString& pickedFolder);

/// Moves the music folder back to its default place and stores that, even when the move fails.
/// @return whether the music moved.
bool resetMusicFolder(UserDefaults& defaults);

} // namespace zib
