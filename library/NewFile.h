// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/WrittenFile.h"

#include <QByteArray>
#include <QString>

#include <string_view>

namespace zib {

/// A file that appears under its path whole, or not at all, and never in the place of another. Until then it
/// has no name where the file system can do that, so that a killed program leaves nothing behind; elsewhere
/// one in a work folder, which whoever names the folder clears when no program can be writing there.
class NewFile {
  public:
    /// @param path UTF-8; its folder exists.
    /// @param workFolder UTF-8, on the same file system; made when it is needed.
    NewFile(const QByteArray& path, const QByteArray& workFolder);
    /// Without commit() nothing is left.
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// After a failure the rest is ignored and commit() reports it.
    void write(std::string_view bytes) { file_.write(bytes); }
    /// Whether the file is on disk under its path; not when there is another by now.
    bool commit();
    /// The system's number for the first failure, EEXIST for another file in the place.
    [[nodiscard]] int error() const { return file_.error(); }

    /// Renames a file or folder, within a file system, to a path that is free; else errno is set.
    static bool renameWithoutReplacing(const QByteArray& from, const QByteArray& to);

  private:
    int open(const QByteArray& workFolder);
    [[nodiscard]] bool giveName() const;

    QByteArray path_;
    QByteArray temporary_; // none while the file has no name
    WrittenFile file_;
};

} // namespace zib
