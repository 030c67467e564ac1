// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/FileMetadata.h"
#include "platform/desktop/MetadataProcess.h"

#include <chrono>
#include <deque>
#include <memory>
#include <vector>

namespace zib {

/// Attributes of files by the tag library, which reads in processes of their own with bounded memory and
/// time: a crafted file of 3 KB can make it allocate gigabytes or crash, and then costs that process only.
class DesktopFileMetadata : public FileMetadata {
  public:
    using Patience = std::chrono::milliseconds;

    /// @param program zib-metadata's path
    /// @param patience how long one file may take
    explicit DesktopFileMetadata(const QString& program, Patience patience = std::chrono::seconds(20));

    [[nodiscard]] QList<FileAttributes> attributes(const QStringList& paths) override;
    void release() override;

  private:
    struct Reader {
        explicit Reader(const QString& program)
            : process(program)
        {
        }
        MetadataProcess process;
        std::deque<qsizetype> asked; // places of the paths that it has yet to answer, in order
        std::chrono::steady_clock::time_point deadline;
    };

    void ask(Reader& reader, const QStringList& paths, QList<FileAttributes>& result);
    void waitForAnswers();
    void collect(Reader& reader, const QStringList& paths, QList<FileAttributes>& result);

    const Patience patience_;
    std::vector<std::unique_ptr<Reader>> readers_;
    std::deque<qsizetype> waiting_; // places of the paths that nobody has been asked for
};

} // namespace zib
