// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/desktop/PrivateBus.h"

#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace zib {

/// The desktop's notification server: keeps what it is told to show, by id.
class NotificationServerStandIn : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

  public:
    NotificationServerStandIn(PrivateBus& bus, QStringList capabilities)
        : bus_(bus)
        , capabilities_(std::move(capabilities))
    {
        bus.service().registerObject(path, this, QDBusConnection::ExportAllSlots);
        bus.service().registerService(name);
    }
    /// The user presses a button; the click is "default".
    void press(uint id, const QString& action)
    {
        send(QStringLiteral("ActivationToken"), {id, QStringLiteral("token")});
        send(QStringLiteral("ActionInvoked"), {id, action});
    }

    QStringList shown; ///< "id title|body" of each that was asked for, and "closed id"
    QStringList actions;

  public Q_SLOTS:
    QStringList GetCapabilities() { return capabilities_; }
    uint Notify(const QString& /*application*/, uint replaces, const QString& /*icon*/,
                const QString& summary, const QString& body, const QStringList& buttons,
                const QVariantMap& /*hints*/, int /*timeout*/)
    {
        const uint id = replaces == 0 ? ++last_ : replaces;
        shown.append(QStringLiteral("%1 %2|%3").arg(id).arg(summary, body));
        actions = buttons;
        return id;
    }
    void CloseNotification(uint id)
    {
        shown.append(QStringLiteral("closed %1").arg(id));
        send(QStringLiteral("NotificationClosed"), {id, 3U});
    }

  private:
    void send(const QString& member, const QVariantList& arguments)
    {
        QDBusMessage signal = QDBusMessage::createSignal(path, name, member);
        signal.setArguments(arguments);
        bus_.service().send(signal);
    }

    inline static const QString name = QStringLiteral("org.freedesktop.Notifications");
    inline static const QString path = QStringLiteral("/org/freedesktop/Notifications");
    PrivateBus& bus_;
    const QStringList capabilities_;
    uint last_ = 40;
};

} // namespace zib
