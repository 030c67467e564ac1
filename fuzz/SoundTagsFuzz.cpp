// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a file whose tags yield text that a property list cannot hold, or that are not the same after their
// way between two processes. What breaks the tag library itself breaks this too, and costs the program one
// process.
#include "platform/desktop/metadata/SoundTags.h"

#include <taglib/tbytevectorstream.h>

#include <cstdint>
#include <cstdlib>
#include <exception>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    TagLib::ByteVectorStream stream(
        TagLib::ByteVector(reinterpret_cast<const char*>(data), static_cast<unsigned>(size)));
    zib::FileAttributes attributes;
    try {
        attributes = zib::attributesOfSound(stream);
    } catch (const std::exception&) {
        return 0; // as zib-metadata does
    }
    const QByteArray line = zib::encodedAttributes(attributes);
    const bool oneLine = line.indexOf('\n') == line.size() - 1;
    const bool plainText = zib::singleLine(attributes.title) == attributes.title;
    const zib::FileAttributes decoded = zib::decodedAttributes(line);
    if (!oneLine || !plainText || decoded.title != attributes.title ||
        decoded.authors != attributes.authors || decoded.mediaTypes != attributes.mediaTypes ||
        decoded.recordingYear != attributes.recordingYear)
        std::abort();
    return 0;
}
