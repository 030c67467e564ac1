// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Notifications.h"

#include <QList>

#include <optional>

namespace zib {

/// Keeps what is shown now and whatever was.
class FakeNotifications : public Notifications {
  public:
    void show(const Notification& notification) override
    {
        shown = notification;
        all.append(notification);
    }
    void withdraw() override { shown.reset(); }

    std::optional<Notification> shown;
    QList<Notification> all;
};

} // namespace zib
