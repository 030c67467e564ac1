// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/VorbisSetup.h"

#include <bit>
#include <cstdint>

namespace zib {

namespace {

constexpr std::size_t kMarkBits = 7 * 8; // that begins the header
constexpr std::size_t kCountBits = 6;
constexpr std::size_t kModeBits = 1 + 16 + 16 + 8; // long block, window, transform, mapping
constexpr std::size_t kMostModes = 64;
constexpr std::uint32_t kMostMappings = 64;

/// Bits of a number, the lowest first, as they stand in the bytes.
std::uint32_t bitsAt(std::span<const std::byte> bytes, std::size_t place, std::size_t count)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const auto byte = std::to_integer<unsigned>(bytes[(place + i) / 8]);
        value |= (byte >> (place + i) % 8 & 1U) << i;
    }
    return value;
}

} // namespace

VorbisModes::VorbisModes(std::size_t count, std::bitset<64> longBlocks)
    : mask_((1U << std::bit_width(count - 1)) - 1)
    , longBlocks_(longBlocks)
{
}

bool VorbisModes::isLong(unsigned modeBits) const
{
    return longBlocks_[modeBits & mask_];
}

VorbisModes vorbisModes(std::span<const std::byte> setup)
{
    std::size_t place = setup.size() * 8;
    while (place > kMarkBits && bitsAt(setup, place - 1, 1) == 0)
        --place;                        // what fills the last byte
    place -= place > kMarkBits ? 1 : 0; // the bit that ends the header

    VorbisModes modes;
    std::bitset<64> longBlocks; // the last mode that was read is the first
    for (std::size_t count = 1; count <= kMostModes; ++count) {
        if (place < kMarkBits + kCountBits + kModeBits)
            break;
        place -= kModeBits;
        const bool zeros = bitsAt(setup, place + 1, 16) == 0 && bitsAt(setup, place + 17, 16) == 0;
        if (!zeros || bitsAt(setup, place + 33, 8) >= kMostMappings)
            break;
        longBlocks = longBlocks << 1 | std::bitset<64>(bitsAt(setup, place, 1));
        if (bitsAt(setup, place - kCountBits, kCountBits) + 1 == count)
            modes = VorbisModes(count, longBlocks);
    }
    return modes;
}

} // namespace zib
