// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: an archive of a shared playlist that crashes, hangs, unfolds without end, or comes back as another
// when what was read of it is archived again.
#include "records/KeyedArchive.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto value = zib::unarchivedValue(QByteArrayView(data, qsizetype(size)));
    if (!value)
        return 0;
    const QByteArray archive = zib::archivedData(*value);
    if (archive.isNull()) // it held a missing value
        return 0;
    const auto again = zib::unarchivedValue(archive);
    if (again &&
        zib::archivedData(*again) != archive) // it is none when arrays that were shared no longer are
        std::abort();
    return 0;
}
