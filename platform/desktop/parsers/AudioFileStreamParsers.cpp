// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/AudioFileStreamParsers.h"

#include "platform/desktop/parsers/AiffParser.h"
#include "platform/desktop/parsers/ByteReader.h"
#include "platform/desktop/parsers/CafParser.h"
#include "platform/desktop/parsers/FlacParser.h"
#include "platform/desktop/parsers/FrameParser.h"
#include "platform/desktop/parsers/LeadingTag.h"
#include "platform/desktop/parsers/Mpeg4Parser.h"
#include "platform/desktop/parsers/OggParser.h"
#include "platform/desktop/parsers/WaveParser.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zib {

namespace {

/// As many bytes as every known file type, and every tag before it, is told by.
constexpr std::size_t kHeadBytes = kLeadingTagHeaderBytes;
using Head = std::array<std::byte, kHeadBytes>;

bool holds(std::span<const std::byte> head, std::size_t place, std::string_view text)
{
    return startsWith(head.subspan(place), text);
}

bool isAiff(const Head& head)
{
    return holds(head, 0, "FORM") && (holds(head, 8, "AIFF") || holds(head, 8, "AIFC"));
}

/// Whether a box begins there that MPEG-4 and QuickTime files may begin with.
bool isMpeg4(const Head& head)
{
    constexpr std::string_view kNames[] = {"ftyp", "styp", "moov", "mdat", "sidx", "free", "skip", "wide"};
    return std::any_of(std::begin(kNames), std::end(kNames),
                       [&head](std::string_view name) { return holds(head, 4, name); });
}

/// Containers whose compressed contents could be mistaken for frames of MPEG audio here and there.
bool isForeignContainer(const Head& head)
{
    return holds(head, 0, "FORM") && !isAiff(head);
}

/// Passes over the tags that any kind of file may begin with, chooses the parser by what follows, and
/// answers for it.
class RecognisingFileStream : public AudioFileStream, private ParserOutput {
  public:
    explicit RecognisingFileStream(AudioFileStreamClient& client)
        : client_(client)
    {
    }

    AudioStatus parseBytes(std::span<const std::byte> bytes, bool discontinuous) override
    {
        if (failure_ != kAudioOk)
            return failure_;
        if (!parser_)
            failure_ = recognise(bytes);
        if (parser_ && failure_ == kAudioOk)
            failure_ = parser_->parse(bytes, discontinuous);
        return failure_;
    }

    AudioStatus dataFormat(AudioStreamDescription& format) const override
    {
        return read(properties_.format, format);
    }
    AudioStatus formatList(std::vector<AudioFormatListItem>& formats) const override
    {
        return read(properties_.formatList, formats);
    }
    AudioStatus dataOffset(std::int64_t& offset) const override
    {
        return read(properties_.dataOffset, offset);
    }
    AudioStatus audioDataByteCount(std::uint64_t& count) const override
    {
        return read(properties_.audioDataByteCount, count);
    }
    AudioStatus packetSizeUpperBound(std::uint32_t& bytes) const override
    {
        return read(properties_.packetSizeUpperBound, bytes);
    }
    AudioStatus maximumPacketSize(std::uint32_t& bytes) const override
    {
        return read(properties_.maximumPacketSize, bytes);
    }
    AudioStatus magicCookie(std::vector<std::byte>& cookie) const override
    {
        return read(properties_.magicCookie, cookie);
    }

    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) override
    {
        return parser_ ? parser_->seek(packet, byteOffset, estimated) : kIllegalPacket;
    }

    AudioStatus close() override { return kAudioOk; }

