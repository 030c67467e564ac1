// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/WrittenFile.h"

#include <QByteArray>
#include <QString>

#include <string_view>

namespace zib {

/// Writes a file so that its path names at every moment the old or the new content, whole, also when the
/// process is killed or the machine fails. A link is followed. One writer of a path at a time.
///
/// The content grows beside the file under one fixed name, so that what a killed writer left is overwritten
/// by the next and never piles up.
class AtomicFile {
  public:
    explicit AtomicFile(const QString& path);
    /// Without commit() the old file stays.
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// After a failure the rest is ignored and commit() reports it.
    void write(std::string_view bytes) { file_.write(bytes); }
    /// Whether the new content is on disk under the path.
    bool commit();
    /// The system's words for the first failure.
    [[nodiscard]] QString error() const;

  private:
    QByteArray path_;
    QByteArray temporary_;
    WrittenFile file_;
    bool committed_ = false;
};

} // namespace zib
