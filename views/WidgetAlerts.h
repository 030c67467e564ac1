// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Alerts.h"

class QWidget;

namespace zib {

/// Alerts as message boxes.
class WidgetAlerts : public Alerts {
  public:
    AlertResult runModal(const Alert& alert) override;
};

} // namespace zib
