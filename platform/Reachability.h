// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

namespace zib {

/// Tells whether a host can be reached. Main thread.
class Reachability : public QObject {
    Q_OBJECT

  public:
    enum Flag : quint32 {
        Reachable = 2,
        ConnectionRequired = 4,
        InterventionRequired = 16,
    };

    /// Watches that host from now on, in place of any other. flagsChanged follows soon, from the event loop,
    /// and then at every change. A loopback host is always reachable, and so is any host while nothing on the
    /// desktop knows of the network.
    /// @param host a name or an address, without port.
    virtual void watch(const QString& host) = 0;

  Q_SIGNALS:
    void flagsChanged(quint32 flags);
};

} // namespace zib
