// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/CurlMultiDriver.h"

#include <QSocketNotifier>

#include <algorithm>

namespace zib {

void CurlMultiDriver::Retire::operator()(QSocketNotifier* notifier) const
{
    notifier->setEnabled(false);
    notifier->deleteLater();
}

CurlMultiDriver::CurlMultiDriver()
    : multi_(curl_multi_init())
{
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { act(CURL_SOCKET_TIMEOUT, 0); });
    curl_multi_setopt(multi_.get(), CURLMOPT_SOCKETFUNCTION, &CurlMultiDriver::onSocket);
    curl_multi_setopt(multi_.get(), CURLMOPT_SOCKETDATA, this);
    curl_multi_setopt(multi_.get(), CURLMOPT_TIMERFUNCTION, &CurlMultiDriver::onTimer);
    curl_multi_setopt(multi_.get(), CURLMOPT_TIMERDATA, this);
}

CurlMultiDriver::~CurlMultiDriver() = default;

void CurlMultiDriver::add(const std::shared_ptr<DrivenTransfer>& transfer)
{
    transfers_.push_back(transfer);
    curl_multi_add_handle(multi_.get(), transfer->handle());
}

void CurlMultiDriver::remove(const DrivenTransfer& transfer)
{
    const auto place = std::find_if(transfers_.begin(), transfers_.end(),
                                    [&transfer](const auto& held) { return held.get() == &transfer; });
    if (place == transfers_.end())
        return;
    const auto held = *place; // kept to the end: it may be the last one
    transfers_.erase(place);
    curl_multi_remove_handle(multi_.get(), held->handle());
}

void CurlMultiDriver::act(curl_socket_t socket, int events)
{
    int running = 0;
    curl_multi_socket_action(multi_.get(), socket, events, &running);
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(multi_.get(), &left)) {
        const auto done = std::find_if(transfers_.begin(), transfers_.end(), [message](const auto& transfer) {
            return transfer->handle() == message->easy_handle;
        });
        if (message->msg == CURLMSG_DONE && done != transfers_.end())
            (*done)->transferDone(message->data.result);
    }
    // A delegate may remove any transfer, and destroy the owner of this driver.
    for (const auto& transfer : std::vector(transfers_))
        transfer->deliver();
}

void CurlMultiDriver::watch(curl_socket_t socket, int wanted)
{
    if (wanted == CURL_POLL_REMOVE) {
        watches_.erase(socket);
        return;
    }
    Watch& watch = watches_[socket];
    const auto set = [this, socket](Notifier& notifier, QSocketNotifier::Type type, bool enabled, int event) {
        if (!notifier && enabled) {
            notifier.reset(new QSocketNotifier(socket, type));
            QObject::connect(notifier.get(), &QSocketNotifier::activated, &timer_,
                             [this, socket, event] { act(socket, event); });
        }
        if (notifier)
            notifier->setEnabled(enabled);
    };
    set(watch.readable, QSocketNotifier::Read, (wanted & CURL_POLL_IN) != 0, CURL_CSELECT_IN);
    set(watch.writable, QSocketNotifier::Write, (wanted & CURL_POLL_OUT) != 0, CURL_CSELECT_OUT);
}

int CurlMultiDriver::onSocket(CURL*, curl_socket_t socket, int wanted, void* self, void*)
{
    static_cast<CurlMultiDriver*>(self)->watch(socket, wanted);
    return 0;
}

int CurlMultiDriver::onTimer(CURLM*, long milliseconds, void* self)
{
    QTimer& timer = static_cast<CurlMultiDriver*>(self)->timer_;
    if (milliseconds < 0)
        timer.stop();
    else
        timer.start(static_cast<int>(milliseconds));
    return 0;
}

} // namespace zib
