// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/desktop/PrivateBus.h"

#include <QObject>
#include <QVariantMap>

namespace zib {

/// What NetworkManager shows on the bus of its state.
class NetworkManagerStandIn : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.NetworkManager")
    Q_PROPERTY(uint State MEMBER state)
    Q_PROPERTY(uint Connectivity MEMBER connectivity)

  public:
    explicit NetworkManagerStandIn(PrivateBus& bus)
        : bus_(bus)
    {
    }
    void appear()
    {
        bus_.service().registerObject(path, this, QDBusConnection::ExportAllProperties);
        bus_.service().registerService(name);
    }
    void vanish()
    {
        bus_.service().unregisterService(name);
        bus_.service().unregisterObject(path);
    }
    void change(const QVariantMap& properties, const QString& ofInterface = name)
    {
        state = properties.value(QStringLiteral("State"), state).toUInt();
        connectivity = properties.value(QStringLiteral("Connectivity"), connectivity).toUInt();
        QDBusMessage signal = QDBusMessage::createSignal(
            path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
        signal << ofInterface << properties << QStringList();
        bus_.service().send(signal);
    }

    inline static const QString name = QStringLiteral("org.freedesktop.NetworkManager");
    inline static const QString path = QStringLiteral("/org/freedesktop/NetworkManager");
    uint state = 70;
    uint connectivity = 4;

  private:
    PrivateBus& bus_;
};

} // namespace zib
