// SPDX-License-Identifier: GPL-3.0-or-later
// A library file as it may be found on disk: the envelope, and the property list in it. The cipher would hide
// the list from the fuzzer, so an input is tried both as a file and as the content of one.
#include "library/LibraryEnvelope.h"
#include "library/LibraryFile.h"
#include "records/PropertyList.h"
#include "records/PropertyListWriter.h"

#include <cstdlib>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<char> file(data, data + size);
    static_cast<void>(zib::LibraryFile::parse(file));

    const QByteArrayView content(data, static_cast<qsizetype>(size));
    static_cast<void>(zib::readPropertyListWithTable(content, zib::keys::Library));
    const auto value = zib::readPropertyList(content);
    if (!value)
        return 0;
    // What was read can be written, unless a date has no form, and is read back as it was.
    const QByteArray written = zib::writePropertyList(*value);
    if (!written.isEmpty() && !zib::readPropertyList(written))
        std::abort();
    return 0;
}
