// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace zib {

/// The clipboard of the desktop. Main thread.
class Pasteboard {
  public:
    virtual ~Pasteboard() = default;
    /// Replaces what it holds by plain text.
    virtual void setString(const QString& text) = 0;
};

} // namespace zib
