// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FrameCoding.h"
#include "platform/desktop/parsers/MpegInfoFrame.h"

namespace zib {

/// The frames of MPEG audio, layers I to III. The info frame is not played.
class MpegFrames : public FrameCoding {
  public:
    [[nodiscard]] std::optional<Header> headerAt(std::span<const std::byte> bytes) const override;
    void take(const Frame& frame, std::vector<AudioPacketDescription>& packets) override;
    [[nodiscard]] AudioFileProperties properties() const override;
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) const override;

  private:
    [[nodiscard]] bool isConstantRate(const MpegHeader& header) const;
    void note(const Frame& frame);
    [[nodiscard]] std::optional<std::int64_t> placeOf(std::int64_t packet) const;

    std::optional<MpegInfoFrame> info_;
    std::uint32_t infoFrameBytes_ = 0;
    std::optional<MpegHeader> first_; ///< of the first packet
    std::uint32_t bound_ = 0;
    bool sameRateSoFar_ = true;
    std::uint64_t packetsSeen_ = 0;
    std::uint64_t packetBytesSeen_ = 0;
    std::int64_t dataOffset_ = 0;
    PlaceCurve seen_; ///< where every so manieth packet is, from the first on without a gap
};

} // namespace zib
