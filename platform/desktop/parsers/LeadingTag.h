// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace zib {

/// As many bytes as tell the length of any tag.
inline constexpr std::size_t kLeadingTagHeaderBytes = 16;

/// The whole length of the ID3v2 or APE tag that begins these bytes, its header and footer included; none
/// when no tag begins there. At least kLeadingTagHeaderBytes bytes are needed.
[[nodiscard]] std::optional<std::int64_t> leadingTagBytes(std::span<const std::byte> bytes);

} // namespace zib
