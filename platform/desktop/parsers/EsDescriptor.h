// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace zib {

/// What an elementary stream descriptor (ISO 14496-1) tells of a stream's decoder; MPEG-4 files have it in an
/// "esds" box behind the box's version and flags, other containers bare.
struct EsDescriptor {
    /// The coding: 0x40 AAC, 0x66 to 0x68 AAC of MPEG-2, 0x69 and 0x6b MPEG audio.
    std::uint8_t objectType = 0;
    /// What the decoder must be told, for AAC its AudioSpecificConfig; within the bytes given, may be empty.
    std::span<const std::byte> decoderConfiguration;

    /// None when the bytes are no whole descriptor.
    [[nodiscard]] static std::optional<EsDescriptor> parse(std::span<const std::byte> bytes);
};

} // namespace zib
