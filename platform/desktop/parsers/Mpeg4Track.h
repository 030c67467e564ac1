// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/Mpeg4BoxReader.h"
#include "platform/desktop/parsers/Mpeg4SampleDescription.h"
#include "platform/desktop/parsers/Mpeg4SampleTable.h"

namespace zib {

/// A track of a movie, read from the boxes in its "trak".
class Mpeg4Track {
  public:
    [[nodiscard]] Mpeg4BoxReader::Treatment treatmentOf(std::uint32_t type, std::uint32_t parent) const;
    void read(std::uint32_t type, std::span<const std::byte> body);
    /// Once all its boxes were read: whether it is sound in a coding that is known.
    [[nodiscard]] bool isPlayable();

    [[nodiscard]] std::uint32_t id() const { return id_; }
    [[nodiscard]] std::uint32_t timeScale() const { return timeScale_; } ///< units a second; 0: not told
    [[nodiscard]] bool isSound() const { return sound_.value_or(false); }
    [[nodiscard]] bool isEnabled() const { return enabled_; }
    [[nodiscard]] const Mpeg4SampleDescription& description() const { return *description_; }
    [[nodiscard]] Mpeg4SampleTable& table() { return table_; }

  private:
    std::uint32_t id_ = 0;
    bool enabled_ = false;
    std::uint32_t timeScale_ = 0;
    std::optional<bool> sound_; ///< none while its handler is not known
    std::uint32_t firstDuration_ = 0;
    std::vector<std::byte> descriptionBody_;
    std::optional<Mpeg4SampleDescription> description_;
    Mpeg4SampleTable table_;
};

} // namespace zib