  private:
    /// Consumes the head of the file; leaves what follows for the parser, if one was found.
    AudioStatus recognise(std::span<const std::byte>& bytes)
    {
        while (!parser_) {
            const auto skipped =
                bytes.first(static_cast<std::size_t>(std::min<std::int64_t>(tagLeft_, std::ssize(bytes))));
            tagLeft_ -= std::ssize(skipped);
            offset_ += std::ssize(skipped);
            bytes = bytes.subspan(skipped.size());
            const auto taken = bytes.first(std::min(bytes.size(), kHeadBytes - headBytes_));
            std::copy(taken.begin(), taken.end(), head_.begin() + static_cast<std::ptrdiff_t>(headBytes_));
            headBytes_ += taken.size();
            bytes = bytes.subspan(taken.size());
            if (headBytes_ < kHeadBytes)
                return kAudioOk;
            if (const auto tag = leadingTagBytes(head_)) {
                passTag(*tag);
                continue;
            }
            if (isForeignContainer(head_))
                return kUnsupportedFileType;
            makeParser();
        }
        return parser_->parse(head_, false);
    }

    void passTag(std::int64_t tagBytes)
    {
        const std::int64_t inHead = std::min<std::int64_t>(tagBytes, kHeadBytes);
        std::shift_left(head_.begin(), head_.end(), inHead);
        headBytes_ = kHeadBytes - static_cast<std::size_t>(inHead);
        offset_ += inHead;
        tagLeft_ = tagBytes - inHead;
    }

    void makeParser()
    {
        ParserOutput& output = *this;
        const bool wave = (holds(head_, 0, "RIFF") || holds(head_, 0, "RF64")) && holds(head_, 8, "WAVE");
        if (wave)
            parser_ = std::make_unique<WaveParser>(output, offset_);
        else if (isAiff(head_))
            parser_ = std::make_unique<AiffParser>(output, offset_);
        else if (holds(head_, 0, "fLaC"))
            parser_ = std::make_unique<FlacParser>(output, offset_);
        else if (holds(head_, 0, "caff"))
            parser_ = std::make_unique<CafParser>(output, offset_);
        else if (isMpeg4(head_))
            parser_ = std::make_unique<Mpeg4Parser>(output, offset_);
        else if (holds(head_, 0, "OggS"))
            parser_ = std::make_unique<OggParser>(output, offset_);
        else
            parser_ = std::make_unique<FrameParser>(output, offset_);
    }

    void announce(AudioFileProperties properties) override
    {
        using Property = AudioFileStreamProperty;
        properties_ = std::move(properties);
        const auto tell = [this](bool known, Property property) {
            if (known)
                client_.propertyFound(*this, property);
        };
        tell(properties_.format.has_value(), Property::DataFormat);
        tell(!properties_.formatList.empty(), Property::FormatList);
        tell(properties_.dataOffset.has_value(), Property::DataOffset);
        tell(properties_.audioDataByteCount.has_value(), Property::AudioDataByteCount);
        tell(!properties_.magicCookie.empty(), Property::MagicCookie);
        tell(true, Property::ReadyToProducePackets);
    }

    void packets(std::span<const std::byte> bytes, std::uint32_t packetCount,
                 std::span<const AudioPacketDescription> descriptions) override
    {
        client_.packetsProduced(bytes, packetCount, descriptions);
    }

    template <typename T>
    static AudioStatus read(const std::optional<T>& property, T& value)
    {
        if (!property)
            return kUnknownProperty;
        value = *property;
        return kAudioOk;
    }
    template <typename T>
    static AudioStatus read(const std::vector<T>& property, std::vector<T>& value)
    {
        if (property.empty())
            return kUnknownProperty;
        value = property;
        return kAudioOk;
    }

    AudioFileStreamClient& client_;
    AudioFileProperties properties_;
    std::unique_ptr<FormatParser> parser_;
    AudioStatus failure_ = kAudioOk;
    Head head_{};
    std::size_t headBytes_ = 0;
    std::int64_t tagLeft_ = 0; ///< bytes of a leading tag still to come
    std::int64_t offset_ = 0;  ///< byte of the file that begins the head
};

} // namespace

std::unique_ptr<AudioFileStream>
AudioFileStreamParsers::open(AudioFileType /*hint*/, AudioFileStreamClient& client, AudioStatus& status)
{
    status = kAudioOk;
    return std::make_unique<RecognisingFileStream>(client);
}

} // namespace zib
