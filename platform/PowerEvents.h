// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace zib {

/// The machine's sleep. Signals come on the main thread; without a login manager none ever does.
class PowerEvents : public QObject {
    Q_OBJECT

  Q_SIGNALS:
    void machineWillSleep();
    void machineDidWake();
};

} // namespace zib
