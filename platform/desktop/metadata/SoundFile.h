// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <taglib/audioproperties.h>

#include <memory>
#include <string_view>

namespace TagLib {
class File;
class IOStream;
} // namespace TagLib

namespace zib {

/// The tag library's view of a file, chosen by what the bytes say and not by the file's name: a file in the
/// music folder is called .mp3 whatever it holds. @param stream outlives the result.
/// @return none for what no tagged sound file begins with.
std::unique_ptr<TagLib::File> openSoundFile(TagLib::IOStream& stream,
                                            TagLib::AudioProperties::ReadStyle style);

/// Whether bytes begin as a sound file of a kind that has no tags to read: an ADTS stream, a CAF file.
bool beginsAsUntaggedSound(std::string_view start);

/// The first bytes of the stream.
std::string_view startOf(TagLib::IOStream& stream, char (&buffer)[64]);

} // namespace zib
