// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/UrlTransfer.h"

#include "platform/desktop/UrlCache.h"

#include <QCoreApplication>

namespace zib {

namespace {

QString words(const char* text)
{
    return QCoreApplication::translate("UrlConnection", text);
}

QString timedOut()
{
    return words(QT_TRANSLATE_NOOP("UrlConnection", "The server did not answer in time."));
}

QString tooLarge()
{
    return words(QT_TRANSLATE_NOOP("UrlConnection", "The server's reply is too large."));
}

QString describe(CURLcode result)
{
    switch (result) {
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
        return words(QT_TRANSLATE_NOOP("UrlConnection", "The server could not be found."));
    case CURLE_COULDNT_CONNECT:
        return words(QT_TRANSLATE_NOOP("UrlConnection", "The server could not be reached."));
    case CURLE_OPERATION_TIMEDOUT:
        return timedOut();
    case CURLE_TOO_MANY_REDIRECTS:
        return words(QT_TRANSLATE_NOOP("UrlConnection", "The server redirects without end."));
    case CURLE_PARTIAL_FILE:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
    case CURLE_GOT_NOTHING:
        return words(QT_TRANSLATE_NOOP("UrlConnection", "The server closed the connection early."));
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CONNECT_ERROR:
        return words(QT_TRANSLATE_NOOP("UrlConnection", "No secure connection to the server could be made."));
    default:
        return words(QT_TRANSLATE_NOOP("UrlConnection", "The server's reply could not be understood."));
    }
}

} // namespace

UrlTransfer::UrlTransfer(UrlRequest request, UrlConnectionDelegate& delegate,
                         std::shared_ptr<CurlMultiDriver> driver, std::shared_ptr<UrlCache> cache)
    : request_(std::move(request))
    , delegate_(&delegate)
    , driver_(std::move(driver))
    , cache_(std::move(cache))
{
    patience_.setSingleShot(true);
}

bool UrlTransfer::begin()
{
    if (answerFromCache()) {
        const auto deliverCached = [weak = weak_from_this()] {
            if (const auto transfer = weak.lock())
                transfer->deliver();
        };
        QTimer::singleShot(0, &patience_, deliverCached);
        return true;
    }
    if (!makeRequest())
        return false;
    const auto loseTransfer = [weak = weak_from_this()] {
        if (const auto transfer = weak.lock())
            transfer->fail(timedOut());
    };
    QObject::connect(&patience_, &QTimer::timeout, &patience_, loseTransfer);
    patience_.start(request_.timeout);
    driver_->add(shared_from_this());
    return true;
}

bool UrlTransfer::perform()
{
    if (!answerFromCache()) {
        if (!makeRequest())
            return false;
        curl_easy_setopt(easy_.get(), CURLOPT_TIMEOUT_MS, static_cast<long>(request_.timeout.count()));
        transferDone(curl_easy_perform(easy_.get()));
    }
    deliver();
    return true;
}

bool UrlTransfer::answerFromCache()
{
    if (!request_.returnCacheDataElseLoad || request_.body)
        return false;
    auto cached = cache_->find(request_.url);
    if (!cached || cached->body.size() > request_.maximumBytes)
        return false;
    fromCache_ = true;
    response_ = std::move(cached->response);
    responded_ = true;
    pending_ = std::move(cached->body);
    ended_ = true;
    return true;
}

bool UrlTransfer::makeRequest()
{
    easy_ = makeGetRequest(request_.url, true, driver_->share());
    if (!easy_)
        return false;
    CURL* const handle = easy_.get();
    curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(request_.timeout.count()));
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &UrlTransfer::onBytes);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, &UrlTransfer::onHeaderLine);
    curl_easy_setopt(handle, CURLOPT_HEADERDATA, this);
    if (request_.body)
        sendBody();
    return true;
}

void UrlTransfer::sendBody()
{
    const QByteArray contentType = "Content-Type: " + request_.body->contentType;
    headers_.reset(curl_slist_append(nullptr, contentType.constData()));
    curl_easy_setopt(easy_.get(), CURLOPT_HTTPHEADER, headers_.get());
    curl_easy_setopt(easy_.get(), CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t{request_.body->bytes.size()});
    curl_easy_setopt(easy_.get(), CURLOPT_POSTFIELDS, request_.body->bytes.constData());
}

void UrlTransfer::cancel()
{
    delegate_ = nullptr;
    patience_.stop();
    driver_->remove(*this);
}

void UrlTransfer::fail(const QString& description)
{
    ended_ = true;
    failure_ = description;
    deliver();
}

void UrlTransfer::transferDone(CURLcode result)
{
    ended_ = true;
    if (result == CURLE_OK)
        noteResponse();
    else if (failure_.isNull())
        failure_ = describe(result);
}

void UrlTransfer::noteResponse()
{
    if (std::exchange(responded_, true))
        return;
    long status = 0;
    curl_off_t length = -1;
    curl_easy_getinfo(easy_.get(), CURLINFO_RESPONSE_CODE, &status);
    curl_easy_getinfo(easy_.get(), CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
    response_.status = static_cast<int>(status);
    response_.expectedContentLength = length;
    for (const auto& [name, value] : head_.fields())
        response_.headers.append({name.toLower(), value});
}

void UrlTransfer::deliver()
{
    // A delegate that runs an event loop of its own comes here again; order is kept by the outer call.
    if (std::exchange(delivering_, true))
        return;
    const auto self = shared_from_this(); // a delegate may let go of the connection
    while (delegate_ != nullptr) {
        if (responded_ && !std::exchange(responseDelivered_, true))
            delegate_->didReceiveResponse(response_);
        else if (!pending_.isEmpty() && failure_.isNull())
            delegate_->didReceiveData(std::exchange(pending_, {}));
        else if (ended_)
            deliverEnd();
        else
            break;
    }
    delivering_ = false;
}

void UrlTransfer::deliverEnd()
{
    UrlConnectionDelegate* const delegate = delegate_;
    cancel();
    if (!failure_.isNull()) {
        delegate->didFailWithError(failure_);
        return;
    }
    if (isWorthKeeping())
        cache_->store(request_.url, {response_, kept_});
    else if (!fromCache_ && !request_.body)
        cache_->remove(request_.url); // what it held is not what the server says now
    delegate->didFinishLoading();
}

bool UrlTransfer::isWorthKeeping() const
{
    constexpr int kOk = 200;
    return !fromCache_ && !request_.body && response_.status == kOk && kept_.size() == received_ &&
           !head_.value("Cache-Control").toLower().contains("no-store");
}

size_t UrlTransfer::takeBytes(const char* bytes, size_t count)
{
    noteResponse();
    received_ += static_cast<qint64>(count);
    if (received_ > request_.maximumBytes || response_.expectedContentLength > request_.maximumBytes) {
        failure_ = tooLarge();
        return 0;
    }
    patience_.start();
    const QByteArrayView view(bytes, static_cast<qsizetype>(count));
    pending_.append(view);
    if (received_ <= cache_->maximumBodyBytes())
        kept_.append(view);
    return count;
}

size_t UrlTransfer::onBytes(char* bytes, size_t size, size_t count, void* self)
{
    return static_cast<UrlTransfer*>(self)->takeBytes(bytes, size * count);
}

size_t UrlTransfer::onHeaderLine(char* bytes, size_t size, size_t count, void* self)
{
    auto* const transfer = static_cast<UrlTransfer*>(self);
    transfer->patience_.start();
    const QByteArrayView line(bytes, static_cast<qsizetype>(size * count));
    return transfer->head_.addLine(line) ? size * count : 0;
}

} // namespace zib
