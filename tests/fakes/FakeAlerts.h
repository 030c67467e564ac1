// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Alerts.h"

#include <QList>

#include <functional>
#include <utility>

namespace zib {

/// Shows nothing: keeps every alert and presses what the test says, the first button by default.
class FakeAlerts : public Alerts {
  public:
    AlertResult runModal(const Alert& alert) override
    {
        shown.append(alert);
        if (whileShown)
            whileShown(alert);
        return answers.isEmpty() ? AlertResult{} : answers.takeFirst();
    }

    QList<Alert> shown;
    QList<AlertResult> answers; ///< of the next alerts, in order
    std::function<void(const Alert&)> whileShown;
};

} // namespace zib
