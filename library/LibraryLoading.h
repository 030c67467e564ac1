// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/LibraryFile.h"

#include <array>
#include <chrono>
#include <future>
#include <optional>
#include <stop_token>

namespace zib {

/// The library file on its way into memory, on a thread of its own from the construction on, so that the
/// window can be built meanwhile. It may begin before it is sure that no other process writes the file.
/// Destroying it gives the loading up.
class LibraryLoading {
  public:
    using Result = tl::expected<LibraryContents, QString>;

    /// Implicit: a library that is loaded at once is one whose loading nobody has begun before.
    LibraryLoading(const QString& path); // NOLINT(google-explicit-constructor)
    LibraryLoading(LibraryLoading&&) = default;
    LibraryLoading& operator=(LibraryLoading&&) = delete;
    ~LibraryLoading() { stop_.request_stop(); }

    [[nodiscard]] const LibraryFile& file() const { return file_; }
    /// Waits that long at most.
    [[nodiscard]] bool isReadyWithin(std::chrono::milliseconds patience) const
    {
        return loading_.wait_for(patience) == std::future_status::ready;
    }
    /// Waits for the contents, or why there are none; nothing when there is no such file. A file that was
    /// replaced since the beginning is loaded anew; from now on nobody else may write it. Once.
    [[nodiscard]] std::optional<Result> take();

  private:
    using FileState = std::array<qint64, 4>; // which file it is, how long, and when it was written

    static FileState stateOf(const LibraryFile& file);
    static std::optional<Result> load(const LibraryFile& file, const std::stop_token& stop);

    LibraryFile file_;
    FileState state_;
    std::stop_source stop_;
    std::future<std::optional<Result>> loading_;
};

} // namespace zib
