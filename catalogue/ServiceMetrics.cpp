// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ServiceMetrics.h"

#include <algorithm>

namespace zib {

namespace {

QByteArray heading(const char* name, const char* type, const char* help)
{
    return QByteArray("# HELP ") + name + ' ' + help + "\n# TYPE " + name + ' ' + type + '\n';
}

QByteArray sample(const QByteArray& name, quint64 value)
{
    return name + ' ' + QByteArray::number(value) + '\n';
}

} // namespace

void ServiceMetrics::countRequest(int status, qint64 replySize, std::chrono::microseconds duration)
{
    ++statusClasses_[size_t(std::clamp(status / 100, 0, 5))];
    const auto* bucket = std::find_if(bucketMilliseconds.begin(), bucketMilliseconds.end(),
                                      [&](int most) { return duration <= std::chrono::milliseconds(most); });
    ++durations_[size_t(bucket - bucketMilliseconds.begin())];
    microseconds_ += quint64(duration.count());
    replyBytes_ += quint64(replySize);
}

QByteArray ServiceMetrics::text() const
{
    QByteArray text = heading("zib_requests_total", "counter", "Requests by the class of their status.");
    for (size_t i = 0; i < statusClasses_.size(); ++i) {
        const QByteArray name = i == 0 ? QByteArray("none") : QByteArray::number(int(i)) + "xx";
        text += sample("zib_requests_total{status=\"" + name + "\"}", statusClasses_[i]);
    }
    text += heading("zib_request_seconds", "histogram", "From the request line to the end of the reply.");
    quint64 count = 0;
    for (size_t i = 0; i < durations_.size(); ++i) {
        count += durations_[i];
        const QByteArray most =
            i < bucketMilliseconds.size() ? QByteArray::number(bucketMilliseconds[i] / 1000.0) : "+Inf";
        text += sample("zib_request_seconds_bucket{le=\"" + most + "\"}", count);
    }
    text += "zib_request_seconds_sum " + QByteArray::number(double(microseconds_) / 1e6, 'f', 6) + '\n';
    text += sample("zib_request_seconds_count", count);
    text += heading("zib_reply_bytes_total", "counter", "Bytes of all replies' bodies.") +
            sample("zib_reply_bytes_total", replyBytes_);
    text += heading("zib_playlists_published_total", "counter", "Playlists published or published again.") +
            sample("zib_playlists_published_total", published_);
    text += heading("zib_playlists_refused_total", "counter", "Publications that were refused.") +
            sample("zib_playlists_refused_total", refused_);
    return text;
}

} // namespace zib
