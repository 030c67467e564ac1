// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Reachability.h"

#include <QMetaObject>

namespace zib {

/// A network that the test connects and disconnects. It starts connected.
class FakeReachability : public Reachability {
  public:
    void watch(const QString& host) override
    {
        watchedHost = host;
        QMetaObject::invokeMethod(
            this, [this] { Q_EMIT flagsChanged(flags()); }, Qt::QueuedConnection);
    }
    /// What the desktop knows of the network now; watchers of a host that is not this machine are told.
    void change(quint32 networkFlags)
    {
        networkFlags_ = networkFlags;
        if (!watchedHost.isEmpty() && !isLoopback())
            Q_EMIT flagsChanged(flags());
    }

    QString watchedHost; ///< the host that is watched now; empty before the first

  private:
    bool isLoopback() const
    {
        return watchedHost == QLatin1String("localhost") || watchedHost == QLatin1String("::1") ||
               watchedHost.startsWith(QLatin1String("127."));
    }
    quint32 flags() const { return isLoopback() ? quint32(Reachable) : networkFlags_; }

    quint32 networkFlags_ = Reachable;
};

} // namespace zib
