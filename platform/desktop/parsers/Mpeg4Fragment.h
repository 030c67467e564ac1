// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/Mpeg4SampleTable.h"

namespace zib {

/// The samples that one movie fragment ("moof") adds to a track.
class Mpeg4Fragment {
  public:
    /// @param track the one whose samples count.
    /// @param defaultSize of its samples, where the fragment does not tell.
    Mpeg4Fragment(std::uint32_t track, std::uint32_t defaultSize)
        : track_(track)
        , movieDefaultSize_(defaultSize)
    {
    }

    /// @param offset the byte of the file that it begins at.
    /// @param offsetsHold whether that is known so well that offsets in the file can be used.
    void begin(std::int64_t offset, bool offsetsHold);
    void readTrackHeader(std::span<const std::byte> body); ///< "tfhd"
    void readDecodeTime(std::span<const std::byte> body);  ///< "tfdt"
    AudioStatus readRun(std::span<const std::byte> body);  ///< "trun"
    /// When its first sample is heard, in units of the track, if it tells.
    [[nodiscard]] std::optional<std::uint64_t> decodeTime() const { return decodeTime_; }
    [[nodiscard]] Mpeg4SampleTable takeTable() { return std::exchange(table_, {}); }

  private:
    std::uint32_t track_;
    std::uint32_t movieDefaultSize_;

    std::int64_t offset_ = 0;
    bool offsetsHold_ = true;
    std::int64_t base_ = 0; ///< what the runs count their offsets from
    std::int64_t next_ = 0; ///< where the last run ended
    bool ours_ = false;
    std::optional<std::uint64_t> decodeTime_;
    std::uint32_t defaultSize_ = 0;
    std::uint32_t claimed_ = 0; ///< samples without a size of their own
    Mpeg4SampleTable table_;
};

} // namespace zib
