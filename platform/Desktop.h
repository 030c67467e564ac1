// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

namespace zib {

/// What the desktop does for the program. Main thread.
class Desktop {
  public:
    virtual ~Desktop() = default;
    /// Opens the address with the user's program for it (a browser, a viewer). @return whether one was found.
    virtual bool openUrl(const QUrl& url) = 0;
    virtual void beep() = 0;
    /// What the user is called: the full name of the account, else its short one.
    [[nodiscard]] virtual QString userFullName() const = 0;
    /// Whether the user works in one of the program's windows.
    [[nodiscard]] virtual bool isActive() const = 0;
    /// Brings the program's window to the front.
    virtual void bringToFront() = 0;
};

} // namespace zib
