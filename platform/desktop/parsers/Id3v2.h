// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace zib {

inline constexpr std::size_t kId3v2HeaderBytes = 10;

/// The whole length of the ID3v2 tag that begins these bytes, its header and footer included; none when no
/// tag begins there. At least kId3v2HeaderBytes bytes are needed.
[[nodiscard]] std::optional<std::int64_t> id3v2TagBytes(std::span<const std::byte> bytes);

} // namespace zib
