// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <string_view>

namespace zib {

/// An open file that is being filled, and the first error that befell it. What AtomicFile and NewFile share.
class WrittenFile {
  public:
    explicit WrittenFile(int descriptor);
    ~WrittenFile();
    WrittenFile(const WrittenFile&) = delete;
    WrittenFile& operator=(const WrittenFile&) = delete;

    [[nodiscard]] int descriptor() const { return file_; }
    /// After a failure the rest is ignored.
    void write(std::string_view bytes);
    /// Whether all of it is on disk.
    bool sync();
    /// Notes the system's error unless the call succeeded or an earlier one failed. @return succeeded.
    bool check(bool succeeded);
    [[nodiscard]] int error() const { return error_; }

    /// Makes the names in a folder, which ends in a slash, lasting.
    static bool syncFolder(const QByteArray& folder);

  private:
    int file_;
    int error_ = 0;
    std::int64_t written_ = 0;
    std::int64_t started_ = 0; // so much of it is on its way to the disk
};

} // namespace zib
