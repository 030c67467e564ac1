// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/PowerEvents.h"

#include <QDBusUnixFileDescriptor>
#include <QString>

namespace zib {

/// The machine's sleep as the login manager announces it. It asks the login manager to hold each sleep back
/// until those who listen here were told, for as long as the machine's policy allows (some seconds).
class LoginPowerEvents : public PowerEvents {
    Q_OBJECT

  public:
    /// @param busAddress of the bus to find the login manager on; empty for the system's. It is connected to
    /// from the event loop.
    explicit LoginPowerEvents(QString busAddress = {});

  private Q_SLOTS:
    void prepareForSleep(bool begins);

  private:
    void begin();
    void holdSleepBack();

    const QString busAddress_;
    QDBusUnixFileDescriptor delay_; // sleep waits while it is open
};

} // namespace zib
