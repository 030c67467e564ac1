// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/SleepInhibitor.h"

#include <QDBusMessage>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace zib {

/// Asks the session's power manager, or the desktop portal where there is none that can be asked (GNOME).
/// Both forget a program that ends.
class SessionSleepInhibitor : public QObject, public SleepInhibitor {
    Q_OBJECT

  public:
    /// @param busAddress of the bus to find them on; empty for the session's. It is connected to when the
    /// machine is to stay awake.
    explicit SessionSleepInhibitor(QString busAddress = {});
    ~SessionSleepInhibitor() override;

    void setAwake(bool awake) override;

  private:
    void askPowerManager();
    void askPortal();
    /// @param granted takes the answer. @param refused is called for an error instead.
    void ask(const QDBusMessage& request, const std::function<void(const QDBusMessage&)>& granted,
             const std::function<void()>& refused);
    void hold(const QDBusMessage& release);

    const QString busAddress_;
    bool wanted_ = false;
    bool asked_ = false;                  // an answer is owed
    std::optional<QDBusMessage> release_; // lets the machine sleep again
};

} // namespace zib
