// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QString>

namespace zib {

/// The machine's message bus, or the one at that address; shared by all who ask for the same. Not connected
/// when there is none. Main thread.
inline QDBusConnection systemBus(const QString& address)
{
    if (address.isEmpty())
        return QDBusConnection::systemBus();
    return QDBusConnection::connectToBus(address, address);
}

/// The same of the user's session.
inline QDBusConnection sessionBus(const QString& address)
{
    if (address.isEmpty())
        return QDBusConnection::sessionBus();
    return QDBusConnection::connectToBus(address, address);
}

} // namespace zib
