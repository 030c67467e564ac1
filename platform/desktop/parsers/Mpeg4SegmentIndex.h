// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace zib {

/// Where the segments of a fragmented file are and when they are heard, as its index ("sidx") tells.
class Mpeg4SegmentIndex {
  public:
    /// @param end the byte of the file after the box.
    void read(std::span<const std::byte> body, std::int64_t end);
    [[nodiscard]] bool isEmpty() const { return segments_.empty(); }
    /// The byte of the file that the segment heard at that time begins at; none where the index does not
    /// reach: many files have one for each segment.
    [[nodiscard]] std::optional<std::int64_t> offsetAt(double seconds) const;

  private:
    struct Segment {
        std::int64_t offset;
        double begin; ///< seconds
    };
    std::vector<Segment> segments_;
    double end_ = 0; ///< seconds
};

} // namespace zib
