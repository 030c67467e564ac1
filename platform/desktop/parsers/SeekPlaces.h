// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FormatParser.h"

namespace zib {

/// Answers seeks in a stream whose rate varies: from places that are known, where the file tells them or they
/// went by, otherwise from the average so far.
///
/// Where it is not known exactly it tells a place that is rather early: a parser that knows from the bytes
/// there which frame they are can leave out what was not asked for, but not fetch what comes before.
class SeekPlaces {
  public:
    /// Seconds before what was asked for that are worth to be fetched for nothing. Where the bytes are of an
    /// earlier time still, something is wrong with what they tell.
    static constexpr std::int64_t kMostLeftOut = 60;
    struct Target {
        std::int64_t byteOffset; ///< the place that was told
        std::int64_t frame;      ///< the one that was asked for
    };

    /// Must be told before a seek can be answered.
    void describe(const AudioStreamDescription& format);
    /// That frame (sample of each channel) begins, or a packet that holds it, so many bytes from the data
    /// offset. A place that contradicts the known ones is not believed, one that is near one not needed.
    void add(std::int64_t frame, std::int64_t byteOffset);
    void countPackets(std::uint64_t packets, std::uint64_t bytes);
    void countPacket(std::size_t bytes) { countPackets(1, bytes); }
    /// The bytes of a piece (a page, a fragment) whose beginning a reader must come to before it can go on,
    /// and that then tells which frame it is. With such pieces a guess is as good as a place that is known.
    void countPiece(std::int64_t bytes);

    /// As AudioFileStream::seek.
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated);

    /// Whether a seek was answered since the last break: then the next break is its, however soon it comes.
    [[nodiscard]] bool breakExpected() const { return breakExpected_; }
    /// What the bytes after a break are for, if the place that was told was not an estimate, as only then
    /// readers go there.
    std::optional<Target> targetAfterBreak();
    /// The frame of a place that was added.
    [[nodiscard]] std::optional<std::int64_t> frameAt(std::int64_t byteOffset) const;

  private:
    struct Place {
        std::int64_t frame;
        std::int64_t byteOffset;
    };
    [[nodiscard]] std::optional<std::int64_t> lookUp(std::int64_t frame) const;
    /// Bytes of a frame.
    [[nodiscard]] double average() const;

    std::vector<Place> places_; ///< ascending in both
    double sampleRate_ = 0;
    std::int64_t framesPerPacket_ = 0;
    std::uint64_t packets_ = 0;
    std::uint64_t packetBytes_ = 0;
    std::int64_t pieceBytes_ = 0; ///< the most; 0 where packets come in no pieces
    bool breakExpected_ = false;
    std::optional<Target> target_;
};

} // namespace zib
