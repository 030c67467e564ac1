// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/NetworkReachability.h"

#include "platform/desktop/MessageBus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

namespace zib {
namespace {

const QString service = QStringLiteral("org.freedesktop.NetworkManager");
const QString path = QStringLiteral("/org/freedesktop/NetworkManager");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

/// A manager that does not answer in time is as good as none.
constexpr int answerTimeoutMs = 3000;

// NMState and NMConnectivityState, of networkmanager.dev/docs/api/latest/nm-dbus-types.html.
constexpr quint32 stateUnknown = 0;
constexpr quint32 stateConnectedLocal = 50;
constexpr quint32 stateConnectedSite = 60;
constexpr quint32 connectivityPortal = 2;

/// The four numbers of an IPv4 address; none of anything else.
QList<int> octetsOf(const QString& host)
{
    const QStringList parts = host.split(QLatin1Char('.'));
    QList<int> octets;
    for (const QString& part : parts) {
        bool isNumber = false;
        octets += part.toInt(&isNumber);
        if (!isNumber)
            return {};
    }
    return octets.size() == 4 ? octets : QList<int>();
}

bool isLoopback(const QString& host)
{
    return host == QLatin1String("localhost") || host.endsWith(QLatin1String(".localhost")) ||
           host == QLatin1String("::1") || octetsOf(host).value(0) == 127;
}

/// Whether a machine of that name or address is found without the internet.
bool isNearby(const QString& host)
{
    if (host.contains(QLatin1Char(':')))
        return host.startsWith(QLatin1String("fe80:")) || host.startsWith(QLatin1String("fc")) ||
               host.startsWith(QLatin1String("fd"));
    if (const QList<int> octets = octetsOf(host); !octets.isEmpty())
        return octets[0] == 10 || (octets[0] == 172 && octets[1] >= 16 && octets[1] < 32) ||
               (octets[0] == 192 && octets[1] == 168) || (octets[0] == 169 && octets[1] == 254);
    return !host.contains(QLatin1Char('.')) || host.endsWith(QLatin1String(".local")) ||
           host.endsWith(QLatin1String(".lan")) || host.endsWith(QLatin1String(".home.arpa"));
}

} // namespace

NetworkReachability::NetworkReachability(QString busAddress)
    : busAddress_(std::move(busAddress))
{
}

quint32 NetworkReachability::flagsFor(const QString& host, quint32 state, quint32 connectivity)
{
    if (isLoopback(host) || state == stateUnknown)
        return Reachable;
    if (isNearby(host))
        return state >= stateConnectedLocal ? Reachable : ConnectionRequired;
    if (state < stateConnectedSite)
        return ConnectionRequired;
    // A portal wants to be signed in to. "Limited" says only that one test page did not come, which a
    // firewall can be the reason of.
    return connectivity == connectivityPortal ? Reachable | InterventionRequired : Reachable;
}

void NetworkReachability::watch(const QString& host)
{
    host_ = host.toLower();
    reported_.reset();
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (begun_ || isLoopback(host_))
                report();
            else
                begin();
        },
        Qt::QueuedConnection);
}

void NetworkReachability::begin()
{
    begun_ = true;
    QDBusConnection bus = systemBus(busAddress_);
    if (!bus.isConnected()) {
        forget();
        return;
    }
    auto* watcher = new QDBusServiceWatcher(service, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &NetworkReachability::ask);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, &NetworkReachability::forget);
    bus.connect(service, path, propertiesInterface, QStringLiteral("PropertiesChanged"), this,
                SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
    ask();
}

void NetworkReachability::ask()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(service, path, propertiesInterface, QStringLiteral("GetAll"));
    question << service;
    question.setAutoStartService(false);
    auto* answer =
        new QDBusPendingCallWatcher(systemBus(busAddress_).asyncCall(question, answerTimeoutMs), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QVariantMap> reply = *answer;
        answer->deleteLater();
        if (reply.isError())
            forget();
        else
            take(reply.value());
    });
}

/// Nobody knows of the network.
void NetworkReachability::forget()
{
    take({{QStringLiteral("State"), stateUnknown}});
}

void NetworkReachability::propertiesChanged(const QString& interface, const QVariantMap& changed,
                                            const QStringList& /*invalidated*/)
{
    if (interface == service)
        take(changed);
}

void NetworkReachability::take(const QVariantMap& properties)
{
    if (const QVariant state = properties.value(QStringLiteral("State")); state.isValid())
        state_ = state.toUInt();
    connectivity_ = properties.value(QStringLiteral("Connectivity"), connectivity_).toUInt();
    report();
}

void NetworkReachability::report()
{
    if (!state_ && !isLoopback(host_))
        return; // the answer is still on its way
    const quint32 flags = flagsFor(host_, state_.value_or(stateUnknown), connectivity_);
    if (reported_ == flags)
        return;
    reported_ = flags;
    Q_EMIT flagsChanged(flags);
}

} // namespace zib
