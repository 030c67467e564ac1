// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace TagLib {
class File;
} // namespace TagLib

namespace zib {

/// The picture of the cover in a file's tags: the front cover, else the first picture. None when there is
/// none, or more bytes than the tag port allows, or where this kind of tags is not known to keep any.
QByteArray coverOf(TagLib::File& file);

/// Puts a PNG or JPEG file in its place, or, an empty one, removes it; other pictures stay. To be saved then.
void replaceCover(TagLib::File& file, const QByteArray& picture);

} // namespace zib
