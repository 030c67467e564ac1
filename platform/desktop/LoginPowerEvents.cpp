// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/LoginPowerEvents.h"

#include "platform/desktop/MessageBus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace zib {
namespace {

const QString service = QStringLiteral("org.freedesktop.login1");
const QString path = QStringLiteral("/org/freedesktop/login1");
const QString managerInterface = QStringLiteral("org.freedesktop.login1.Manager");

} // namespace

LoginPowerEvents::LoginPowerEvents(QString busAddress)
    : busAddress_(std::move(busAddress))
{
    QMetaObject::invokeMethod(
        this, [this] { begin(); }, Qt::QueuedConnection);
}

void LoginPowerEvents::begin()
{
    QDBusConnection bus = systemBus(busAddress_);
    if (!bus.isConnected())
        return;
    bus.connect(service, path, managerInterface, QStringLiteral("PrepareForSleep"), this,
                SLOT(prepareForSleep(bool)));
    holdSleepBack();
}

void LoginPowerEvents::holdSleepBack()
{
    QDBusMessage request =
        QDBusMessage::createMethodCall(service, path, managerInterface, QStringLiteral("Inhibit"));
    request << QStringLiteral("sleep") << QStringLiteral("Zib") << tr("Playback is paused first")
            << QStringLiteral("delay");
    request.setAutoStartService(false);
    auto* answer = new QDBusPendingCallWatcher(systemBus(busAddress_).asyncCall(request), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        // Refused, sleep is announced all the same and only does not wait.
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *answer;
        if (!reply.isError())
            delay_ = reply.value();
        answer->deleteLater();
    });
}

void LoginPowerEvents::prepareForSleep(bool begins)
{
    if (begins) {
        Q_EMIT machineWillSleep();
        delay_ = QDBusUnixFileDescriptor();
    } else {
        holdSleepBack();
        Q_EMIT machineDidWake();
    }
}

} // namespace zib
