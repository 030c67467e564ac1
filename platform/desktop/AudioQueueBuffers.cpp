// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/AudioQueueBuffers.h"

#include <algorithm>

namespace zib {

namespace {

/// Bytes of packets of constant size that are decoded at once.
constexpr std::size_t kChunk = 32768;

std::size_t constantPacketBytes(const AudioStreamDescription& format)
{
    if (format.bytesPerPacket > 0 || format.formatId != audioformat::LinearPcm)
        return format.bytesPerPacket;
    return format.bytesPerFrame > 0 ? format.bytesPerFrame
                                    : (format.bitsPerChannel + 7) / 8 * format.channelsPerFrame;
}

} // namespace

AudioQueueBuffers::AudioQueueBuffers(const AudioStreamDescription& format)
    : constantPacketBytes_(constantPacketBytes(format))
{
}

AudioQueueBuffer& AudioQueueBuffers::allocate(std::uint32_t bytes)
{
    auto buffer = std::make_unique<Buffer>();
    buffer->bytes = std::make_unique<std::byte[]>(bytes);
    buffer->face = {buffer->bytes.get(), bytes, 0};
    return buffers_.emplace_back(std::move(buffer))->face;
}

bool AudioQueueBuffers::enqueue(AudioQueueBuffer& face, std::span<const AudioPacketDescription> packets)
{
    const auto ours = std::ranges::find_if(buffers_, [&face](const auto& b) { return &b->face == &face; });
    if (ours == buffers_.end() || (*ours)->enqueued || face.byteSize > face.capacity ||
        (packets.empty() && constantPacketBytes_ == 0))
        return false;
    Buffer& buffer = **ours;
    buffer.packets.assign(packets.begin(), packets.end());
    buffer.nextPacket = buffer.nextByte = 0;
    buffer.enqueued = true;
    pending_.push_back(&buffer);
    return true;
}

bool AudioQueueBuffers::takePacket(std::vector<std::byte>& packet)
{
    if (pending_.empty())
        return false;
    Buffer& buffer = *pending_.front();
    if (buffer.packets.empty())
        return takeConstantPackets(buffer, packet);
    while (buffer.nextPacket < buffer.packets.size()) {
        const auto& next = buffer.packets[buffer.nextPacket++];
        const std::int64_t end = buffer.face.byteSize;
        if (next.startOffset < 0 || next.startOffset > end || next.dataByteSize == 0 ||
            next.dataByteSize > end - next.startOffset)
            continue;
        const auto* bytes = buffer.face.data + next.startOffset;
        packet.assign(bytes, bytes + next.dataByteSize);
        return true;
    }
    return false;
}

/// A buffer may end within a packet, which then goes on in the next.
bool AudioQueueBuffers::takeConstantPackets(Buffer& buffer, std::vector<std::byte>& packet)
{
    while (buffer.nextByte < buffer.face.byteSize) {
        const auto* bytes = buffer.face.data + buffer.nextByte;
        const auto size = std::min<std::size_t>(kChunk, buffer.face.byteSize - buffer.nextByte);
        buffer.nextByte += size;
        packet.swap(partOfPacket_);
        packet.insert(packet.end(), bytes, bytes + size);
        const auto whole = static_cast<std::ptrdiff_t>(packet.size() - packet.size() % constantPacketBytes_);
        partOfPacket_.assign(packet.begin() + whole, packet.end());
        packet.resize(static_cast<std::size_t>(whole));
        if (whole > 0)
            return true;
    }
    return false;
}

AudioQueueBuffer& AudioQueueBuffers::giveUpFront()
{
    Buffer& buffer = *pending_.front();
    pending_.pop_front();
    buffer.enqueued = false;
    return buffer.face;
}

std::vector<AudioQueueBuffer*> AudioQueueBuffers::giveUpAll()
{
    std::vector<AudioQueueBuffer*> given;
    while (!pending_.empty())
        given.push_back(&giveUpFront());
    return given;
}

} // namespace zib
