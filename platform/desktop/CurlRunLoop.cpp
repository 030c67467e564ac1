// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/CurlRunLoop.h"

#include "platform/desktop/CurlReadStream.h"

#include <algorithm>

namespace zib {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

CurlRunLoop::CurlRunLoop()
    : multi_(curl_multi_init())
{
}

CurlRunLoop::~CurlRunLoop()
{
    while (!streams_.empty())
        streams_.back()->close();
}

bool CurlRunLoop::runFor(milliseconds time)
{
    const auto end = steady_clock::now() + time;
    if (streams_.empty())
        return false;
    if (deliverEvents())
        return true;
    transfer();
    if (deliverEvents())
        return true;
    while (!woken_.exchange(false) && !isEventDue()) {
        // Rounded up: a rest of less than a millisecond must not become a busy wait.
        const auto left = std::chrono::ceil<milliseconds>(end - steady_clock::now());
        if (left <= milliseconds::zero())
            break;
        wait(left);
    }
    return true;
}

void CurlRunLoop::wake()
{
    woken_ = true;
    curl_multi_wakeup(multi_.get());
}

void CurlRunLoop::add(CurlReadStream& stream)
{
    streams_.push_back(&stream);
    curl_multi_add_handle(multi_.get(), stream.handle());
}

void CurlRunLoop::remove(CurlReadStream& stream)
{
    std::erase(streams_, &stream);
    curl_multi_remove_handle(multi_.get(), stream.handle());
}

bool CurlRunLoop::isScheduled(const CurlReadStream* stream) const
{
    return std::find(streams_.begin(), streams_.end(), stream) != streams_.end();
}

bool CurlRunLoop::isEventDue() const
{
    return std::any_of(streams_.begin(), streams_.end(),
                       [](const CurlReadStream* stream) { return stream->dueEvent().has_value(); });
}

bool CurlRunLoop::deliverEvents()
{
    // A client may close and schedule streams meanwhile; those there now get their turn if they stay.
    bool delivered = false;
    for (CurlReadStream* const stream : std::vector(streams_)) {
        if (isScheduled(stream))
            delivered = stream->deliverEvent() || delivered;
    }
    return delivered;
}

void CurlRunLoop::transfer()
{
    int running = 0;
    curl_multi_perform(multi_.get(), &running);
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(multi_.get(), &left)) {
        if (message->msg != CURLMSG_DONE)
            continue;
        char* stream = nullptr;
        curl_easy_getinfo(message->easy_handle, CURLINFO_PRIVATE, &stream);
        reinterpret_cast<CurlReadStream*>(stream)->transferDone(message->data.result);
    }
}

void CurlRunLoop::wait(milliseconds time)
{
    for (const CurlReadStream* const stream : streams_)
        time = std::min(time, stream->patienceLeft());
    const auto begin = steady_clock::now();
    curl_multi_poll(multi_.get(), nullptr, 0, static_cast<int>(time.count()), nullptr);
    const auto waited = std::chrono::floor<milliseconds>(steady_clock::now() - begin);
    transfer();
    for (CurlReadStream* const stream : streams_)
        stream->countWaiting(waited);
}

} // namespace zib
