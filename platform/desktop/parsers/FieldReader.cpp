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

bool FieldReader::take(std::span<const std::byte>& bytes)
{
    const auto skipped = std::min<std::int64_t>(skip_, std::ssize(bytes));
    skip_ -= skipped;
    bytes = bytes.subspan(static_cast<std::size_t>(skipped));
    const auto taken =
        skip_ > 0 ? bytes.first(0) : bytes.first(std::min(wanted_ - field_.size(), bytes.size()));
    field_.insert(field_.end(), taken.begin(), taken.end());
    bytes = bytes.subspan(taken.size());
    offset_ += skipped + std::ssize(taken);
    return skip_ == 0 && field_.size() == wanted_;
}

} // namespace zib
