// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zib {

/// Reads fields of bits, the most significant first. Beyond the end it reads zeros and remembers it.
class BitReader {
  public:
    explicit BitReader(std::span<const std::byte> bytes)
        : bytes_(bytes)
    {
    }

    /// At most 32 bits.
    std::uint32_t read(unsigned bits)
    {
        std::uint32_t value = 0;
        for (; bits > 0; --bits, ++place_) {
            const bool there = place_ / 8 < bytes_.size();
            const auto byte = there ? std::to_integer<std::uint32_t>(bytes_[place_ / 8]) : 0U;
            value = value << 1 | (byte >> (7 - place_ % 8) & 1U);
        }
        return value;
    }
    bool flag() { return read(1) != 0; }
    void skip(std::size_t bits) { place_ += bits; }
    /// Goes on at the next whole byte.
    void align() { place_ = (place_ + 7) / 8 * 8; }
    /// Bits read so far.
    [[nodiscard]] std::size_t place() const { return place_; }
    [[nodiscard]] std::size_t left() const
    {
        return place_ < bytes_.size() * 8 ? bytes_.size() * 8 - place_ : 0;
    }
    [[nodiscard]] bool overrun() const { return place_ > bytes_.size() * 8; }

  private:
    std::span<const std::byte> bytes_;
    std::size_t place_ = 0;
};

} // namespace zib
