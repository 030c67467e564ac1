// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace zib {

/// One page of an Ogg file; the spans last until the next page is asked for or bytes are added.
struct OggPage {
    static constexpr std::size_t kHeaderBytes = 27;
    static constexpr std::size_t kMostBytes = kHeaderBytes + 255 + std::size_t{255} * 255;

    std::int64_t offset = 0; ///< of its first byte among those added since the beginning or the restart
    std::size_t bytes = 0;
    bool continued = false; ///< whether it begins with the rest of a packet
    bool first = false;     ///< of its logical stream
    bool last = false;
    std::int64_t endFrame =
        -1; ///< after the last packet that ends on it, as its stream counts; -1: none does
    std::uint32_t serial = 0;
    std::uint32_t sequence = 0;
    std::span<const std::byte> segmentSizes; ///< a packet ends with one below 255
    std::span<const std::byte> body;
};

/// Finds the pages in bytes that come in pieces. Only those whose check is right are pages.
class OggPages {
  public:
    /// At most kMostBytes at once, and only once next() has no more.
    void add(std::span<const std::byte> bytes);
    static constexpr std::size_t kMostAdded = std::size_t{16} * 1024;
    std::optional<OggPage> next();
    /// The next bytes follow no others.
    void restart();

    /// Bytes that were of no page.
    [[nodiscard]] std::int64_t passedOver() const { return passedOver_; }
    /// Whether bytes made to look like pages cost more work than such bytes do by chance.
    [[nodiscard]] bool hostile() const;

  private:
    [[nodiscard]] std::span<const std::byte> rest() const;

    std::vector<std::byte> buffer_;
    std::size_t place_ = 0;
    std::int64_t bufferOffset_ = 0;
    std::size_t lastPageBytes_ = 0; ///< of the page that was given, which still stands in the buffer
    std::int64_t passedOver_ = 0;
    std::int64_t addedBytes_ = 0;
    std::int64_t wastedBytes_ = 0; ///< checked for nothing
};

} // namespace zib
