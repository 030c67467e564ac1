// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/SessionSleepInhibitor.h"

#include "platform/desktop/MessageBus.h"

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QLoggingCategory>
#include <QVariantMap>

#include <utility>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.platform.sleep")

const QString powerManager = QStringLiteral("org.freedesktop.PowerManagement");
const QString powerManagerPath = QStringLiteral("/org/freedesktop/PowerManagement/Inhibit");
const QString powerManagerInterface = QStringLiteral("org.freedesktop.PowerManagement.Inhibit");
const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString portalInterface = QStringLiteral("org.freedesktop.portal.Inhibit");
const QString portalRequest = QStringLiteral("org.freedesktop.portal.Request");
constexpr uint suspend = 4; // of the portal's flags

QString reason()
{
    return SessionSleepInhibitor::tr("Music is playing");
}

} // namespace

SessionSleepInhibitor::SessionSleepInhibitor(QString busAddress)
    : busAddress_(std::move(busAddress))
{
}

SessionSleepInhibitor::~SessionSleepInhibitor()
{
    setAwake(false);
}

void SessionSleepInhibitor::setAwake(bool awake)
{
    if (std::exchange(wanted_, awake) == awake || asked_)
        return; // or the answer will tell
    if (awake)
        askPowerManager();
    else if (release_)
        sessionBus(busAddress_).send(*std::exchange(release_, std::nullopt));
}

void SessionSleepInhibitor::askPowerManager()
{
    QDBusMessage request = QDBusMessage::createMethodCall(powerManager, powerManagerPath,
                                                          powerManagerInterface, QStringLiteral("Inhibit"));
    request << QStringLiteral("Zib") << reason();
    request.setAutoStartService(false);
    const auto granted = [this](const QDBusMessage& answer) {
        QDBusMessage release = QDBusMessage::createMethodCall(
            powerManager, powerManagerPath, powerManagerInterface, QStringLiteral("UnInhibit"));
        release << answer.arguments().value(0).toUInt();
        hold(release);
    };
    ask(request, granted, [this] { askPortal(); });
}

void SessionSleepInhibitor::askPortal()
{
    QDBusMessage request =
        QDBusMessage::createMethodCall(portal, portalPath, portalInterface, QStringLiteral("Inhibit"));
    request << QString() << suspend << QVariantMap{{QStringLiteral("reason"), reason()}};
    const auto granted = [this](const QDBusMessage& answer) {
        hold(QDBusMessage::createMethodCall(portal,
                                            answer.arguments().value(0).value<QDBusObjectPath>().path(),
                                            portalRequest, QStringLiteral("Close")));
    };
    ask(request, granted, [] { qCInfo(log, "nobody here keeps the machine awake"); });
}

void SessionSleepInhibitor::ask(const QDBusMessage& request,
                                const std::function<void(const QDBusMessage&)>& granted,
                                const std::function<void()>& refused)
{
    asked_ = true;
    auto* answer = new QDBusPendingCallWatcher(sessionBus(busAddress_).asyncCall(request), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, granted, refused] {
        asked_ = false;
        answer->deleteLater();
        if (answer->isError())
            refused();
        else
            granted(answer->reply());
    });
}

void SessionSleepInhibitor::hold(const QDBusMessage& release)
{
    if (wanted_)
        release_ = release;
    else
        sessionBus(busAddress_).send(release);
}

} // namespace zib
