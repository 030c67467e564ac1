// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds any bytes to the audio parsers in pieces and holds them to what they promise of packets. The first
// byte of an input says how it is cut: the length of the pieces, and whether a seek comes half-way. Where it
// does not, the checks within the file are made right.
#include "fuzz/RepairedChecks.h"
#include "platform/desktop/parsers/AudioFileStreamParsers.h"

#include <algorithm>
#include <cstdlib>

namespace {

using namespace zib;

void require(bool promise)
{
    if (!promise)
        std::abort();
}

struct Client : AudioFileStreamClient {
    void propertyFound(AudioFileStream& stream, AudioFileStreamProperty property) override
    {
        require(!ready);
        if (property != AudioFileStreamProperty::ReadyToProducePackets)
            return;
        ready = true;
        std::int64_t offset = -1;
        require(stream.dataFormat(format) == kAudioOk && format.sampleRate > 0 &&
                format.framesPerPacket > 0 && format.channelsPerFrame > 0);
        require(stream.dataOffset(offset) == kAudioOk && offset >= 0);
        require(stream.packetSizeUpperBound(bound) == kAudioOk && bound > 0);
    }
    void packetsProduced(std::span<const std::byte> bytes, std::uint32_t packetCount,
                         std::span<const AudioPacketDescription> descriptions) override
    {
        require(ready && packetCount > 0);
        for (const std::byte byte : bytes) // a sanitizer sees whether they are there
            sum += std::to_integer<unsigned>(byte);
        if (format.bytesPerPacket > 0) {
            require(descriptions.empty() && bytes.size() == std::size_t{packetCount} * format.bytesPerPacket);
            produced += bytes.size();
            return;
        }
        require(descriptions.size() == packetCount);
        std::int64_t end = 0;
        for (const AudioPacketDescription& packet : descriptions) {
            require(packet.startOffset >= end && packet.dataByteSize > 0 && packet.dataByteSize < bound);
            end = packet.startOffset + packet.dataByteSize;
            produced += packet.dataByteSize;
        }
        require(end <= std::ssize(bytes));
    }

    AudioStreamDescription format;
    std::uint32_t bound = 0;
    bool ready = false;
    std::size_t produced = 0;
    unsigned sum = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::uint8_t control = data[0];
    std::vector<std::byte> file(size - 1);
    std::transform(data + 1, data + size, file.begin(), [](std::uint8_t byte) { return std::byte{byte}; });
    const std::size_t pieceBytes = (control & 0x7fU) == 0 ? size : control & 0x7fU;
    const bool seeks = (control & 0x80U) != 0;
    if (!seeks) {
        repairOggChecks(file);
        repairFlacChecks(file);
    }

    Client client;
    AudioStatus status = kAudioOk;
    const auto stream = AudioFileStreamParsers().open(AudioFileType::Mp3, client, status);
    bool discontinuous = false;
    for (std::size_t at = 0; at < file.size(); at += pieceBytes) {
        if (seeks && at <= file.size() / 2 && at + pieceBytes > file.size() / 2) {
            std::int64_t offset = 0;
            bool estimated = false;
            if (stream->seek(control, offset, estimated) == kAudioOk)
                require(offset >= 0);
            discontinuous = true;
        }
        const std::size_t before = client.produced;
        static_cast<void>(stream->parseBytes(
            std::span(file).subspan(at, std::min(pieceBytes, file.size() - at)), discontinuous));
        discontinuous = discontinuous && client.produced == before; // as readers keep the flag
    }
    require(client.produced <= file.size());
    require(stream->close() == kAudioOk);
    return 0;
}
