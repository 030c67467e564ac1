// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>
#include <tl/expected.hpp>
#include <utility>

namespace zib {

/// What a POST sends.
struct UrlRequestBody {
    QByteArray contentType;
    QByteArray bytes;
};

/// One web request. The address goes out byte for byte as it stands here.
struct UrlRequest {
    QByteArray url; ///< absolute, http or https, already percent-escaped
    /// Makes it a POST, which the cache neither answers nor keeps; otherwise it is a GET.
    std::optional<UrlRequestBody> body = {};
    /// A cached reply, however old, answers when there is one; otherwise the request goes out.
    bool returnCacheDataElseLoad = true;
    std::chrono::milliseconds timeout{10'000}; ///< longest time without any progress, connecting included
    /// A longer body fails the connection.
    qint64 maximumBytes = qint64(32) * 1024 * 1024;
};

struct UrlResponse {
    int status = 0;
    qint64 expectedContentLength = -1;                ///< bytes, -1 when unknown
    QList<std::pair<QByteArray, QByteArray>> headers; ///< names in lower case
};

/// A whole reply.
struct UrlReply {
    UrlResponse response;
    QByteArray body;
};

/// Receives a connection's events, on the thread that started it (the main thread), never from within
/// start(). After didFailWithError or didFinishLoading nothing follows. An HTTP error status is no failure:
/// its body is delivered like any other.
class UrlConnectionDelegate {
  public:
    virtual ~UrlConnectionDelegate() = default;
    /// Once a response begins; again after a redirect that carried a body of its own.
    virtual void didReceiveResponse(const UrlResponse&) {}
    virtual void didReceiveData(QByteArrayView) {}
    /// The description is localized, for people.
    virtual void didFailWithError(const QString& /*description*/) {}
    virtual void didFinishLoading() {}
};

/// A running request. Destroying it, also from within one of its events, cancels it: no event follows.
class UrlConnection {
  public:
    virtual ~UrlConnection() = default;
};

/// Starts web requests. Main thread.
class UrlLoader {
  public:
    virtual ~UrlLoader() = default;
    /// Starts the request; null when the address can't be requested at all. The delegate must outlive the
    /// connection.
    [[nodiscard]] virtual std::unique_ptr<UrlConnection> start(const UrlRequest& request,
                                                               UrlConnectionDelegate& delegate) = 0;
    /// Requests it and returns when the whole reply is there, or, localized for people, why there is none.
    /// Nothing else runs on the thread meanwhile, so here the request's timeout bounds the whole of it.
    [[nodiscard]] virtual tl::expected<UrlReply, QString> load(const UrlRequest& request) = 0;
};

} // namespace zib
