// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/OggCodec.h"

#include "platform/desktop/parsers/ByteReader.h"
#include "platform/desktop/parsers/FlacFrame.h"
#include "platform/desktop/parsers/VorbisSetup.h"

namespace zib {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t kMostPacketBytes = std::size_t{256} * 1024;

void append(std::vector<std::byte>& bytes, std::span<const std::byte> more)
{
    bytes.reserve(bytes.size() + more.size()); // and the optimizer sees that there is room
    bytes.insert(bytes.end(), more.begin(), more.end());
}

class VorbisCodec : public OggCodec {
  public:
    static constexpr std::size_t kHeaderBytes = 30;

    static std::unique_ptr<OggCodec> make(std::span<const std::byte> packet)
    {
        const auto blocks = std::to_integer<unsigned>(packet[28]);
        const unsigned shortExponent = blocks & 15;
        const unsigned longExponent = blocks >> 4;
        constexpr unsigned kLeast = 6;
        constexpr unsigned kMost = 13;
        if (littleEndian32(packet.subspan(7)) != 0 || packet[11] == std::byte{0} ||
            littleEndian32(packet.subspan(12)) == 0 || shortExponent < kLeast || longExponent > kMost ||
            shortExponent > longExponent)
            return nullptr;
        return std::make_unique<VorbisCodec>(packet);
    }
    explicit VorbisCodec(std::span<const std::byte> packet)
        : header_(packet.begin(), packet.begin() + kHeaderBytes)
    {
        const auto blocks = std::to_integer<unsigned>(header_[28]);
        blockFrames_[0] = 1U << (blocks & 15);
        blockFrames_[1] = 1U << (blocks >> 4);
    }

    [[nodiscard]] bool ready() const override { return !setup_.empty(); }
    [[nodiscard]] std::size_t headerBytesWanted() const override
    {
        return commentSeen_ ? kMostSetupBytes : kCommentMark.size();
    }
    bool takeHeader(std::span<const std::byte> bytes, std::size_t packetBytes) override
    {
        if (!commentSeen_) {
            commentSeen_ = startsWith(bytes, kCommentMark);
            return commentSeen_;
        }
        if (!startsWith(bytes, "\5vorbis") || packetBytes > bytes.size())
            return false;
        setup_.assign(bytes.begin(), bytes.end());
        modes_ = vorbisModes(setup_);
        return true;
    }

    [[nodiscard]] AudioStreamDescription format() const override
    {
        AudioStreamDescription format;
        format.sampleRate = littleEndian32(std::span(header_).subspan(12));
        format.formatId = audioformat::Vorbis;
        format.channelsPerFrame = channels();
        return format;
    }
    [[nodiscard]] std::vector<std::byte> cookie() const override
    {
        // Decoders want a comment, and it may hold a picture of megabytes: an empty one will do.
        constexpr auto kEmptyComment = "\3vorbis\0\0\0\0\0\0\0\0\1"sv;
        std::vector<std::byte> cookie{std::byte{kHeaderBytes}, std::byte{kEmptyComment.size()}};
        append(cookie, header_);
        append(cookie, std::as_bytes(std::span(kEmptyComment)));
        append(cookie, setup_);
        return cookie;
    }
    [[nodiscard]] std::vector<std::byte> signature() const override
    {
        std::vector<std::byte> signature(header_.begin(), header_.begin() + 16);
        signature.push_back(header_[28]);
        append(signature, setup_);
        return signature;
    }

    /// A packet overlaps with the previous one and adds a quarter of both; the first is taken for one that
    /// follows its like.
    [[nodiscard]] std::uint32_t frames(std::span<const std::byte> packet) override
    {
        const auto first = std::to_integer<unsigned>(packet[0]);
        if ((first & 1) != 0)
            return 0; // a header
        const std::uint32_t block = blockFrames_[modes_.isLong(first >> 1) ? 1 : 0];
        const std::uint32_t before = previousBlock_ == 0 ? block : previousBlock_;
        previousBlock_ = block;
        return (before + block) / 4;
    }
    void forgetPrevious() override { previousBlock_ = 0; }

