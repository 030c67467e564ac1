// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>

namespace zib {

/// A message bus of the test's own, with one connection from which the test acts a service.
class PrivateBus {
  public:
    PrivateBus()
    {
        daemon_.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                                      QStringLiteral("--print-address")});
        if (daemon_.waitForStarted() && daemon_.waitForReadyRead())
            address_ = QString::fromLatin1(daemon_.readLine().trimmed());
        service_ = QDBusConnection::connectToBus(address_, address_ + QStringLiteral("#service"));
    }
    ~PrivateBus()
    {
        QDBusConnection::disconnectFromBus(service_.name());
        QDBusConnection::disconnectFromBus(address_);
        daemon_.kill();
        daemon_.waitForFinished();
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    [[nodiscard]] const QString& address() const { return address_; }
    [[nodiscard]] QDBusConnection& service() { return service_; }

  private:
    QProcess daemon_;
    QString address_;
    QDBusConnection service_{QString()};
};

} // namespace zib
