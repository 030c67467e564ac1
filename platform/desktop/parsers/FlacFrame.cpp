// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/FlacFrame.h"

#include "platform/desktop/parsers/ByteReader.h"
#include "platform/desktop/parsers/Crc.h"

#include <bit>

namespace zib {

namespace {

constexpr std::uint32_t kLeastBits = 4;
constexpr std::uint32_t kShortestBlock = 16;
constexpr std::size_t kCrcBytes = 2;
constexpr std::uint32_t kLeftSide = 8;
constexpr std::uint32_t kSideRight = 9;
constexpr std::uint32_t kMidSide = 10;

/// Passes over bits, the highest of each byte first. Beyond the end there are zeros.
class BitPasser {
  public:
    BitPasser(std::span<const std::byte> bytes, std::size_t startByte)
        : bytes_(bytes)
        , place_(std::uint64_t{startByte} * 8)
    {
    }

    [[nodiscard]] bool overrun() const { return place_ > std::uint64_t{bytes_.size()} * 8; }
    [[nodiscard]] std::size_t bytesPassed() const { return static_cast<std::size_t>((place_ + 7) / 8); }
    void pass(std::uint64_t bits) { place_ += bits; }
    /// At most 32.
    std::uint32_t read(std::uint32_t bits)
    {
        const std::uint64_t window = ahead();
        place_ += bits;
        return bits == 0 ? 0 : static_cast<std::uint32_t>(window >> (64 - bits));
    }
    /// Zeros up to a one, which is passed too.
    std::uint32_t readUnary()
    {
        constexpr int kSure = 57; // of the window's bits, whatever the place in a byte
        std::uint32_t zeros = 0;
        while (!overrun()) {
            const int some = std::countl_zero(ahead());
            if (some < kSure) {
                place_ += static_cast<std::uint64_t>(some) + 1;
                return zeros + static_cast<std::uint32_t>(some);
            }
            place_ += kSure;
            zeros += kSure;
        }
        return zeros;
    }

  private:
    /// The next bits; 57 at least.
    [[nodiscard]] std::uint64_t ahead() const
    {
        const auto first = static_cast<std::size_t>(std::min<std::uint64_t>(place_ / 8, bytes_.size()));
        const std::size_t there = std::min<std::size_t>(bytes_.size() - first, 8);
        if (there == 0)
            return 0;
        const std::uint64_t window = bigEndian(bytes_.subspan(first, there)) << 8 * (8 - there);
        return window << place_ % 8;
    }

