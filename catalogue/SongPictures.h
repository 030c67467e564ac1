// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace TagLib {
class File;
}

namespace zib {

/// The longest picture that is taken out of a file or from beside one, in bytes.
constexpr qint64 largestPicture = qint64(16) << 20;

/// "image/jpeg" and the like by how the bytes begin; empty when that is no picture that browsers show.
QByteArray pictureType(const QByteArray& bytes);

/// The picture that a sound file carries, the front cover if it says which that is; empty when there is none.
/// A crafted file may bring the calling process down: see CoverProcess.
QByteArray embeddedPicture(const QByteArray& path);
/// Of a file that is open already; nullptr has none.
QByteArray embeddedPicture(TagLib::File* file);

/// The cover that lies beside a song in its folder: a picture named like one, else the folder's only one. Of
/// the topmost folder, in which anything may lie, only a picture named so. Empty when there is none.
QByteArray pictureBeside(const QByteArray& path, const QByteArray& topmostFolder);

} // namespace zib
