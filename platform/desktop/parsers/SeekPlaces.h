// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FormatParser.h"

namespace zib {

/// Answers seeks in a stream whose rate varies: from places that are known, where the file tells them or they
/// went by, otherwise from the average of the packets so far.
class SeekPlaces {
  public:
    /// Must be told before a seek can be answered.
    void describe(const AudioStreamDescription& format);
    /// That frame (sample of each channel) begins, or a packet that holds it, so many bytes from the data
    /// offset. A place that contradicts the known ones is not believed, one that is near one not needed.
    void add(std::int64_t frame, std::int64_t byteOffset);
    void countPacket(std::size_t bytes);

    /// As AudioFileStream::seek.
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated);

    /// Whether a seek was answered since the last break: then the next break is its, however soon it comes.
    [[nodiscard]] bool breakExpected() const { return breakExpected_; }
    /// Where the bytes after a break are from: the place that was told if it was not an estimate, as only
    /// then readers go there.
    std::optional<std::int64_t> placeAfterBreak();
    /// The frame of a place that was added.
    [[nodiscard]] std::optional<std::int64_t> frameAt(std::int64_t byteOffset) const;

  private:
    struct Place {
        std::int64_t frame;
        std::int64_t byteOffset;
    };
    [[nodiscard]] std::optional<std::int64_t> lookUp(std::int64_t frame) const;

    std::vector<Place> places_; ///< ascending in both
    double sampleRate_ = 0;
    std::int64_t framesPerPacket_ = 0;
    std::int64_t packets_ = 0;
    std::int64_t packetBytes_ = 0;
    bool breakExpected_ = false;
    std::optional<std::int64_t> told_;
};

} // namespace zib
