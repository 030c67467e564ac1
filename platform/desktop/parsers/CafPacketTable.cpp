// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/CafPacketTable.h"

#include "platform/desktop/parsers/ByteReader.h"
#include "platform/desktop/parsers/SizedPackets.h"

namespace zib {

void CafPacketTable::readHeader(std::span<const std::byte> header)
{
    count_ = static_cast<std::int64_t>(bigEndian64(header));
}

AudioStatus CafPacketTable::read(std::span<const std::byte> bytes)
{
    constexpr std::size_t kMostPackets = std::size_t{4} * 1024 * 1024; // a day of AAC
    constexpr std::byte kMore{0x80};
    for (const std::byte byte : bytes) {
        if (std::ssize(sizes_) >= count_)
            break; // room for a longer table
        number_ = number_ << 7 | std::to_integer<std::uint32_t>(byte & ~kMore);
        if (number_ > SizedPackets::kLargestPacket || sizes_.size() >= kMostPackets)
            return kInvalidFile;
        if ((byte & kMore) == std::byte{0}) {
            sizes_.push_back(number_);
            number_ = 0;
        }
    }
    return kAudioOk;
}

} // namespace zib
