// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FormatParser.h"

#include <utility>

namespace zib {

/// Where the samples of a track are in the file: chunk after chunk, in each one after another. An hour of AAC
/// has 155,000 of them, so a sample takes two bytes.
class Mpeg4SampleTable {
  public:
    /// A sample, and where it is.
    struct Place {
        std::uint64_t sample = 0;
        std::int64_t offset = 0; ///< byte of the file
        std::size_t chunk = 0;
        std::size_t run = 0;
        std::uint64_t leftInChunk = 0; ///< samples, this one included
    };

    // The parts of the table, each the body of a box; what is not there is not believed.
    void readSizes(std::span<const std::byte> body);                                ///< "stsz"
    void readCompactSizes(std::span<const std::byte> body);                         ///< "stz2"
    void readChunkLengths(std::span<const std::byte> body);                         ///< "stsc"
    void readChunkOffsets(std::span<const std::byte> body, std::size_t entryBytes); ///< "stco", "co64"
    /// Once all parts are read.
    /// @return a status other than 0 when the samples overlap, go backwards in the file or have no size that
    /// a sample has.
    AudioStatus finish();

    /// Adds a chunk of the samples whose sizes were added since the last one.
    void addChunk(std::int64_t offset);
    void addSize(std::uint32_t size);

    [[nodiscard]] std::uint64_t count() const { return count_; }
    [[nodiscard]] std::uint32_t sizeOf(std::uint64_t sample) const;
    [[nodiscard]] std::uint32_t largest() const { return largest_; }
    /// The byte of the file after the last sample.
    [[nodiscard]] std::int64_t end() const { return end_; }
    /// @param sample less than count().
    [[nodiscard]] Place placeOf(std::uint64_t sample) const;
    /// To the next sample; its number is count() after the last.
    void advance(Place& place) const;

  private:
    /// Chunks of the same number of samples, up to those of the next run.
    struct Run {
        std::size_t firstChunk;
        std::uint64_t samplesPerChunk;
        std::uint64_t firstSample;
    };

    [[nodiscard]] std::uint64_t bytesOf(std::uint64_t sample, std::uint64_t count) const;

    std::uint32_t commonSize_ = 0; ///< of every sample; 0 when each has its own
    std::vector<std::uint16_t> sizes_;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> largeSizes_; ///< sample and size
    std::vector<Run> runs_;
    std::vector<std::int64_t> chunks_; ///< offsets
    std::uint64_t count_ = 0;
    std::uint32_t largest_ = 0;
    std::int64_t end_ = 0;
};

} // namespace zib
