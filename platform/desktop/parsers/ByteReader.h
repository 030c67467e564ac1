// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

// Integers and names in the headers of files. The caller makes sure that the bytes are there.
namespace zib {

/// The number that these few bytes are, the first the most significant.
[[nodiscard]] constexpr std::uint64_t bigEndian(std::span<const std::byte> bytes)
{
    std::uint64_t value = 0;
    for (const std::byte byte : bytes)
        value = value << 8 | std::to_integer<std::uint64_t>(byte);
    return value;
}
[[nodiscard]] constexpr std::uint16_t bigEndian16(std::span<const std::byte> bytes)
{
    return static_cast<std::uint16_t>(bigEndian(bytes.first(2)));
}
[[nodiscard]] constexpr std::uint32_t bigEndian32(std::span<const std::byte> bytes)
{
    return static_cast<std::uint32_t>(bigEndian(bytes.first(4)));
}
[[nodiscard]] constexpr std::uint64_t bigEndian64(std::span<const std::byte> bytes)
{
    return bigEndian(bytes.first(8));
}

/// The number that these few bytes are, the first the least significant.
[[nodiscard]] constexpr std::uint64_t littleEndian(std::span<const std::byte> bytes)
{
    std::uint64_t value = 0;
    for (std::size_t i = bytes.size(); i > 0; --i)
        value = value << 8 | std::to_integer<std::uint64_t>(bytes[i - 1]);
    return value;
}
[[nodiscard]] constexpr std::uint16_t littleEndian16(std::span<const std::byte> bytes)
{
    return static_cast<std::uint16_t>(littleEndian(bytes.first(2)));
}
[[nodiscard]] constexpr std::uint32_t littleEndian32(std::span<const std::byte> bytes)
{
    return static_cast<std::uint32_t>(littleEndian(bytes.first(4)));
}
[[nodiscard]] constexpr std::uint64_t littleEndian64(std::span<const std::byte> bytes)
{
    return littleEndian(bytes.first(8));
}

/// Whether these letters begin the bytes; false also when there are fewer bytes.
[[nodiscard]] constexpr bool startsWith(std::span<const std::byte> bytes, std::string_view letters)
{
    return bytes.size() >= letters.size() &&
           std::equal(letters.begin(), letters.end(), bytes.begin(),
                      [](char letter, std::byte byte) { return static_cast<std::byte>(letter) == byte; });
}

} // namespace zib
