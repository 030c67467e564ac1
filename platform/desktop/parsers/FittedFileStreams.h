// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioFileStream.h"

namespace zib {

/// Parsers for a reader that fills buffers of packetSizeUpperBound packet by packet, and drops a packet that
/// would fill one to its last byte with all that came in the same call. So packets come one in a call, and
/// one that would be dropped comes a byte longer, which its decoder does not mind, and begins the next
/// buffer.
class FittedFileStreams : public AudioFileStreams {
  public:
    /// @param parsers outlives this and all that it opens
    explicit FittedFileStreams(AudioFileStreams& parsers)
        : parsers_(parsers)
    {
    }
    [[nodiscard]] std::unique_ptr<AudioFileStream> open(AudioFileType hint, AudioFileStreamClient& client,
                                                        AudioStatus& status) override;

  private:
    AudioFileStreams& parsers_;
};

/// The packet with one byte more that changes nothing of what is heard.
[[nodiscard]] std::vector<std::byte> lengthenedPacket(std::uint32_t formatId,
                                                      std::span<const std::byte> packet);

} // namespace zib
