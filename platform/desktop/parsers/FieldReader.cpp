// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/FieldReader.h"

#include <algorithm>

namespace zib {

void FieldReader::want(std::size_t bytes, std::int64_t skipBytes)
{
    field_.clear();
    wanted_ = bytes;
    skip_ = skipBytes;
}

std::span<const std::byte> FieldReader::takeSome(std::span<const std::byte>& bytes, std::int64_t most)
{
    const auto taken = bytes.first(static_cast<std::size_t>(std::min<std::int64_t>(most, std::ssize(bytes))));
    bytes = bytes.subspan(taken.size());
    offset_ += std::ssize(taken);
    return taken;
}

bool FieldReader::take(std::span<const std::byte>& bytes)
{
    skip_ -= std::ssize(takeSome(bytes, skip_));
    if (skip_ > 0)
        return false;
    const auto taken = takeSome(bytes, static_cast<std::int64_t>(wanted_ - field_.size()));
    field_.insert(field_.end(), taken.begin(), taken.end());
    return field_.size() == wanted_;
}

} // namespace zib
