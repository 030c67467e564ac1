// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FormatParser.h"

namespace zib {

/// Reads the packet table of a Core Audio file as it comes: numbers of seven bits a byte, one a packet.
class CafPacketTable {
  public:
    /// The bytes of the table that stand before its numbers.
    static constexpr std::size_t kHeaderBytes = 24;

    void readHeader(std::span<const std::byte> header);
    /// Reads some of the numbers; kInvalidFile when they are of no packets that can be played.
    AudioStatus read(std::span<const std::byte> bytes);
    /// The sizes of the packets so far.
    [[nodiscard]] std::vector<std::uint32_t> takeSizes() { return std::move(sizes_); }

  private:
    std::int64_t count_ = 0; ///< packets, as the header claims
    std::uint32_t number_ = 0;
    std::vector<std::uint32_t> sizes_;
};

} // namespace zib
