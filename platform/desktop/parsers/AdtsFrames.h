// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/AacConfig.h"
#include "platform/desktop/parsers/AdtsHeader.h"
#include "platform/desktop/parsers/FrameCoding.h"

namespace zib {

/// The frames of AAC in ADTS. The packets are the raw data blocks alone; what the headers tell goes into the
/// magic cookie. HE-AAC is not told by the headers: decoders find it in the blocks.
class AdtsFrames : public FrameCoding {
  public:
    [[nodiscard]] std::optional<Header> headerAt(std::span<const std::byte> bytes) const override;
    void take(const Frame& frame, std::vector<AudioPacketDescription>& packets) override;
    [[nodiscard]] AudioFileProperties properties() const override;
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) const override;

  private:
    [[nodiscard]] bool configure(const AdtsHeader& header, std::span<const std::byte> audio);
    std::uint32_t takeBlocks(const AdtsHeader& header, const Frame& frame,
                             std::vector<AudioPacketDescription>& packets) const;
    void note(const Frame& frame, std::uint32_t packets);

    std::optional<AacConfig> config_; ///< known once a packet was found
    std::vector<std::byte> cookie_;
    std::uint32_t bound_ = 0;

    std::int64_t dataOffset_ = 0;
    std::vector<std::uint32_t> places_; ///< of the packets from the first on without a gap, from dataOffset_
    std::optional<std::uint32_t> commonSize_; ///< of all frames so far, where they have one
    std::uint64_t packetsSeen_ = 0;
    std::uint64_t bytesSeen_ = 0; ///< of their frames
};

} // namespace zib
