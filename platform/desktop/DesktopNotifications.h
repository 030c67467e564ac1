// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Notifications.h"

#include <QStringList>

#include <optional>

namespace zib {

/// Notifications by the desktop's own server on the session bus.
class DesktopNotifications : public Notifications {
    Q_OBJECT

  public:
    /// @param busAddress of the bus to find the server on; empty for the session's. It is connected to when
    /// there is something to show.
    explicit DesktopNotifications(QString busAddress = {});
    /// Takes back what is shown.
    ~DesktopNotifications() override;

    void show(const Notification& notification) override;
    void withdraw() override;

  private Q_SLOTS:
    void activationToken(uint id, const QString& token);
    void actionInvoked(uint id, const QString& action);
    void notificationClosed(uint id, uint reason);

  private:
    void listen();
    void askCapabilities();
    void send();

    const QString busAddress_;
    bool listens_ = false;
    std::optional<QStringList> capabilities_; // of the server; nothing before it has answered
    std::optional<Notification> waiting_;     // while the server still owes an answer
    bool asked_ = false;
    bool withdrawn_ = false; // what the server has not yet given an id
    uint id_ = 0;            // of what is shown; 0 for nothing
    QString token_;
};

} // namespace zib
