// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/LibraryFile.h"

#include <chrono>
#include <future>
#include <optional>

namespace zib {

/// The library file on its way into memory, on a thread of its own from the construction on, so that the
/// window can be built meanwhile. Destroying it waits for the end.
class LibraryLoading {
  public:
    using Result = tl::expected<LibraryContents, QString>;

    /// Implicit: a library that is loaded at once is one whose loading nobody has begun before.
    LibraryLoading(const QString& path); // NOLINT(google-explicit-constructor)

    [[nodiscard]] const LibraryFile& file() const { return file_; }
    /// Waits that long at most.
    [[nodiscard]] bool isReadyWithin(std::chrono::milliseconds patience) const
    {
        return loading_.wait_for(patience) == std::future_status::ready;
    }
    /// Waits for the contents, or why there are none; nothing when there is no such file. Once.
    [[nodiscard]] std::optional<Result> take() { return loading_.get(); }

  private:
    LibraryFile file_;
    std::future<std::optional<Result>> loading_;
};

} // namespace zib
