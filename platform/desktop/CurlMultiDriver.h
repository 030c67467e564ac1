// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/CurlHandles.h"

#include <QTimer>

#include <map>
#include <vector>

class QSocketNotifier;

namespace zib {

/// A transfer that a CurlMultiDriver drives.
class DrivenTransfer {
  public:
    virtual ~DrivenTransfer() = default;
    [[nodiscard]] virtual CURL* handle() const = 0;
    /// From within curl: notes the result and no more.
    virtual void transferDone(CURLcode result) = 0;
    /// Outside curl: hands on what has come. Anything may be done from within.
    virtual void deliver() = 0;
};

/// Drives transfers from the event loop of its thread. Nothing happens from within add().
class CurlMultiDriver {
  public:
    CurlMultiDriver();
    ~CurlMultiDriver();
    CurlMultiDriver(const CurlMultiDriver&) = delete;
    CurlMultiDriver& operator=(const CurlMultiDriver&) = delete;

    [[nodiscard]] const CurlShare& share() const { return share_; }
    /// Shares the transfer until remove().
    void add(const std::shared_ptr<DrivenTransfer>& transfer);
    /// Not from within curl. Twice is harmless.
    void remove(const DrivenTransfer& transfer);

  private:
    /// Lets go of a notifier whose own signal may be what is being handled.
    struct Retire {
        void operator()(QSocketNotifier* notifier) const;
    };
    using Notifier = std::unique_ptr<QSocketNotifier, Retire>;
    struct Watch {
        Notifier readable;
        Notifier writable;
    };

    void act(curl_socket_t socket, int events);
    void watch(curl_socket_t socket, int wanted);
    static int onSocket(CURL*, curl_socket_t socket, int wanted, void* self, void*);
    static int onTimer(CURLM*, long milliseconds, void* self);

    CurlShare share_;
    std::map<curl_socket_t, Watch> watches_;
    QTimer timer_;
    CurlMulti multi_;
    std::vector<std::shared_ptr<DrivenTransfer>> transfers_;
};

} // namespace zib
