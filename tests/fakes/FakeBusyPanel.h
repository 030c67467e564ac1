// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/RVBusyPanel.h"

#include <QStringList>

#include <utility>

namespace zib {

/// Shows nothing and keeps what it was told.
class FakeBusyPanel : public RVBusyPanel {
  public:
    void open(const QString& newTitle, std::function<void()> newStop) override
    {
        title = newTitle;
        stop = std::move(newStop);
        isOpen = true;
    }
    void close() override { isOpen = false; }
    void setInformativeText(const QString& text) override { texts.append(text); }
    void setProgress(int newDone, int newTotal) override
    {
        done = newDone;
        total = newTotal;
    }

    bool isOpen = false;
    QString title;
    QStringList texts; ///< all of them, in order
    int done = 0;
    int total = 0;
    std::function<void()> stop; ///< what the button does
};

} // namespace zib
