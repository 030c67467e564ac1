// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/FileMetadata.h"

#include <QByteArray>

namespace TagLib {
class IOStream;
} // namespace TagLib

namespace zib {

/// The text as one line of bounded length that any program, and any property list, can hold.
QString singleLine(QString text);

/// The attributes that the content of a sound file tells; no media types when it is none. Reads in this
/// process: a crafted file can make the tag library take gigabytes, never end, or crash, so this is for a
/// process that may be lost.
FileAttributes attributesOfSound(TagLib::IOStream& stream);

/// The same for a file on disk, which must be a regular one.
FileAttributes attributesOfSoundFile(const QByteArray& path);

/// One line of text and back. The other side is not trusted: what is no such line gives no attributes, and
/// every text is cut and cleaned again.
QByteArray encodedAttributes(const FileAttributes& attributes);
FileAttributes decodedAttributes(const QByteArray& line);

} // namespace zib
