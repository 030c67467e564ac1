// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LargeBuffer.h"

#include <sys/mman.h>

namespace zib {

LargeBuffer::LargeBuffer(std::size_t size)
{
    constexpr std::size_t hugePage = std::size_t(2) << 20U;
    const std::size_t room = (size / hugePage + 1) * hugePage;
    bytes_.reset(static_cast<char*>(std::aligned_alloc(hugePage, room)));
    if (!bytes_)
        return;
    size_ = size;
    // Refused where the system has no such pages, and nothing is lost then.
    ::madvise(bytes_.get(), room, MADV_HUGEPAGE);
}

} // namespace zib
