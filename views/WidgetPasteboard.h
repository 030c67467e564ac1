// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Pasteboard.h"

namespace zib {

/// The desktop's clipboard, as Qt reaches it.
class WidgetPasteboard : public Pasteboard {
  public:
    void setString(const QString& text) override;
};

} // namespace zib
