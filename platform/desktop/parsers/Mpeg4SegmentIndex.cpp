// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/Mpeg4SegmentIndex.h"

#include "platform/desktop/parsers/ByteReader.h"

#include <algorithm>

namespace zib {

void Mpeg4SegmentIndex::read(std::span<const std::byte> body, std::int64_t end)
{
    constexpr std::size_t kEntryBytes = 12;
    constexpr std::uint64_t kLargestOffset = std::uint64_t{1} << 40;
    constexpr std::uint32_t kSize = 0x7fffffff; ///< beside the mark of another index
    if (!segments_.empty() || body.empty())
        return;
    const std::size_t timeBytes = body[0] == std::byte{0} ? 4 : 8;
    const std::size_t fieldBytes = 12 + 2 * timeBytes + 4;
    if (body.size() < fieldBytes)
        return;
    const double scale = bigEndian32(body.subspan(8));
    const std::uint64_t gap = bigEndian(body.subspan(12 + timeBytes, timeBytes));
    const std::size_t count = std::min<std::size_t>(bigEndian16(body.subspan(fieldBytes - 2)),
                                                    (body.size() - fieldBytes) / kEntryBytes);
    if (scale == 0 || gap > kLargestOffset)
        return;
    std::int64_t offset = end + static_cast<std::int64_t>(gap);
    double time = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const auto entry = body.subspan(fieldBytes + i * kEntryBytes);
        segments_.push_back({offset, time / scale});
        offset += bigEndian32(entry) & kSize;
        time += bigEndian32(entry.subspan(4));
    }
    end_ = time / scale;
}

std::optional<std::int64_t> Mpeg4SegmentIndex::offsetAt(double seconds) const
{
    if (seconds >= end_)
        return std::nullopt;
    const auto after =
        std::upper_bound(std::next(segments_.begin()), segments_.end(), seconds,
                         [](double time, const Segment& segment) { return time < segment.begin; });
    return std::prev(after)->offset;
}

} // namespace zib