    std::span<const std::byte> bytes_;
    std::uint64_t place_; ///< in bits
};

/// The differences from what was predicted, in partitions of numbers of Rice's code.
bool passResidual(BitPasser& bits, std::uint32_t blockFrames, std::uint32_t order)
{
    const std::uint32_t method = bits.read(2);
    if (method > 1)
        return false;
    const std::uint32_t parameterBits = method == 0 ? 4 : 5;
    const std::uint32_t escape = (1U << parameterBits) - 1;
    const std::uint32_t partitionOrder = bits.read(4);
    const std::uint32_t partitionFrames = blockFrames >> partitionOrder;
    if (partitionFrames << partitionOrder != blockFrames || partitionFrames < order)
        return false;
    for (std::uint32_t partition = 0; partition < 1U << partitionOrder; ++partition) {
        const std::uint32_t count = partitionFrames - (partition == 0 ? order : 0);
        const std::uint32_t parameter = bits.read(parameterBits);
        if (parameter == escape) {
            bits.pass(std::uint64_t{bits.read(5)} * count);
        } else {
            for (std::uint32_t i = 0; i < count && !bits.overrun(); ++i) {
                bits.readUnary();
                bits.pass(parameter);
            }
        }
        if (bits.overrun())
            return false;
    }
    return true;
}

bool passSubframe(BitPasser& bits, std::uint32_t blockFrames, std::uint32_t sampleBits)
{
    constexpr std::uint32_t kConstant = 0;
    constexpr std::uint32_t kVerbatim = 1;
    constexpr std::uint32_t kFixed = 8;
    constexpr std::uint32_t kMostFixed = kFixed + 4;
    constexpr std::uint32_t kLinear = 32; // and up: an order of one and up
    if (bits.read(1) != 0)
        return false;
    const std::uint32_t type = bits.read(6);
    if (bits.read(1) != 0) {
        const std::uint32_t wasted = bits.readUnary() + 1;
        if (wasted >= sampleBits)
            return false;
        sampleBits -= wasted;
    }
    if (type == kConstant) {
        bits.pass(sampleBits);
        return true;
    }
    if (type == kVerbatim) {
        bits.pass(std::uint64_t{sampleBits} * blockFrames);
        return true;
    }
    const bool linear = type >= kLinear;
    if (!linear && (type < kFixed || type > kMostFixed))
        return false;
    const std::uint32_t order = linear ? type - kLinear + 1 : type - kFixed;
    if (order > blockFrames)
        return false;
    bits.pass(std::uint64_t{sampleBits} * order);
    if (linear) {
        constexpr std::uint32_t kNoPrecision = 15;
        const std::uint32_t precision = bits.read(4);
        if (precision == kNoPrecision)
            return false;
        bits.pass(5 + std::uint64_t{precision + 1} * order);
    }
    return passResidual(bits, blockFrames, order);
}

/// The number in the header, in the manner of UTF-8 but up to 36 bits; counts the bytes that it takes.
std::optional<std::uint64_t> codedNumber(std::span<const std::byte> bytes, std::size_t& taken)
{
    const auto first = std::to_integer<std::uint8_t>(bytes[0]);
    const int ones = std::countl_one(first);
    if (ones == 1 || ones == 8)
        return std::nullopt;
    taken = ones == 0 ? 1 : static_cast<std::size_t>(ones);
    if (bytes.size() < taken)
        return std::nullopt;
    std::uint64_t number = first & (0x7fU >> ones);
    for (std::size_t i = 1; i < taken; ++i) {
        const auto byte = std::to_integer<std::uint8_t>(bytes[i]);
        if (byte >> 6 != 2)
            return std::nullopt;
        number = number << 6 | (byte & 0x3fU);
    }
    return number;
}

/// Reads what the codes of block size and sample rate leave to bytes after the number.
class HeaderTail {
  public:
    explicit HeaderTail(std::span<const std::byte> bytes)
        : bytes_(bytes)
    {
    }
    std::uint32_t read(std::size_t count)
    {
        if (bytes_.size() - taken_ < count) {
            missing_ = true;
            return 0;
        }
        taken_ += count;
        return static_cast<std::uint32_t>(bigEndian(bytes_.subspan(taken_ - count, count)));
    }
    [[nodiscard]] bool missing() const { return missing_; }
    [[nodiscard]] std::size_t taken() const { return taken_; }

