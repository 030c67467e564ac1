// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <array>
#include <curl/curl.h>
#include <memory>
#include <mutex>
#include <utility>

namespace zib {

template <auto Free>
struct CurlDeleter {
    void operator()(auto* handle) const { Free(handle); }
};
using CurlEasy = std::unique_ptr<CURL, CurlDeleter<curl_easy_cleanup>>;
using CurlMulti = std::unique_ptr<CURLM, CurlDeleter<curl_multi_cleanup>>;
using CurlList = std::unique_ptr<curl_slist, CurlDeleter<curl_slist_free_all>>;

/// Host addresses and TLS sessions that all requests of one owner share, whatever threads they run on, so
/// that only the first song of a server waits for them.
class CurlShare {
  public:
    CurlShare();
    ~CurlShare();
    CurlShare(const CurlShare&) = delete;
    CurlShare& operator=(const CurlShare&) = delete;

    [[nodiscard]] CURLSH* handle() const { return share_; }

  private:
    static void lock(CURL*, curl_lock_data data, curl_lock_access, void* self);
    static void unlock(CURL*, curl_lock_data data, void* self);

    CURLSH* share_;
    std::array<std::mutex, CURL_LOCK_DATA_LAST> mutexes_;
};

/// Whether this is an http or https address that a request can be sent to.
[[nodiscard]] bool isRequestableUrl(const QByteArray& url);

/// A GET of that address, which goes out byte for byte; null without memory. The rules that all our requests
/// share: HTTP/1.1, http and https only, at most ten redirects where any, nothing decoded, no signals, and no
/// proxy for this machine's own addresses.
[[nodiscard]] CurlEasy makeGetRequest(const QByteArray& url, bool followRedirects, const CurlShare& share);

/// Gathers the header lines that curl hands over, of which there may be several responses' before the final
/// one's.
class ResponseHead {
  public:
    using Fields = QList<std::pair<QByteArray, QByteArray>>;

    /// @return false when there are more of them than any honest server sends.
    [[nodiscard]] bool addLine(QByteArrayView line);
    [[nodiscard]] const Fields& fields() const { return fields_; }
    /// Of the first field of that name, whatever its case; null when there is none.
    [[nodiscard]] QByteArray value(QByteArrayView name) const;

  private:
    Fields fields_;
    qsizetype bytes_ = 0;
    bool complete_ = false;
};

} // namespace zib
