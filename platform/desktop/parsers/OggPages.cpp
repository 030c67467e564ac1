// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/OggPages.h"

#include "platform/desktop/parsers/ByteReader.h"
#include "platform/desktop/parsers/Crc.h"

#include <numeric>
#include <utility>

namespace zib {

namespace {

constexpr std::size_t kCrcPlace = 22;
constexpr std::size_t kCrcBytes = 4;
constexpr std::int64_t kPatienceBytes = std::int64_t{8} << 20;
constexpr std::int64_t kPatienceFactor = 16;

bool checkIsRight(std::span<const std::byte> page)
{
    constexpr std::byte kNoCrcYet[kCrcBytes]{};
    OggPageCrc crc;
    crc.add(page.first(kCrcPlace));
    crc.add(kNoCrcYet);
    crc.add(page.subspan(kCrcPlace + kCrcBytes));
    return crc.value() == littleEndian32(page.subspan(kCrcPlace));
}

} // namespace

void OggPages::add(std::span<const std::byte> bytes)
{
    buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(place_));
    bufferOffset_ += static_cast<std::int64_t>(place_);
    place_ = 0;
    buffer_.reserve(OggPage::kMostBytes + kMostAdded);
    buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
    addedBytes_ += std::ssize(bytes);
}

void OggPages::restart()
{
    buffer_.clear();
    place_ = 0;
    bufferOffset_ = 0;
    lastPageBytes_ = 0;
}

bool OggPages::hostile() const
{
    return wastedBytes_ > kPatienceBytes + kPatienceFactor * addedBytes_;
}

std::span<const std::byte> OggPages::rest() const
{
    return std::span(buffer_).subspan(place_);
}

std::optional<OggPage> OggPages::next()
{
    place_ += std::exchange(lastPageBytes_, 0);
    while (rest().size() >= OggPage::kHeaderBytes && !hostile()) {
        const auto bytes = rest();
        if (!startsWith(bytes, "OggS") || bytes[4] != std::byte{0}) {
            ++place_;
            ++passedOver_;
            continue;
        }
        const auto segments = std::to_integer<std::size_t>(bytes[OggPage::kHeaderBytes - 1]);
        const std::size_t headerBytes = OggPage::kHeaderBytes + segments;
        if (bytes.size() < headerBytes)
            return std::nullopt;
        OggPage page;
        page.segmentSizes = bytes.subspan(OggPage::kHeaderBytes, segments);
        page.bytes = std::accumulate(
            page.segmentSizes.begin(), page.segmentSizes.end(), headerBytes,
            [](std::size_t sum, std::byte size) { return sum + std::to_integer<std::size_t>(size); });
        if (bytes.size() < page.bytes)
            return std::nullopt;
        if (!checkIsRight(bytes.first(page.bytes))) {
            wastedBytes_ += static_cast<std::int64_t>(page.bytes);
            ++place_;
            ++passedOver_;
            continue;
        }
        const auto flags = std::to_integer<unsigned>(bytes[5]);
        page.offset = bufferOffset_ + static_cast<std::int64_t>(place_);
        page.continued = (flags & 1) != 0;
        page.first = (flags & 2) != 0;
        page.last = (flags & 4) != 0;
        page.endFrame = static_cast<std::int64_t>(littleEndian64(bytes.subspan(6)));
        page.serial = littleEndian32(bytes.subspan(14));
        page.sequence = littleEndian32(bytes.subspan(18));
        page.body = bytes.subspan(headerBytes, page.bytes - headerBytes);
        lastPageBytes_ = page.bytes;
        return page;
    }
    return std::nullopt;
}

} // namespace zib
