// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <span>

namespace zib {

/// Bytes for a whole large file, not cleared, in pages of 2 MB where the system grants them: with small pages
/// the first touch of each would cost more than reading the file.
class LargeBuffer {
  public:
    LargeBuffer() = default;
    /// Empty when there is not so much memory.
    explicit LargeBuffer(std::size_t size);

    [[nodiscard]] std::span<char> bytes() const { return {bytes_.get(), size_}; }

  private:
    struct Free {
        void operator()(char* bytes) const { std::free(bytes); }
    };

    std::unique_ptr<char, Free> bytes_;
    std::size_t size_ = 0;
};

} // namespace zib
