// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FormatParser.h"
#include "platform/desktop/parsers/OggCodec.h"
#include "platform/desktop/parsers/OggPages.h"
#include "platform/desktop/parsers/SeekPlaces.h"

#include <utility>

namespace zib {

/// Takes Vorbis, Opus or FLAC out of Ogg files: the first such stream, whatever streams are beside it, and
/// those that follow it as long as its decoder can go on with them.
///
/// The first second or so is held back, to tell the frames that a packet has on average. Readers fill a ring
/// of buffers before they start, so nobody waits for that.
class OggParser : public FormatParser {
  public:
    /// @param startOffset the byte of the file that the first byte fed is: that of "OggS".
    OggParser(ParserOutput& output, std::int64_t startOffset);

    AudioStatus parse(std::span<const std::byte> bytes, bool discontinuous) override;
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) override;

  private:
    void restart();
    AudioStatus takePage(const OggPage& page);
    AudioStatus takeFirstPage(const OggPage& page);
    [[nodiscard]] bool ours(std::uint32_t serial);
    void ignore(std::uint32_t serial);
    AudioStatus takePackets(const OggPage& page);
    AudioStatus takePiece(std::span<const std::byte> piece, bool ends);
    AudioStatus takePacket(std::span<const std::byte> kept, std::size_t packetBytes);
    AudioStatus takeHeader(std::span<const std::byte> kept, std::size_t packetBytes);
    void takeAudio(std::span<const std::byte> packet);
    [[nodiscard]] std::size_t bytesWanted() const;
    [[nodiscard]] std::uint32_t boundSoFar() const;
    [[nodiscard]] bool heardEnough() const;
    void locate(const OggPage& page);
    [[nodiscard]] std::int64_t batchFrames() const;
    void dropUnwanted();
    void announce();
    void deliver();

    ParserOutput& output_;
    OggPages pages_;
    std::optional<std::int64_t> base_; ///< byte of the file that the pages' offsets count from, where known

    std::unique_ptr<OggCodec> codec_; ///< of the stream that is or will be announced
    std::unique_ptr<OggCodec> next_;  ///< of one that follows, while its headers come
    std::optional<std::uint32_t> serial_;
    std::vector<std::uint32_t> ignored_; ///< serials of other streams
    bool amongFirstPages_ = false;
    bool anySerial_ = false; ///< after a break it is not known which stream of a chain comes

    std::optional<std::uint32_t> sequence_; ///< of the page that should come
    std::int64_t pagePlace_ = 0;            ///< of the current page, as pages count
    std::int64_t pageEnd_ = 0;
    std::vector<std::byte> partial_; ///< what is wanted of a packet that goes on on the next page
    std::size_t partialBytes_ = 0;
    std::int64_t partialPlace_ = 0;
    bool skipRest_ = false; ///< of a packet whose beginning is missing

    bool announced_ = false;
    std::uint32_t bound_ = 0;
    std::optional<std::int64_t> dataPlace_; ///< of the first page with audio, as pages count
    std::int64_t dataOffset_ = 0;
    std::size_t largestPacket_ = 0;
    std::int64_t heldFrames_ = 0;
    std::optional<std::int64_t> frames_ = 0; ///< before the packet that comes, where known
    std::optional<std::int64_t> wanted_;     ///< the frame that a seek asked for, until it comes
    /// Which stream of a chain it is whose pages tell their frames, and the frames before it.
    std::optional<std::pair<std::uint32_t, std::int64_t>> counted_;
    SeekPlaces places_;
    bool deliveredSinceBreak_ = false;

    std::vector<std::byte> bytes_; ///< of the packets in the batch
    std::vector<AudioPacketDescription> batch_;
};

} // namespace zib
