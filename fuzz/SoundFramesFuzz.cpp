// SPDX-License-Identifier: GPL-3.0-or-later
// The whole way of any bytes to samples: recognised, cut into packets, fitted to the reader's buffers,
// decoded and converted, as the streamer and its output queue do it.
#include "fuzz/RepairedChecks.h"
#include "platform/desktop/AudioDecoder.h"
#include "platform/desktop/parsers/AudioFileStreamParsers.h"
#include "platform/desktop/parsers/FittedFileStreams.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace {

using namespace zib;

constexpr std::size_t kPieceBytes = 2048;
/// A few packets of silence can decode to minutes; what comes then is of no more interest.
constexpr std::size_t kEnoughSamples = std::size_t{1} << 22;

void require(bool promise)
{
    if (!promise)
        std::abort();
}

struct Ear : AudioFileStreamClient {
    void propertyFound(AudioFileStream& stream, AudioFileStreamProperty property) override
    {
        if (property != AudioFileStreamProperty::ReadyToProducePackets)
            return;
        AudioStreamDescription format;
        std::vector<AudioFormatListItem> list;
        std::vector<std::byte> cookie;
        require(stream.dataFormat(format) == kAudioOk);
        if (stream.formatList(list) == kAudioOk && list[0].description.formatId == audioformat::HeAac)
            format = list[0].description;
        if (!PacketDecoder::canDecode(format))
            return;
        decoder.emplace(format);
        if (stream.magicCookie(cookie) == kAudioOk)
            decoder->setCookie(cookie);
    }
    void packetsProduced(std::span<const std::byte> bytes, std::uint32_t /*packetCount*/,
                         std::span<const AudioPacketDescription> descriptions) override
    {
        if (!decoder || heard > kEnoughSamples)
            return;
        const auto hear = [this](const AVFrame& frame) {
            samples.clear();
            converter.convert(frame, samples);
            const int channels = converter.format().channels;
            require(samples.empty() ||
                    (channels > 0 && samples.size() % static_cast<std::size_t>(channels) == 0));
            heard += samples.size();
        };
        if (descriptions.empty())
            decoder->decode(bytes, hear);
        for (const AudioPacketDescription& packet : descriptions)
            decoder->decode(bytes.subspan(static_cast<std::size_t>(packet.startOffset), packet.dataByteSize),
                            hear);
    }

    std::optional<PacketDecoder> decoder;
    FrameConverter converter;
    std::vector<float> samples;
    std::size_t heard = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    [[maybe_unused]] static const bool quiet = (quietenDecoders(), true);
    std::vector<std::byte> file(size);
    std::transform(data, data + size, file.begin(), [](std::uint8_t byte) { return std::byte{byte}; });
    repairOggChecks(file);
    repairFlacChecks(file);

    AudioFileStreamParsers parsers;
    FittedFileStreams streams(parsers);
    Ear ear;
    AudioStatus status = kAudioOk;
    const auto stream = streams.open(AudioFileType::Mp3, ear, status);
    for (std::span<const std::byte> rest = file; !rest.empty() && status == kAudioOk;) {
        const auto piece = rest.first(std::min(rest.size(), kPieceBytes));
        rest = rest.subspan(piece.size());
        status = stream->parseBytes(piece, false);
    }
    return 0;
}
