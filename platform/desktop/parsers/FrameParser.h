// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/AdtsFrames.h"
#include "platform/desktop/parsers/MpegFrames.h"

namespace zib {

/// Finds the frames of MPEG audio or of AAC in ADTS: whichever comes first. A frame is believed when another
/// of the same stream follows it exactly; after garbage the next such place is looked for.
class FrameParser : public FormatParser {
  public:
    /// @param startOffset the byte of the file that the first byte fed is.
    FrameParser(ParserOutput& output, std::int64_t startOffset);

    AudioStatus parse(std::span<const std::byte> bytes, bool discontinuous) override;
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) override;

  private:
    enum class Step { Forward, NeedsMore };
    enum class Verdict { Frame, NoFrame, NeedsMore };

    [[nodiscard]] std::span<const std::byte> rest() const;
    AudioStatus frameBuffer();
    Step search();
    Verdict recognise();
    [[nodiscard]] Verdict judge(const FrameCoding& coding, int followers) const;
    Step takeFrame();
    void announce();
    void deliver();

    ParserOutput& output_;
    std::vector<std::byte> buffer_;
    std::size_t place_ = 0;     ///< first byte of the buffer not yet judged
    std::int64_t bufferOffset_; ///< byte of the file that begins the buffer; true until a break
    bool broken_ = false;       ///< bytes of the file were left out
    std::int64_t skip_ = 0;     ///< bytes of an embedded tag still to come
    std::int64_t searched_ = 0; ///< bytes passed over before the first packet
    bool locked_ = false;
    bool firstAfterSync_ = false;
    bool breakExpected_ =
        false; ///< the next discontinuity is a new one: packets came, or a seek was answered

    MpegFrames mpeg_;
    AdtsFrames adts_;
    FrameCoding* coding_ = nullptr;       ///< of the frames last believed
    std::optional<std::uint32_t> stream_; ///< that of the first packet; later ones agree with it

    std::vector<AudioPacketDescription> batch_; ///< offsets are those in the buffer
};

} // namespace zib
