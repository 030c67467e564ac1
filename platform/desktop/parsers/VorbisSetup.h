// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bitset>
#include <cstddef>
#include <span>

namespace zib {

/// The modes that a packet of Vorbis audio can be in.
class VorbisModes {
  public:
    VorbisModes() = default;
    VorbisModes(std::size_t count, std::bitset<64> longBlocks);

    /// Whether the packet has a long block, by its bits after the first. Without modes all have.
    [[nodiscard]] bool isLong(unsigned modeBits) const;

  private:
    unsigned mask_ = 0; ///< of the bits that number the mode
    std::bitset<64> longBlocks_{1};
};

/// The modes that a setup header lists. They stand at its end, behind codebooks and much else that would have
/// to be decoded to get there, so they are read from the end: as many as the count before them confirms.
[[nodiscard]] VorbisModes vorbisModes(std::span<const std::byte> setup);

} // namespace zib
