// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/CurlHandles.h"

#include <cstdlib>

namespace zib {

namespace {

void initializeCurl()
{
    static const CURLcode once = curl_global_init(CURL_GLOBAL_DEFAULT);
    Q_UNUSED(once)
}

/// What the environment exempts from its proxy, and this machine: the companion service answers there.
QByteArray hostsWithoutProxy()
{
    QByteArray hosts = qgetenv("no_proxy");
    if (hosts.isEmpty())
        hosts = qgetenv("NO_PROXY");
    if (hosts == "*")
        return hosts;
    return hosts.isEmpty() ? QByteArrayLiteral("localhost,127.0.0.1,::1")
                           : hosts + QByteArrayLiteral(",localhost,127.0.0.1,::1");
}

} // namespace

CurlShare::CurlShare()
{
    initializeCurl();
    share_ = curl_share_init();
    curl_share_setopt(share_, CURLSHOPT_LOCKFUNC, &CurlShare::lock);
    curl_share_setopt(share_, CURLSHOPT_UNLOCKFUNC, &CurlShare::unlock);
    curl_share_setopt(share_, CURLSHOPT_USERDATA, this);
    curl_share_setopt(share_, CURLSHOPT_SHARE, CURL_LOCK_DATA_DNS);
    curl_share_setopt(share_, CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION);
}

CurlShare::~CurlShare()
{
    curl_share_cleanup(share_);
}

void CurlShare::lock(CURL*, curl_lock_data data, curl_lock_access, void* self)
{
    static_cast<CurlShare*>(self)->mutexes_.at(data).lock();
}

void CurlShare::unlock(CURL*, curl_lock_data data, void* self)
{
    static_cast<CurlShare*>(self)->mutexes_.at(data).unlock();
}

bool isRequestableUrl(const QByteArray& url)
{
    if (url.contains('\0'))
        return false;
    CURLU* const parsed = curl_url();
    char* scheme = nullptr;
    const bool readable =
        parsed != nullptr &&
        curl_url_set(parsed, CURLUPART_URL, url.constData(), CURLU_PATH_AS_IS) == CURLUE_OK &&
        curl_url_get(parsed, CURLUPART_SCHEME, &scheme, 0) == CURLUE_OK;
    const QByteArrayView name(scheme);
    const bool requestable = readable && (name == "http" || name == "https");
    curl_free(scheme);
    curl_url_cleanup(parsed);
    return requestable;
}

CurlEasy makeGetRequest(const QByteArray& url, bool followRedirects, const CurlShare& share)
{
    constexpr long kMostRedirects = 10;
    initializeCurl();
    CurlEasy easy(curl_easy_init());
    if (!easy)
        return easy;
    CURL* const handle = easy.get();
    curl_easy_setopt(handle, CURLOPT_URL, url.constData());
    curl_easy_setopt(handle, CURLOPT_PATH_AS_IS, 1L);
    curl_easy_setopt(handle, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, followRedirects ? 1L : 0L);
    curl_easy_setopt(handle, CURLOPT_MAXREDIRS, kMostRedirects);
    curl_easy_setopt(handle, CURLOPT_USERAGENT, "Zib/" ZIB_VERSION);
    curl_easy_setopt(handle, CURLOPT_NOPROXY, hostsWithoutProxy().constData());
    curl_easy_setopt(handle, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    curl_easy_setopt(handle, CURLOPT_SHARE, share.handle());
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    // A name that is still being looked up must not hold up whoever cancels.
    curl_easy_setopt(handle, CURLOPT_QUICK_EXIT, 1L);
    return easy;
}

bool ResponseHead::addLine(QByteArrayView line)
{
    constexpr qsizetype kMostBytes = qsizetype{256} * 1024;
    bytes_ += line.size();
    if (bytes_ > kMostBytes)
        return false;
    const QByteArrayView text = line.trimmed();
    const qsizetype colon = text.indexOf(':');
    if (line.startsWith("HTTP/")) {
        fields_.clear();
        complete_ = false;
    } else if (text.isEmpty()) {
        complete_ = true;
    } else if (colon > 0 && !complete_) { // fields after the body say nothing that matters here
        fields_.append(
            {text.first(colon).trimmed().toByteArray(), text.sliced(colon + 1).trimmed().toByteArray()});
    }
    return true;
}

QByteArray ResponseHead::value(QByteArrayView name) const
{
    for (const auto& [field, value] : fields_) {
        if (field.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    }
    return {};
}

} // namespace zib
