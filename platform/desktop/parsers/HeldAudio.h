// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace zib {

/// Audio that can't be framed before a later part of its file has come.
class HeldAudio {
  public:
    /// More than the longest album in one file; a stream without end would fill the memory.
    static constexpr std::size_t kMostBytes = std::size_t{256} * 1024 * 1024;

    /// False when it would become too much.
    [[nodiscard]] bool hold(std::span<const std::byte> bytes)
    {
        if (bytes.size() > kMostBytes - bytes_.size())
            return false;
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
        return true;
    }
    [[nodiscard]] std::span<const std::byte> bytes() const { return bytes_; }
    void release() { std::vector<std::byte>().swap(bytes_); }

  private:
    std::vector<std::byte> bytes_;
};

} // namespace zib
