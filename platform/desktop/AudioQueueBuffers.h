// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioQueue.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <span>
#include <vector>

namespace zib {

/// The buffers of one queue, and the packets of those that are enqueued, in their order. The queue's lock
/// guards them.
class AudioQueueBuffers {
  public:
    explicit AudioQueueBuffers(const AudioStreamDescription& format);
    AudioQueueBuffers(const AudioQueueBuffers&) = delete;
    AudioQueueBuffers& operator=(const AudioQueueBuffers&) = delete;

    AudioQueueBuffer& allocate(std::uint32_t bytes);
    /// @return false for one that is not from here, is enqueued already or overfull, and where nothing tells
    /// the packets' sizes
    [[nodiscard]] bool enqueue(AudioQueueBuffer& face, std::span<const AudioPacketDescription> packets);
    /// How many are enqueued.
    [[nodiscard]] std::size_t enqueued() const { return pending_.size(); }

    /// Copies the front buffer's next packet, so that the buffer can be given up while it is decoded; of a
    /// constant size several at once. @return false at the end of that buffer, and when there is none
    bool takePacket(std::vector<std::byte>& packet);
    /// The front buffer is enqueued no more.
    AudioQueueBuffer& giveUpFront();
    /// None is enqueued any more. @return those that were, in their order
    std::vector<AudioQueueBuffer*> giveUpAll();
    /// The next packet does not follow the last: a part that was kept of one is dropped.
    void breakOff() { partOfPacket_.clear(); }

  private:
    struct Buffer {
        AudioQueueBuffer face;
        std::unique_ptr<std::byte[]> bytes;
        std::vector<AudioPacketDescription> packets;
        std::size_t nextPacket = 0;
        std::size_t nextByte = 0; ///< where packets of constant size go on
        bool enqueued = false;
    };

    bool takeConstantPackets(Buffer& buffer, std::vector<std::byte>& packet);

    const std::size_t constantPacketBytes_; ///< 0 when the packets' sizes vary
    std::vector<std::unique_ptr<Buffer>> buffers_;
    std::deque<Buffer*> pending_;
    std::vector<std::byte> partOfPacket_; ///< of a constant size, begun in the buffer before
};

} // namespace zib
