// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SongTags.h"

#include <memory>
#include <stop_token>

class QProcess;

namespace zib {

/// Reads tags in a process of its own with bounded memory, so that a crafted file costs that process only. It
/// is started when it is first needed, and again after it was lost. For one thread.
class TagProcess final : public TagReader {
  public:
    /// @param program the path of this program, which is started as "PROGRAM read-tags"
    /// @param stop gives up waiting for the process
    explicit TagProcess(QString program, std::stop_token stop = {});
    ~TagProcess() override;

    std::optional<SongTags> read(const QByteArray& path) override;

    /// The process's own side: answers the paths on its standard input until that closes.
    static int run();

    /// Bounds the calling process's memory for good.
    static void limitMemory();

  private:
    bool start();

    const QString program_;
    const std::stop_token stop_;
    std::unique_ptr<QProcess> process_;
};

} // namespace zib
