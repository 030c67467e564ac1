// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FormatParser.h"

#include <optional>

namespace zib {

/// One way to code audio in frames that stand in a file one after another, each begun by a header that tells
/// its length.
class FrameCoding {
  public:
    struct Header {
        std::uint32_t frameBytes = 0; ///< the header included
        std::uint32_t stream = 0;     ///< the same in all frames that can belong to one stream
    };
    struct Frame {
        std::span<const std::byte> bytes;
        bool firstAfterSync = false;        ///< it begins the file or comes after a break or garbage
        std::optional<std::int64_t> offset; ///< byte of the file; none once bytes were left out
    };

    virtual ~FrameCoding() = default;
    /// None when no frame begins these bytes, or too few of them are there.
    [[nodiscard]] virtual std::optional<Header> headerAt(std::span<const std::byte> bytes) const = 0;
    /// Appends the packets in a frame of the stream, in the order of their offsets in it; a frame that tells
    /// something else holds none.
    virtual void take(const Frame& frame, std::vector<AudioPacketDescription>& packets) = 0;
    /// What is known when the first packet was taken; the data offset is added by the caller.
    [[nodiscard]] virtual AudioFileProperties properties() const = 0;
    /// As AudioFileStream::seek, once a packet was taken; the packet is no negative number.
    virtual AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) const = 0;
};

} // namespace zib
