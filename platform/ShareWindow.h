// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace zib {

/// What is asked before a playlist is shared.
struct ShareForm {
    QString title;
    QString description;
    QString tags;                    ///< separated by ","
    std::optional<QString> userName; ///< as others see it; only asked for when it stands here
};

/// The small modal window that asks for it. Main thread.
class ShareWindow {
  public:
    virtual ~ShareWindow() = default;
    /// Shows the form and returns when the window is closed; the event loop runs meanwhile.
    /// @return what the user has made of it; nothing when they changed their mind.
    virtual std::optional<ShareForm> runModal(const ShareForm& form) = 0;
};

} // namespace zib
