// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/Mpeg4Fragment.h"

#include "platform/desktop/parsers/ByteReader.h"

#include <algorithm>

namespace zib {

namespace {

// Minutes of audio. Samples that no byte vouches for must not fill the memory.
constexpr std::uint32_t kMostClaimed = 65'536;
constexpr std::uint32_t kLargestSample = std::uint32_t{1} << 24; ///< of any track

/// Takes fields from the front of a box's body; beyond its end they are 0.
class Fields {
  public:
    explicit Fields(std::span<const std::byte> body)
        : rest_(body)
    {
    }
    std::uint64_t take(std::size_t bytes)
    {
        if (rest_.size() < bytes) {
            rest_ = {};
            return 0;
        }
        const std::uint64_t value = bigEndian(rest_.first(bytes));
        rest_ = rest_.subspan(bytes);
        return value;
    }
    std::uint32_t take32() { return static_cast<std::uint32_t>(take(4)); }
    [[nodiscard]] std::size_t left() const { return rest_.size(); }

  private:
    std::span<const std::byte> rest_;
};

constexpr std::uint32_t kFlags = 0xffffff; ///< behind the version

} // namespace

void Mpeg4Fragment::begin(std::int64_t offset, bool offsetsHold)
{
    offset_ = offset;
    offsetsHold_ = offsetsHold;
    next_ = offset;
    claimed_ = 0;
    decodeTime_.reset();
    table_ = {};
}

void Mpeg4Fragment::readTrackHeader(std::span<const std::byte> body)
{
    constexpr std::uint32_t kHasBase = 1;
    constexpr std::uint32_t kHasDescription = 2;
    constexpr std::uint32_t kHasDuration = 8;
    constexpr std::uint32_t kHasSize = 16;
    constexpr std::uint32_t kBaseIsFragment = 0x20000;
    constexpr std::uint64_t kLargestOffset = std::uint64_t{1} << 60;
    Fields fields(body);
    const std::uint32_t flags = fields.take32() & kFlags;
    ours_ = fields.take32() == track_;
    base_ = (flags & kBaseIsFragment) != 0 ? offset_ : next_;
    if ((flags & kHasBase) != 0) {
        const std::uint64_t base = std::min(fields.take(8), kLargestOffset);
        // Where it isn't known at which byte of the file the fragment is, it is its beginning that is meant.
        base_ = offsetsHold_ ? static_cast<std::int64_t>(base) : offset_;
    }
    if ((flags & kHasDescription) != 0)
        fields.take32();
    if ((flags & kHasDuration) != 0)
        fields.take32();
    defaultSize_ = (flags & kHasSize) != 0 ? fields.take32() : movieDefaultSize_;
    next_ = base_;
}

void Mpeg4Fragment::readDecodeTime(std::span<const std::byte> body)
{
    constexpr std::size_t kLongBytes = 12;
    if (ours_ && !decodeTime_ && body.size() >= 8)
        decodeTime_ = bigEndian(body.subspan(
            4, body[0] == std::byte{0} || body.size() < kLongBytes ? std::size_t{4} : std::size_t{8}));
}

AudioStatus Mpeg4Fragment::readRun(std::span<const std::byte> body)
{
    constexpr std::uint32_t kHasOffset = 1;
    constexpr std::uint32_t kHasFirstFlags = 4;
    constexpr std::uint32_t kHasSizes = 0x200;
    constexpr std::uint32_t kEachFlags[] = {0x100, kHasSizes, 0x400, 0x800};
    Fields fields(body);
    const std::uint32_t flags = fields.take32() & kFlags;
    const std::uint32_t samples = fields.take32();
    std::int64_t offset = next_;
    if ((flags & kHasOffset) != 0)
        offset = base_ + static_cast<std::int32_t>(fields.take32());
    if ((flags & kHasFirstFlags) != 0)
        fields.take32();
    std::size_t entryBytes = 0;
    for (const std::uint32_t flag : kEachFlags)
        entryBytes += (flags & flag) != 0 ? 4 : 0;
    const bool ownSizes = (flags & kHasSizes) != 0;
    if (ownSizes ? samples > fields.left() / entryBytes : samples > kMostClaimed - claimed_)
        return kInvalidFile;
    claimed_ += ownSizes ? 0 : samples;

    next_ = offset;
    for (std::uint32_t i = 0; i < samples; ++i) {
        std::uint32_t size = defaultSize_;
        for (const std::uint32_t flag : kEachFlags) {
            if (!ownSizes || (flags & flag) == 0)
                continue;
            const std::uint32_t field = fields.take32();
            if (flag == kHasSizes)
                size = field;
        }
        if (size > kLargestSample)
            return kInvalidFile;
        next_ += size;
        if (ours_)
            table_.addSize(size);
    }
    if (ours_ && samples > 0) {
        if (offset < table_.end())
            return kInvalidFile;
        table_.addChunk(offset);
    }
    return kAudioOk;
}

} // namespace zib
