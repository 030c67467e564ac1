// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Pasteboard.h"

#include <QStringList>

namespace zib {

/// Keeps what was put there.
class FakePasteboard : public Pasteboard {
  public:
    void setString(const QString& text) override { texts.append(text); }

    QStringList texts; ///< all of them, in order
};

} // namespace zib
