// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace zib {

class PowerEvents;
class Reachability;
class UserDefaults;

/// Told of the network's and the machine's ups and downs, on the main thread.
class PKNetworkDelegate {
  public:
    virtual ~PKNetworkDelegate() = default;
    virtual void connectedToInternetNotification() {}
    virtual void disconnectedFromInternetNotification() {}
    /// The machine is about to sleep.
    virtual void pause() {}
};

/// Watches whether the configured song-search service's host can be reached, and the machine's sleep, for as
/// long as it lives. The first report follows its construction from the event loop. Main thread.
class PKNetwork : public QObject {
    Q_OBJECT

  public:
    /// All of them outlive the monitor; the delegate may be null.
    PKNetwork(Reachability& reachability, PowerEvents& powerEvents, const UserDefaults& userDefaults,
              PKNetworkDelegate* delegate);

    [[nodiscard]] PKNetworkDelegate* delegate() const { return delegate_; }
    void setDelegate(PKNetworkDelegate* delegate) { delegate_ = delegate; }

    /// Decides by the flags of Reachability: what needs a connection or somebody's hand first is offline,
    /// anything else online. While the machine sleeps changes are ignored, and none is looked up afterwards.
    void networkStatusChanged(quint32 flags);
    void machineWillSleep();
    void machineDidWake();

  private:
    void registerForNetworkNotifications();

    Reachability& reachability_;
    const UserDefaults& userDefaults_;
    PKNetworkDelegate* delegate_;
    bool isSleeping_ = false;
};

} // namespace zib