    [[nodiscard]] std::size_t mostPacketBytes() const override { return kMostPacketBytes; }
    /// Measured with noise, clicks and tones at the extremes of quality and sample rate, no packet has more
    /// than 0.9 bytes for a sample of one channel, or more than 1.8 times what the nominal rate gives to a
    /// long block.
    [[nodiscard]] std::uint32_t packetBound(std::size_t largestSoFar) const override
    {
        const std::uint64_t frames = blockFrames_[1] / 2;
        std::uint64_t bytes = frames * channels() * 5 / 4;
        const std::uint32_t nominal = littleEndian32(std::span(header_).subspan(20));
        const std::uint32_t rate = littleEndian32(std::span(header_).subspan(12));
        if (nominal != 0 && nominal <= kHighestNominal)
            bytes = std::min(bytes, 3 * (frames * nominal / 8 / rate) + kSmallPacket);
        return static_cast<std::uint32_t>(std::max<std::uint64_t>(bytes, 2 * largestSoFar) + 1);
    }

  private:
    static constexpr std::size_t kMostSetupBytes = std::size_t{256} * 1024;
    static constexpr std::uint32_t kHighestNominal = 0x7fffffff; // others are negative: not known
    static constexpr std::uint32_t kSmallPacket = 256;
    static constexpr std::string_view kCommentMark = "\3vorbis";

    [[nodiscard]] std::uint32_t channels() const { return std::to_integer<std::uint32_t>(header_[11]); }

    std::vector<std::byte> header_;
    std::vector<std::byte> setup_;
    bool commentSeen_ = false;
    VorbisModes modes_;
    std::uint32_t blockFrames_[2] = {0, 0};
    std::uint32_t previousBlock_ = 0;
};

class OpusCodec : public OggCodec {
  public:
    static std::unique_ptr<OggCodec> make(std::span<const std::byte> packet)
    {
        constexpr std::size_t kMappingPlace = 21;
        const auto channels = std::to_integer<std::size_t>(packet[9]);
        const bool simple = packet[18] == std::byte{0};
        if (std::to_integer<unsigned>(packet[8]) > 15 || channels == 0 || (simple && channels > 2) ||
            (!simple && packet.size() < kMappingPlace + channels))
            return nullptr;
        const std::size_t bytes = simple ? kHeaderBytes : kMappingPlace + channels;
        return std::make_unique<OpusCodec>(packet.first(bytes), simple);
    }
    static constexpr std::size_t kHeaderBytes = 19;

    OpusCodec(std::span<const std::byte> packet, bool simple)
        : header_(packet.begin(), packet.end())
        , streams_(simple ? 1 : std::max(std::to_integer<std::uint32_t>(packet[19]), 1U))
    {
    }

    [[nodiscard]] bool ready() const override { return tagsSeen_; }
    [[nodiscard]] std::size_t headerBytesWanted() const override { return kTagsMark.size(); }
    bool takeHeader(std::span<const std::byte> bytes, std::size_t /*packetBytes*/) override
    {
        tagsSeen_ = startsWith(bytes, kTagsMark);
        return tagsSeen_;
    }

    [[nodiscard]] AudioStreamDescription format() const override
    {
        AudioStreamDescription format;
        format.sampleRate = 48000; // whatever the rate of the sound that was encoded
        format.formatId = audioformat::Opus;
        format.channelsPerFrame = std::to_integer<std::uint32_t>(header_[9]);
        return format;
    }
    [[nodiscard]] std::vector<std::byte> cookie() const override { return header_; }
    [[nodiscard]] std::vector<std::byte> signature() const override
    {
        std::vector<std::byte> signature{header_[9]};
        append(signature, std::span(header_).subspan(18));
        return signature;
    }

