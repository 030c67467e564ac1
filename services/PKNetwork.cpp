// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/PKNetwork.h"

#include "platform/PowerEvents.h"
#include "platform/Reachability.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "services/ServiceHosts.h"

namespace zib {

PKNetwork::PKNetwork(Reachability& reachability, PowerEvents& powerEvents, const UserDefaults& userDefaults,
                     PKNetworkDelegate* delegate)
    : reachability_(reachability)
    , userDefaults_(userDefaults)
    , delegate_(delegate)
{
    connect(&reachability_, &Reachability::flagsChanged, this, &PKNetwork::networkStatusChanged);
    connect(&powerEvents, &PowerEvents::machineWillSleep, this, &PKNetwork::machineWillSleep);
    connect(&powerEvents, &PowerEvents::machineDidWake, this, &PKNetwork::machineDidWake);
    connect(&userDefaults_, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == settings::SongSearchHost)
            registerForNetworkNotifications();
    });
    registerForNetworkNotifications();
}

void PKNetwork::registerForNetworkNotifications()
{
    // Without a configured host the bundled service on this machine answers.
    const QString host = hostName(userDefaults_.string(settings::SongSearchHost));
    reachability_.watch(host.isEmpty() ? QStringLiteral("localhost") : host);
}

void PKNetwork::networkStatusChanged(quint32 flags)
{
    if (isSleeping_ || delegate_ == nullptr)
        return;
    if ((flags & (Reachability::ConnectionRequired | Reachability::InterventionRequired)) != 0)
        delegate_->disconnectedFromInternetNotification();
    else
        delegate_->connectedToInternetNotification();
}

void PKNetwork::machineWillSleep()
{
    isSleeping_ = true;
    if (delegate_ != nullptr)
        delegate_->pause();
}

void PKNetwork::machineDidWake()
{
    isSleeping_ = false;
}

} // namespace zib
