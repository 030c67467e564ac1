// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/Mpeg4SampleTable.h"

namespace zib {

/// Cuts the samples of a table out of the bytes of the file and hands them on as packets.
class Mpeg4SampleCutter {
  public:
    explicit Mpeg4SampleCutter(ParserOutput& output);

    /// The properties to announce with the first packet; their bound tells which samples are too large.
    void setProperties(AudioFileProperties properties);
    /// From now on, cuts the samples of this table.
    void follow(Mpeg4SampleTable table);
    /// From now on, cuts from this sample of the table on, a number less than its count; the byte of the file
    /// that it begins at.
    std::int64_t goTo(std::uint64_t sample);
    /// Bytes of the file, those of other tracks among them. Samples of which bytes were left out are, too.
    /// @param offset the byte of the file that they begin at.
    void cut(std::span<const std::byte> bytes, std::int64_t offset);

    [[nodiscard]] const Mpeg4SampleTable& table() const { return table_; }
    [[nodiscard]] std::uint64_t packets() const { return packets_; } ///< handed on so far

  private:
    bool carry(std::span<const std::byte> bytes, std::int64_t offset, std::uint32_t size);
    void emit(std::span<const std::byte> bytes, std::span<const AudioPacketDescription> packets);
    void emitBatch(std::span<const std::byte> bytes);

    ParserOutput& output_;
    std::optional<AudioFileProperties> unannounced_;
    std::uint32_t bound_ = 0;
    Mpeg4SampleTable table_;
    Mpeg4SampleTable::Place place_;             ///< of the next sample
    std::vector<std::byte> carry_;              ///< what came of it
    std::vector<AudioPacketDescription> batch_; ///< offsets are those in the bytes being cut
    std::uint64_t packets_ = 0;
};

} // namespace zib