    [[nodiscard]] std::uint32_t frames(std::span<const std::byte> packet) override
    {
        constexpr std::uint32_t kMostFrames = 5760;
        if (startsWith(packet, "OpusHead") || startsWith(packet, kTagsMark))
            return 0;
        const auto contents = std::to_integer<unsigned>(packet[0]);
        std::uint32_t count = (contents & 3) == 0 ? 1 : 2;
        if ((contents & 3) == 3)
            count = packet.size() > 1 ? std::to_integer<std::uint32_t>(packet[1]) & 0x3f : 0;
        const std::uint32_t frames = count * framesOf(contents >> 3);
        if (frames > kMostFrames)
            return 0;
        mostCount_ = std::max(mostCount_, count);
        return frames;
    }
    [[nodiscard]] std::size_t mostPacketBytes() const override { return kMostPacketBytes; }
    /// The format has no frame of more than 1275 bytes; at 510 kbit/s they are that large. Before each stand
    /// two bytes of its size at most, before the frames of a stream two more.
    [[nodiscard]] std::uint32_t packetBound(std::size_t largestSoFar) const override
    {
        constexpr std::uint32_t kMostFrameBytes = 1275 + 2;
        const std::uint32_t bytes = streams_ * (std::max(mostCount_, 1U) * kMostFrameBytes + 2);
        return std::max(bytes, static_cast<std::uint32_t>(largestSoFar)) + 1;
    }

  private:
    static constexpr std::string_view kTagsMark = "OpusTags";

    /// Of each frame of a packet that is configured so.
    static std::uint32_t framesOf(unsigned configuration)
    {
        if (configuration < 12) // 10, 20, 40 and 60 ms
            return (configuration & 3) == 3 ? 2880 : 480U << (configuration & 3);
        if (configuration < 16)
            return 480U << (configuration & 1);
        return 120U << (configuration & 3); // 2.5 to 20 ms
    }

    std::vector<std::byte> header_;
    std::uint32_t streams_;
    bool tagsSeen_ = false;
    std::uint32_t mostCount_ = 0; ///< of frames in a packet so far
};

class FlacCodec : public OggCodec {
  public:
    static constexpr std::string_view kMark = "\177FLAC\1";
    static constexpr std::size_t kInfoPlace = 17; // after a count of headers, "fLaC" and a block's header
    static constexpr std::size_t kHeaderBytes = kInfoPlace + FlacStreamInfo::kBytes;

    static std::unique_ptr<OggCodec> make(std::span<const std::byte> packet)
    {
        const auto block = packet.subspan(kInfoPlace, FlacStreamInfo::kBytes);
        const auto info = FlacStreamInfo::parse(block);
        return info ? std::make_unique<FlacCodec>(block, *info) : nullptr;
    }
    FlacCodec(std::span<const std::byte> block, const FlacStreamInfo& info)
        : cookie_(block.begin(), block.end())
        , info_(info)
    {
    }

    [[nodiscard]] bool ready() const override { return true; } // the other headers are no frames
    [[nodiscard]] AudioStreamDescription format() const override { return info_.description(0); }
    [[nodiscard]] std::vector<std::byte> cookie() const override { return cookie_; }
    [[nodiscard]] std::vector<std::byte> signature() const override
    {
        const auto shape = std::span(cookie_).subspan(10, 3); // rate and channels
        std::vector<std::byte> signature(shape.begin(), shape.end());
        signature.push_back(static_cast<std::byte>(info_.bits));
        return signature;
    }
    [[nodiscard]] std::uint32_t frames(std::span<const std::byte> packet) override
    {
        const auto header = FlacFrameHeader::parse(packet, info_);
        return header ? header->blockFrames : 0;
    }
    [[nodiscard]] std::size_t mostPacketBytes() const override { return info_.largestFrameBytes(); }
    [[nodiscard]] std::uint32_t packetBound(std::size_t largestSoFar) const override
    {
        return info_.packetBound(largestSoFar);
    }

  private:
    std::vector<std::byte> cookie_;
    FlacStreamInfo info_;
};

} // namespace

std::unique_ptr<OggCodec> OggCodec::identify(std::span<const std::byte> packet)
{
    const auto is = [&](std::string_view mark, std::size_t bytes) {
        return packet.size() >= bytes && startsWith(packet, mark);
    };
    if (is("\1vorbis", VorbisCodec::kHeaderBytes))
        return VorbisCodec::make(packet);
    if (is("OpusHead", OpusCodec::kHeaderBytes))
        return OpusCodec::make(packet);
    if (is(FlacCodec::kMark, FlacCodec::kHeaderBytes))
        return FlacCodec::make(packet);
    return nullptr;
}

} // namespace zib
