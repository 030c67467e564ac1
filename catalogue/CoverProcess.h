// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace zib {

/// Takes the picture out of a sound file in a process of its own with bounded memory and time, so that a
/// crafted file costs that process only. Any thread.
class CoverProcess {
  public:
    /// @param program the path of this program, which is started as "PROGRAM read-cover PATH"; with an empty
    /// one no picture is found.
    explicit CoverProcess(QString program)
        : program_(std::move(program))
    {
    }

    [[nodiscard]] QByteArray read(const QByteArray& path) const;

    /// The process's own side: puts the picture on standard output.
    static int run(const char* path);

  private:
    const QString program_;
};

} // namespace zib
