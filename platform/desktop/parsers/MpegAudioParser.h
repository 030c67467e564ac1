// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FormatParser.h"
#include "platform/desktop/parsers/MpegInfoFrame.h"

namespace zib {

/// Frames MPEG audio. A frame is believed when another of the same stream follows it exactly; after garbage
/// the next such place is looked for. The info frame is not played.
class MpegAudioParser : public FormatParser {
  public:
    /// @param startOffset the byte of the file that the first byte fed is.
    MpegAudioParser(ParserOutput& output, std::int64_t startOffset);

    AudioStatus parse(std::span<const std::byte> bytes, bool discontinuous) override;
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) override;

  private:
    enum class Step { Forward, NeedsMore };
    enum class Verdict { Frame, NoFrame, NeedsMore };

    [[nodiscard]] std::span<const std::byte> rest() const;
    AudioStatus frameBuffer();
    Step search();
    Step takeFrame();
    [[nodiscard]] Verdict judge(std::span<const std::byte> bytes, int followers) const;
    void acceptFrame(const MpegHeader& header);
    void announce(const MpegHeader& header);
    [[nodiscard]] bool isConstantRate(const MpegHeader& header) const;
    void deliver();

    ParserOutput& output_;
    std::vector<std::byte> buffer_;
    std::size_t place_ = 0;     ///< first byte of the buffer not yet judged
    std::int64_t bufferOffset_; ///< byte of the file that begins the buffer; true until the first packet
    std::int64_t skip_ = 0;     ///< bytes of an embedded tag still to come
    std::int64_t searched_ = 0; ///< bytes passed over before the first packet
    bool locked_ = false;
    bool firstOfLock_ = false;
    bool deliveredSinceBreak_ = false;

    std::optional<MpegInfoFrame> info_;
    std::uint32_t infoFrameBytes_ = 0;
    std::optional<MpegHeader> first_; ///< of the first packet; later ones agree with it
    std::uint32_t bound_ = 0;
    bool sameRateSoFar_ = true;
    std::uint64_t packetsSeen_ = 0;
    std::uint64_t packetBytesSeen_ = 0;

    std::vector<AudioPacketDescription> batch_; ///< offsets are those in the buffer
};

} // namespace zib
