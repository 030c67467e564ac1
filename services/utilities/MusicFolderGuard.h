// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <tl/expected.hpp>

namespace zib {

/// The wall around the music folder. Names of songs come from the web and from tags and can hold slashes,
/// "..", or thousands of characters, so whatever creates, writes, moves or removes a file or folder by a
/// song's path asks here first, and uses the path that it gets.
///
/// @param musicFolder absolute; it need not exist yet, and may be a link or lie behind one.
/// @return the path with the links before its last component resolved, below the resolved music folder; or,
///         for people, why there can be no such file: it would lie outside of the folder, also by way of a
///         link inside, or be the folder itself, or has a name that the file system cannot keep. Whether the
///         path is free is another matter. Any thread.
tl::expected<QString, QString> pathInMusicFolder(const QString& musicFolder, const QString& path);

} // namespace zib
