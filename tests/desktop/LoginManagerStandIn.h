// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/desktop/PrivateBus.h"

#include <QDBusUnixFileDescriptor>
#include <QObject>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace zib {

/// The login manager's part in sleep: it announces it and waits for whoever holds it back.
class LoginManagerStandIn : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

  public:
    explicit LoginManagerStandIn(PrivateBus& bus)
        : bus_(bus)
    {
        bus.service().registerObject(path, this, QDBusConnection::ExportAllSlots);
        bus.service().registerService(QStringLiteral("org.freedesktop.login1"));
    }
    ~LoginManagerStandIn() override
    {
        if (held_ >= 0)
            ::close(held_);
    }
    void prepareForSleep(bool begins)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            path, QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PrepareForSleep"));
        signal << begins;
        bus_.service().send(signal);
    }
    /// Whether somebody still holds the sleep back.
    [[nodiscard]] bool isHeldBack() const
    {
        pollfd end{held_, 0, 0};
        return held_ >= 0 && ::poll(&end, 1, 0) == 0;
    }
    int requests = 0;
    QString requested; ///< what was asked to wait, and how

  public Q_SLOTS:
    QDBusUnixFileDescriptor Inhibit(const QString& what, const QString& /*who*/, const QString& /*why*/,
                                    const QString& mode)
    {
        ++requests;
        requested = what + QLatin1Char(' ') + mode;
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0)
            return {};
        if (held_ >= 0)
            ::close(held_);
        held_ = ends[0];
        QDBusUnixFileDescriptor given(ends[1]); // a copy
        ::close(ends[1]);
        return given;
    }

  private:
    inline static const QString path = QStringLiteral("/org/freedesktop/login1");
    PrivateBus& bus_;
    int held_ = -1; // its other end is with whoever holds the sleep back
};

} // namespace zib
