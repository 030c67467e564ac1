// SPDX-License-Identifier: GPL-3.0-or-later
// A library file as it may be found on disk: the envelope, and the property list in it. The cipher would hide
// the list from the fuzzer, so an input is tried both as a file and as the content of one.
#include "library/LibraryEnvelope.h"
#include "library/LibraryFile.h"
#include "records/PropertyList.h"
#include "records/PropertyListWriter.h"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<char> file(data, data + size);
    static_cast<void>(zib::LibraryFile::parse(file));

    const QByteArrayView content(data, static_cast<qsizetype>(size));
    const auto document = zib::readPropertyListWithTable(content, zib::keys::Library);
    // However the bytes come, they say the same.
    qsizetype done = 0;
    const zib::ByteSource drops = [&content, &done](std::span<char> target) {
        const qsizetype count = std::min({qsizetype(target.size()), content.size() - done, qsizetype(7)});
        std::copy_n(content.data() + done, count, target.data());
        done += count;
        return std::size_t(count);
    };
    const auto again = zib::readPropertyListWithTable(drops, zib::keys::Library);
    if (document.has_value() != again.has_value())
        std::abort();
    // As they are written: a number that is none does not equal itself.
    if (document && (zib::writePropertyList(document->root) != zib::writePropertyList(again->root) ||
                     document->table.size() != again->table.size()))
        std::abort();
    const auto value = zib::readPropertyList(content);
    if (!value)
        return 0;
    // What was read can be written, unless a date has no form, and is read back as it was.
    const QByteArray written = zib::writePropertyList(*value);
    if (!written.isEmpty() && !zib::readPropertyList(written))
        std::abort();
    return 0;
}
