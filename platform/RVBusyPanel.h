// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

namespace zib {

/// The small window that says what the program is busy with. There is one for the whole program, made with
/// the application and handed to whoever needs it. The rest of the program stays usable. Main thread.
class RVBusyPanel {
  public:
    virtual ~RVBusyPanel() = default;
    /// Shows the panel. @param stop what its "Stop" button does; without one it has no such button.
    virtual void open(const QString& title, std::function<void()> stop = {}) = 0;
    virtual void close() = 0;
    /// What is being done right now; one line of it is shown.
    virtual void setInformativeText(const QString& text) = 0;
    /// How far it is. A total of 0 means that nobody knows.
    virtual void setProgress(int done, int total) = 0;
};

} // namespace zib
