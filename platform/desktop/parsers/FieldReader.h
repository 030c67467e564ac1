// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zib {

/// Gathers the fields of a file's headers from pieces of any size and passes over what lies between them.
/// What it holds grows with the bytes that come, never with a length that was only claimed.
class FieldReader {
  public:
    /// @param startOffset the byte of the file that comes first.
    explicit FieldReader(std::int64_t startOffset)
        : offset_(startOffset)
    {
    }

    /// Begins another field of so many bytes, after passing over skipBytes of what comes first.
    void want(std::size_t bytes, std::int64_t skipBytes = 0);
    /// Takes bytes from the front of these; true once the field is whole.
    [[nodiscard]] bool take(std::span<const std::byte>& bytes);
    /// Takes bytes that are no field from the front of these: as many as there are, up to most.
    [[nodiscard]] std::span<const std::byte> takeSome(std::span<const std::byte>& bytes, std::int64_t most);
    /// The whole field, until the next is wanted.
    [[nodiscard]] std::span<const std::byte> field() const { return field_; }
    /// The byte of the file that comes next.
    [[nodiscard]] std::int64_t offset() const { return offset_; }

  private:
    std::int64_t offset_;
    std::int64_t skip_ = 0;
    std::size_t wanted_ = 0;
    std::vector<std::byte> field_;
};

} // namespace zib