  private:
    std::span<const std::byte> bytes_;
    std::size_t taken_ = 0;
    bool missing_ = false;
};

std::uint32_t blockFramesOf(std::uint32_t code, HeaderTail& tail)
{
    if (code == 0)
        return 0;
    if (code == 1)
        return 192;
    if (code < 6)
        return 144U << code;
    if (code < 8)
        return tail.read(code - 5) + 1;
    return 1U << code;
}

std::uint32_t sampleRateOf(std::uint32_t code, HeaderTail& tail, std::uint32_t streamRate)
{
    constexpr std::uint32_t kRates[] = {0,     88200, 176400, 192000, 8000,  16000,
                                        22050, 24000, 32000,  44100,  48000, 96000};
    switch (code) {
    case 0:
        return streamRate;
    case 12:
        return tail.read(1) * 1000;
    case 13:
        return tail.read(2);
    case 14:
        return tail.read(2) * 10;
    case 15:
        return 0;
    default:
        return kRates[code];
    }
}

std::uint32_t bitsOf(std::uint32_t code, std::uint32_t streamBits)
{
    constexpr std::uint32_t kBits[] = {0, 8, 12, 0, 16, 20, 24, 32};
    return code == 0 ? streamBits : kBits[code];
}

} // namespace

std::optional<FlacStreamInfo> FlacStreamInfo::parse(std::span<const std::byte> block)
{
    FlacStreamInfo info;
    info.leastBlock = bigEndian16(block);
    info.mostBlock = bigEndian16(block.subspan(2));
    info.leastFrameBytes = static_cast<std::uint32_t>(bigEndian(block.subspan(4, 3)));
    info.mostFrameBytes = static_cast<std::uint32_t>(bigEndian(block.subspan(7, 3)));
    const std::uint32_t shape = bigEndian32(block.subspan(10));
    info.sampleRate = shape >> 12;
    info.channels = (shape >> 9 & 7) + 1;
    info.bits = (shape >> 4 & 31) + 1;
    info.frames = static_cast<std::int64_t>(bigEndian(block.subspan(13, 5)) & 0xf'ffff'ffff);
    if (info.mostBlock < kShortestBlock || info.leastBlock > info.mostBlock || info.sampleRate == 0 ||
        info.bits < kLeastBits)
        return std::nullopt;
    return info;
}

AudioStreamDescription FlacStreamInfo::description(std::uint32_t framesPerPacket) const
{
    AudioStreamDescription format;
    format.sampleRate = sampleRate;
    format.formatId = audioformat::Flac;
    format.framesPerPacket = framesPerPacket;
    format.channelsPerFrame = channels;
    return format;
}

std::uint32_t FlacStreamInfo::largestFrameBytes() const
{
    constexpr std::uint32_t kSubframeHeader = 6; // with as many wasted bits as there can be
    constexpr std::uint32_t kFrameHeaderAndCrc = FlacFrameHeader::kMostBytes + kCrcBytes;
    // One bit more for the channel that holds a difference of two.
    const std::uint64_t sampleBits = std::uint64_t{bits} * channels + 1;
    return static_cast<std::uint32_t>((sampleBits * mostBlock + 7) / 8) + kSubframeHeader * channels +
           kFrameHeaderAndCrc;
}

std::uint32_t FlacStreamInfo::packetBound(std::size_t firstPacketBytes) const
{
    const bool credible = mostFrameBytes >= firstPacketBytes && mostFrameBytes >= leastFrameBytes;
    return (credible ? std::min(mostFrameBytes, largestFrameBytes()) : largestFrameBytes()) + 1;
}

std::optional<FlacFrameHeader> FlacFrameHeader::parse(std::span<const std::byte> bytes,
                                                      const FlacStreamInfo& info)
{
    constexpr std::size_t kFixedBytes = 4;
    if (bytes.size() <= kFixedBytes || bytes[0] != std::byte{0xff})
        return std::nullopt;
    const std::uint32_t codes = bigEndian32(bytes);
    if ((codes >> 17 & 0x7fff) != 0x7ffc || (codes & 1) != 0) // the sync word, and two reserved bits
        return std::nullopt;
    FlacFrameHeader header;
    header.variableBlocks = (codes >> 16 & 1) != 0;
    header.assignment = codes >> 4 & 15;
    const std::uint32_t channels = header.assignment < kLeftSide ? header.assignment + 1 : 2;
    if (header.assignment > kMidSide || channels != info.channels ||
        bitsOf(codes >> 1 & 7, info.bits) != info.bits)
        return std::nullopt;
    std::size_t numberBytes = 0;
    const auto number = codedNumber(bytes.subspan(kFixedBytes), numberBytes);
    if (!number)
        return std::nullopt;
    header.number = *number;
    HeaderTail tail(bytes.subspan(kFixedBytes + numberBytes));
    header.blockFrames = blockFramesOf(codes >> 12 & 15, tail);
    const std::uint32_t rate = sampleRateOf(codes >> 8 & 15, tail, info.sampleRate);
    const std::size_t crcPlace = kFixedBytes + numberBytes + tail.taken();
    if (tail.missing() || bytes.size() <= crcPlace || header.blockFrames == 0 ||
        header.blockFrames > info.mostBlock || rate != info.sampleRate)
        return std::nullopt;
    header.bytes = crcPlace + 1;
    if (FlacHeaderCrc::of(bytes.first(header.bytes)) != 0)
        return std::nullopt;
    return header;
}

std::int64_t FlacFrameHeader::firstFrame(const FlacStreamInfo& info) const
{
    return static_cast<std::int64_t>(variableBlocks ? number : number * info.mostBlock);
}

std::optional<std::size_t> flacFrameBytes(std::span<const std::byte> frame, const FlacFrameHeader& header,
                                          const FlacStreamInfo& info)
{
    BitPasser bits(frame, header.bytes);
    for (std::uint32_t channel = 0; channel < info.channels; ++channel) {
        const bool difference =
            header.assignment == kSideRight ? channel == 0 : header.assignment >= kLeftSide && channel == 1;
        if (!passSubframe(bits, header.blockFrames, info.bits + (difference ? 1 : 0)) || bits.overrun())
            return std::nullopt;
    }
    const std::size_t bytes = bits.bytesPassed() + kCrcBytes;
    return bytes <= frame.size() ? std::optional(bytes) : std::nullopt;
}

} // namespace zib
