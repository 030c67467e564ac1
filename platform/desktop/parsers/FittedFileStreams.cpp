// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/FittedFileStreams.h"

#include "platform/AudioQueue.h"

namespace zib {

namespace {

// An Opus packet is cut by its length, so a byte behind it would be taken for music. It is told instead as
// one of "any number of frames", which has a count (RFC 6716, 3.2.5), or gets a padding of no bytes.
std::vector<std::byte> lengthenedOpus(std::span<const std::byte> packet)
{
    constexpr std::byte kCode{0x03};
    constexpr std::byte kVariable{0x80};
    constexpr std::byte kPadded{0x40};
    std::vector<std::byte> longer(packet.begin(), packet.end());
    const std::byte code = packet[0] & kCode;
    if (code != kCode) {
        const std::byte count = code == std::byte{0}   ? std::byte{1}
                                : code == std::byte{1} ? std::byte{2}
                                                       : std::byte{2} | kVariable;
        longer[0] |= kCode;
        longer.insert(longer.begin() + 1, count);
        return longer;
    }
    if (packet.size() < 2) // not a packet; the decoder will say so
        return longer;
    if ((packet[1] & kPadded) == std::byte{0}) {
        longer[1] |= kPadded;
        longer.insert(longer.begin() + 2, std::byte{0});
        return longer;
    }
    // The last byte of the padding's length: one more byte of padding, or a length of one byte more.
    std::size_t last = 2;
    while (last < longer.size() && longer[last] == std::byte{255})
        ++last;
    if (last == longer.size())
        return longer;
    if (longer[last] == std::byte{254}) {
        longer[last] = std::byte{255}; // counts as 254, and the next as 0
        longer.insert(longer.begin() + static_cast<std::ptrdiff_t>(last) + 1, std::byte{0});
    } else {
        longer[last] = std::byte(std::to_integer<unsigned>(longer[last]) + 1);
        longer.push_back(std::byte{0});
    }
    return longer;
}

class FittedFileStream : public AudioFileStream, private AudioFileStreamClient {
  public:
    explicit FittedFileStream(AudioFileStreamClient& client)
        : client_(client)
    {
    }

    bool open(AudioFileStreams& parsers, AudioFileType hint, AudioStatus& status)
    {
        parser_ = parsers.open(hint, *this, status);
        return parser_ != nullptr;
    }

    AudioStatus parseBytes(std::span<const std::byte> bytes, bool discontinuous) override
    {
        return parser_->parseBytes(bytes, discontinuous);
    }
    AudioStatus dataFormat(AudioStreamDescription& format) const override
    {
        return parser_->dataFormat(format);
    }
    AudioStatus formatList(std::vector<AudioFormatListItem>& formats) const override
    {
        return parser_->formatList(formats);
    }
    AudioStatus dataOffset(std::int64_t& offset) const override { return parser_->dataOffset(offset); }
    AudioStatus audioDataByteCount(std::uint64_t& count) const override
    {
        return parser_->audioDataByteCount(count);
    }
    AudioStatus packetSizeUpperBound(std::uint32_t& bytes) const override
    {
        const AudioStatus status = parser_->packetSizeUpperBound(bytes);
        AudioStreamDescription format;
        if (status == kAudioOk && parser_->dataFormat(format) == kAudioOk && format.bytesPerPacket == 0)
            ++bytes; // for the packets that get one more
        return status;
    }
    AudioStatus maximumPacketSize(std::uint32_t& bytes) const override
    {
        return parser_->maximumPacketSize(bytes);
    }
    AudioStatus magicCookie(std::vector<std::byte>& cookie) const override
    {
        return parser_->magicCookie(cookie);
    }
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) override
    {
        beginBuffer();
        return parser_->seek(packet, byteOffset, estimated);
    }
    AudioStatus close() override { return parser_->close(); }

  private:
    void propertyFound(AudioFileStream&, AudioFileStreamProperty property) override
    {
        if (property == AudioFileStreamProperty::ReadyToProducePackets) {
            packetSizeUpperBound(bufferBytes_);
            parser_->dataFormat(format_);
        }
        client_.propertyFound(*this, property);
    }
    void packetsProduced(std::span<const std::byte> bytes, std::uint32_t packetCount,
                         std::span<const AudioPacketDescription> descriptions) override
    {
        if (descriptions.empty())
            client_.packetsProduced(bytes, packetCount, descriptions);
        for (const AudioPacketDescription& packet : descriptions)
            handOn(bytes.subspan(static_cast<std::size_t>(packet.startOffset), packet.dataByteSize),
                   packet.variableFramesInPacket);
    }

    void handOn(std::span<const std::byte> packet, std::uint32_t variableFrames)
    {
        std::vector<std::byte> longer;
        if (filled_ + packet.size() == bufferBytes_) {
            longer = lengthenedPacket(format_.formatId, packet);
            packet = longer;
        }
        if (filled_ + packet.size() == bufferBytes_)
            return; // no packet of its format, or it could be lengthened
        if (filled_ + packet.size() > bufferBytes_ || packetsFilled_ == kPacketsPerBuffer)
            beginBuffer();
        filled_ += packet.size();
        ++packetsFilled_;
        const AudioPacketDescription description{0, variableFrames,
                                                 static_cast<std::uint32_t>(packet.size())};
        client_.packetsProduced(packet, 1, {&description, 1});
    }

    void beginBuffer() { filled_ = packetsFilled_ = 0; }

    AudioFileStreamClient& client_;
    std::unique_ptr<AudioFileStream> parser_;
    AudioStreamDescription format_;
    std::uint32_t bufferBytes_ = 0;
    // How far the reader's buffer is filled.
    std::size_t filled_ = 0;
    std::size_t packetsFilled_ = 0;
};

} // namespace

std::vector<std::byte> lengthenedPacket(std::uint32_t formatId, std::span<const std::byte> packet)
{
    if (formatId == audioformat::Opus && !packet.empty())
        return lengthenedOpus(packet);
    std::vector<std::byte> longer(packet.begin(), packet.end()); // others end where their syntax does
    longer.push_back(std::byte{0});
    return longer;
}

std::unique_ptr<AudioFileStream> FittedFileStreams::open(AudioFileType hint, AudioFileStreamClient& client,
                                                         AudioStatus& status)
{
    auto stream = std::make_unique<FittedFileStream>(client);
    if (!stream->open(parsers_, hint, status))
        return nullptr;
    return stream;
}

} // namespace zib
