// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

namespace zib {

/// Memory for the many small blocks of a library that is read: cut off one after the other from large
/// regions, which come in pages of 2 MB where the system grants them. Getting and clearing small pages one by
/// one took a third of the time of a load. A region is freed with its last block, so blocks that change one
/// by one later are better not made here. One thread at a time; release() on any.
class BlockMemory {
  public:
    BlockMemory() = default;
    ~BlockMemory();
    BlockMemory(const BlockMemory&) = delete;
    BlockMemory& operator=(const BlockMemory&) = delete;

    /// Memory for that many bytes, aligned as a pointer is; none when it is too much for a region or there is
    /// no memory.
    void* allocate(std::size_t size);
    /// Gives back what any such object's allocate() returned, also after that object's end.
    static void release(void* block);

  private:
    struct Region;

    bool beginRegion();

    Region* region_ = nullptr;
    char* free_ = nullptr;
    char* end_ = nullptr;
};

} // namespace zib
