// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/MpegHeader.h"
#include "platform/desktop/parsers/PlaceCurve.h"

namespace zib {

/// What the silent first frame of many MP3 files tells of the rest ("Xing", "Info" or "VBRI").
struct MpegInfoFrame {
    bool constantRate = false;              ///< the encoder calls the bit rate constant
    std::optional<std::uint32_t> packets;   ///< audio frames that follow
    std::optional<std::uint32_t> fileBytes; ///< bytes from this frame on, itself included
    PlaceCurve places; ///< of the audio frames, from this frame on; empty when it does not tell them

    /// None when this whole frame is an ordinary one.
    static std::optional<MpegInfoFrame> parse(const MpegHeader& header, std::span<const std::byte> frame);
};

} // namespace zib
