// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/desktop/PrivateBus.h"

#include <QDBusObjectPath>
#include <QObject>
#include <QSet>
#include <QVariantMap>

namespace zib {

/// A power manager that can be asked to stay awake.
class PowerManagerStandIn : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.PowerManagement.Inhibit")

  public:
    explicit PowerManagerStandIn(PrivateBus& bus)
    {
        bus.service().registerObject(QStringLiteral("/org/freedesktop/PowerManagement/Inhibit"), this,
                                     QDBusConnection::ExportAllSlots);
        bus.service().registerService(QStringLiteral("org.freedesktop.PowerManagement"));
    }
    QSet<uint> held;
    int requests = 0;

  public Q_SLOTS:
    uint Inhibit(const QString& /*application*/, const QString& /*reason*/)
    {
        const uint cookie = 70 + uint(++requests);
        held.insert(cookie);
        return cookie;
    }
    void UnInhibit(uint cookie) { held.remove(cookie); }
};

/// What the portal gives for a request that it has granted.
class PortalRequestStandIn : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

  public:
    uint held = 0; ///< in the portal's flags

  public Q_SLOTS:
    void Close() { held = 0; }
};

/// The desktop portal.
class PortalStandIn : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")

  public:
    explicit PortalStandIn(PrivateBus& bus)
    {
        bus.service().registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                                     QDBusConnection::ExportAllSlots);
        bus.service().registerObject(requestPath, &request, QDBusConnection::ExportAllSlots);
        bus.service().registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    PortalRequestStandIn request;

  public Q_SLOTS:
    QDBusObjectPath Inhibit(const QString& /*window*/, uint flags, const QVariantMap& /*options*/)
    {
        request.held = flags;
        return QDBusObjectPath(requestPath);
    }

  private:
    inline static const QString requestPath = QStringLiteral("/org/freedesktop/portal/desktop/request/1");
};

} // namespace zib
