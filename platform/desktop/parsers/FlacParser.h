// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/Crc.h"
#include "platform/desktop/parsers/FieldReader.h"
#include "platform/desktop/parsers/FlacFrame.h"
#include "platform/desktop/parsers/FormatParser.h"
#include "platform/desktop/parsers/SeekPlaces.h"

namespace zib {

/// Frames native FLAC files. A frame's header does not tell its length; it is believed when the checks of the
/// header and of the whole are right and the contents end just there. So the last frame needs no successor,
/// and sync words within the music or in a picture are nothing.
class FlacParser : public FormatParser {
  public:
    /// @param startOffset the byte of the file that the first byte fed is: that of "fLaC".
    FlacParser(ParserOutput& output, std::int64_t startOffset);

    AudioStatus parse(std::span<const std::byte> bytes, bool discontinuous) override;
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) override;

  private:
    enum class State { Marker, BlockHeader, StreamInfo, SeekPoint, LastBlockRest, Frames };

    AudioStatus readMetadata(std::span<const std::byte>& bytes);
    AudioStatus fieldGathered();
    AudioStatus blockHeaderGathered();
    void nextBlock(std::int64_t skipBytes);

    AudioStatus frameBuffer();
    bool search();
    bool followFrame();
    [[nodiscard]] std::optional<FlacFrameHeader> successorAt(std::size_t place) const;
    void beginFrame(std::size_t place, const FlacFrameHeader& header);
    void acceptFrame();
    void announce(std::uint32_t firstFrameBytes);
    void deliver();

    ParserOutput& output_;
    State state_ = State::Marker;
    FieldReader fields_;
    std::int64_t blockLeft_ = 0; ///< bytes of the seek table still to come
    bool lastBlock_ = false;
    std::optional<FlacStreamInfo> info_;
    std::vector<std::byte> cookie_;
    std::int64_t dataOffset_ = 0;

    std::vector<std::byte> buffer_;
    std::size_t place_ = 0; ///< where the frame begins, or the search for one
    std::size_t scan_ = 0;  ///< up to where the frame was looked at
    FlacFrameCrc check_;    ///< of what was looked at
    std::optional<FlacFrameHeader> header_;
    std::optional<std::int64_t> bufferPlace_; ///< of the buffer from the data offset, where that is known
    std::int64_t searched_ = 0;               ///< bytes passed over before the first packet
    std::int64_t takenBytes_ = 0;
    std::int64_t wastedBytes_ = 0; ///< looked at for nothing
    bool deliveredSinceBreak_ = false;

    std::uint32_t framesPerPacket_ = 0; ///< 0 before the first packet
    std::uint32_t bound_ = 0;
    SeekPlaces places_;
    std::optional<std::int64_t> wanted_;        ///< the frame that a seek asked for, until it comes
    std::vector<AudioPacketDescription> batch_; ///< offsets are those in the buffer
};

} // namespace zib
