// SPDX-License-Identifier: GPL-3.0-or-later
// A request's head as anybody may send it: the first line is the target, the others are headers.
#include "catalogue/ArtistRanking.h"
#include "catalogue/HttpMessage.h"
#include "catalogue/TextMatching.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace zib;
    const QByteArray input(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto lines = input.split('\n');
    HttpHeaders headers{{"Host", "localhost"}};
    for (const auto& line : lines.mid(1)) {
        const auto colon = line.indexOf(':');
        if (colon >= 0)
            headers.emplaceBack(line.left(colon), line.mid(colon + 1));
    }
    const auto request = checkedRequest("GET", lines.first(), headers, HostPolicy::LoopbackOnly);
    if (!request)
        return 0;
    if (!request->path.startsWith(u'/') || request->path.contains(QStringLiteral("/../")))
        std::abort();
    for (const qint64 fileSize : {0, 1, 1000}) {
        const auto range = byteRange(request->range, fileSize);
        if (range.kind == ByteRange::Part &&
            (range.offset < 0 || range.length <= 0 || range.offset + range.length > fileSize))
            std::abort();
    }
    const QList<Artist> artists{
        {QStringLiteral("amber tide"), QStringLiteral("Amber Tide"), {QStringLiteral("folk")}, 0, 0},
        {QStringLiteral("bjork"), QStringLiteral("Björk"), {QStringLiteral("folk")}, 0, 0}};
    QList<BoostedName> names;
    for (const auto& [name, value] : request->query)
        names.append(BoostedName::parsed(value));
    artistsSimilar(artists, names);
    return 0;
}
