// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace zib {

struct Alert {
    enum class Style { Informational, Warning };
    Style style = Style::Warning;
    QString messageText;
    QString informativeText;
    QStringList buttons;                 ///< the first is the default; Escape presses the last
    bool showsSuppressionButton = false; ///< a check box "Do not show this message again"
};

struct AlertResult {
    int button = 0;          ///< index into the buttons
    bool suppressed = false; ///< whether the check box was left ticked
};

/// Modal alerts. Main thread.
class Alerts {
  public:
    virtual ~Alerts() = default;
    /// Shows the alert and returns when it is dismissed; the event loop runs meanwhile.
    virtual AlertResult runModal(const Alert& alert) = 0;
};

} // namespace zib
