// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/DesktopNotifications.h"

#include "platform/desktop/MessageBus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

#include <utility>

namespace zib {
namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");
const QString nextAction = QStringLiteral("next");
const QString clickAction = QStringLiteral("default");
constexpr int asLongAsUsual = -1;

QDBusMessage request(const QString& method)
{
    return QDBusMessage::createMethodCall(service, path, service, method);
}

} // namespace

DesktopNotifications::DesktopNotifications(QString busAddress)
    : busAddress_(std::move(busAddress))
{
}

DesktopNotifications::~DesktopNotifications()
{
    withdraw();
}

void DesktopNotifications::show(const Notification& notification)
{
    waiting_ = notification;
    withdrawn_ = false;
    if (asked_)
        return;
    listen();
    if (capabilities_)
        send();
    else
        askCapabilities();
}

void DesktopNotifications::withdraw()
{
    waiting_.reset();
    withdrawn_ = true;
    if (id_ != 0)
        sessionBus(busAddress_).send(request(QStringLiteral("CloseNotification")) << std::exchange(id_, 0));
}

void DesktopNotifications::listen()
{
    if (std::exchange(listens_, true))
        return;
    QDBusConnection bus = sessionBus(busAddress_);
    bus.connect(service, path, service, QStringLiteral("ActivationToken"), this,
                SLOT(activationToken(uint, QString)));
    bus.connect(service, path, service, QStringLiteral("ActionInvoked"), this,
                SLOT(actionInvoked(uint, QString)));
    bus.connect(service, path, service, QStringLiteral("NotificationClosed"), this,
                SLOT(notificationClosed(uint, uint)));
}

void DesktopNotifications::askCapabilities()
{
    asked_ = true;
    auto* answer = new QDBusPendingCallWatcher(
        sessionBus(busAddress_).asyncCall(request(QStringLiteral("GetCapabilities"))), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        asked_ = false;
        answer->deleteLater();
        const QDBusPendingReply<QStringList> reply = *answer;
        if (reply.isError()) { // there is no server; one that comes later is asked again
            waiting_.reset();
            return;
        }
        capabilities_ = reply.value();
        send();
    });
}

void DesktopNotifications::send()
{
    if (!waiting_)
        return;
    const Notification shown = *std::exchange(waiting_, std::nullopt);
    const bool markup = capabilities_->contains(QLatin1String("body-markup"));
    QStringList actions;
    if (capabilities_->contains(QLatin1String("actions")))
        actions = {clickAction, tr("Show Zib"), nextAction, tr("Next")};
    QDBusMessage notify = request(QStringLiteral("Notify"));
    notify << QStringLiteral("Zib") << id_ << QStringLiteral("zib") << shown.title
           << (markup ? shown.body.toHtmlEscaped() : shown.body) << actions
           << QVariantMap{{QStringLiteral("desktop-entry"), QStringLiteral("zib")},
                          {QStringLiteral("transient"), true}} // nobody looks later for a song that is over
           << asLongAsUsual;
    asked_ = true;
    auto* answer = new QDBusPendingCallWatcher(sessionBus(busAddress_).asyncCall(notify), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        asked_ = false;
        answer->deleteLater();
        const QDBusPendingReply<uint> reply = *answer;
        id_ = reply.isError() ? 0 : reply.value();
        if (reply.isError())
            capabilities_.reset(); // the next server may be another
        if (withdrawn_)
            withdraw();
        else if (waiting_)
            show(*waiting_); // it came meanwhile
    });
}

void DesktopNotifications::activationToken(uint id, const QString& token)
{
    if (id == id_)
        token_ = token;
}

void DesktopNotifications::actionInvoked(uint id, const QString& action)
{
    if (id == 0 || id != id_)
        return;
    if (action == nextAction)
        Q_EMIT nextRequested();
    else if (action == clickAction)
        Q_EMIT activated(std::exchange(token_, {}));
}

void DesktopNotifications::notificationClosed(uint id, uint /*reason*/)
{
    if (id == id_)
        id_ = 0;
}

} // namespace zib
