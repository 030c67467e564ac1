// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/BlockMemory.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

#include <sys/mman.h>

namespace zib {
namespace {

constexpr std::size_t regionSize = std::size_t(2)
                                   << 20U;            // and its alignment, so that a block tells its region
constexpr std::size_t largestBlock = regionSize / 16; // so little is lost at a region's end

} // namespace

struct alignas(16) BlockMemory::Region {
    std::atomic<std::uint32_t> holders{1}; // the blocks, and the memory while it is cut from

    static void release(Region* region)
    {
        if (region->holders.fetch_sub(1, std::memory_order_acq_rel) != 1)
            return;
        region->~Region();
        std::free(region);
    }
};

BlockMemory::~BlockMemory()
{
    if (region_ != nullptr)
        Region::release(region_);
}

bool BlockMemory::beginRegion()
{
    void* const memory = std::aligned_alloc(regionSize, regionSize);
    if (memory == nullptr)
        return false;
    // Not the first: a small library is not to take 2 MB. Refused where there are no such pages, and nothing
    // is lost then.
    if (region_ != nullptr) {
        ::madvise(memory, regionSize, MADV_HUGEPAGE);
        Region::release(region_);
    }
    region_ = new (memory) Region;
    free_ = static_cast<char*>(memory) + sizeof(Region);
    end_ = static_cast<char*>(memory) + regionSize;
    return true;
}

void* BlockMemory::allocate(std::size_t size)
{
    constexpr std::size_t alignment = alignof(void*);
    const std::size_t room = (size + alignment - 1) / alignment * alignment;
    if (room > largestBlock || (static_cast<std::size_t>(end_ - free_) < room && !beginRegion()))
        return nullptr;
    region_->holders.fetch_add(1, std::memory_order_relaxed);
    void* const block = free_;
    free_ += room;
    return block;
}

void BlockMemory::release(void* block)
{
    const auto address = reinterpret_cast<std::uintptr_t>(block);
    Region::release(reinterpret_cast<Region*>(address - address % regionSize));
}

} // namespace zib
