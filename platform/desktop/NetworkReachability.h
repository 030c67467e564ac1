// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Reachability.h"

#include <QVariantMap>

#include <optional>

namespace zib {

/// Reachability as NetworkManager sees it. Without NetworkManager, or without a bus to ask it by, everything
/// counts as reachable: a request tells soon enough.
class NetworkReachability : public Reachability {
    Q_OBJECT

  public:
    /// @param busAddress of the bus to find NetworkManager on; empty for the system's. It is connected to
    /// from the event loop, when first needed.
    explicit NetworkReachability(QString busAddress = {});

    void watch(const QString& host) override;

    /// What NetworkManager's state and connectivity mean for that host.
    /// @param host in lower case.
    static quint32 flagsFor(const QString& host, quint32 state, quint32 connectivity);

  private Q_SLOTS:
    void propertiesChanged(const QString& interface, const QVariantMap& changed,
                           const QStringList& invalidated);

  private:
    void begin();
    void ask();
    void forget();
    void take(const QVariantMap& properties);
    void report();

    const QString busAddress_;
    QString host_;
    bool begun_ = false;
    std::optional<quint32> state_; // nothing before the first answer
    quint32 connectivity_ = 0;
    std::optional<quint32> reported_; // of the host that is watched now
};

} // namespace zib
