// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace zib {

/// A cyclic redundancy check, the highest bit first, from zero, neither mirrored nor inverted. Over a message
/// and its own check it is zero.
template <typename T, T polynomial>
class Crc {
  public:
    constexpr void add(std::byte byte)
    {
        constexpr int kUpper = 8 * (sizeof(T) - 1);
        value_ = static_cast<T>(value_ << 4 << 4) ^
                 kTable[(value_ >> kUpper ^ std::to_integer<unsigned>(byte)) & 0xff];
    }
    constexpr void add(std::span<const std::byte> bytes)
    {
        for (const std::byte byte : bytes)
            add(byte);
    }
    [[nodiscard]] constexpr T value() const { return value_; }

    [[nodiscard]] static constexpr T of(std::span<const std::byte> bytes)
    {
        Crc crc;
        crc.add(bytes);
        return crc.value();
    }

  private:
    static constexpr std::array<T, 256> makeTable()
    {
        std::array<T, 256> table{};
        for (unsigned byte = 0; byte < table.size(); ++byte) {
            T value = static_cast<T>(static_cast<T>(byte) << 8 * (sizeof(T) - 1));
            for (int bit = 0; bit < 8; ++bit) {
                const bool top = (value >> (8 * sizeof(T) - 1) & 1) != 0;
                value = static_cast<T>(static_cast<T>(value << 1) ^ (top ? polynomial : T{0}));
            }
            table[byte] = value;
        }
        return table;
    }
    static constexpr std::array<T, 256> kTable = makeTable();

    T value_ = 0;
};

using FlacHeaderCrc = Crc<std::uint8_t, 0x07>;
using FlacFrameCrc = Crc<std::uint16_t, 0x8005>;
using OggPageCrc = Crc<std::uint32_t, 0x04c11db7>;

} // namespace zib
