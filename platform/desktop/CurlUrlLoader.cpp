// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/CurlUrlLoader.h"

#include "platform/desktop/CurlMultiDriver.h"
#include "platform/desktop/UrlCache.h"
#include "platform/desktop/UrlTransfer.h"

#include <QCoreApplication>

namespace zib {

namespace {

class CurlUrlConnection : public UrlConnection {
  public:
    explicit CurlUrlConnection(std::shared_ptr<UrlTransfer> transfer)
        : transfer_(std::move(transfer))
    {
    }
    ~CurlUrlConnection() override { transfer_->cancel(); }

  private:
    std::shared_ptr<UrlTransfer> transfer_;
};

/// Puts a reply together.
struct ReplyCollector : UrlConnectionDelegate {
    void didReceiveResponse(const UrlResponse& response) override { reply = UrlReply{response, {}}; }
    void didReceiveData(QByteArrayView data) override { reply->body.append(data); }
    void didFailWithError(const QString& description) override { reply = tl::unexpected(description); }

    tl::expected<UrlReply, QString> reply;
};

} // namespace

CurlUrlLoader::CurlUrlLoader(const QString& cacheFolder, qint64 maximumCacheBytes)
    : driver_(std::make_shared<CurlMultiDriver>())
    , cache_(std::make_shared<UrlCache>(cacheFolder, maximumCacheBytes))
{
}

CurlUrlLoader::~CurlUrlLoader() = default;

std::unique_ptr<UrlConnection> CurlUrlLoader::start(const UrlRequest& request,
                                                    UrlConnectionDelegate& delegate)
{
    if (!isRequestableUrl(request.url))
        return nullptr;
    auto transfer = std::make_shared<UrlTransfer>(request, delegate, driver_, cache_);
    if (!transfer->begin())
        return nullptr;
    return std::make_unique<CurlUrlConnection>(std::move(transfer));
}

tl::expected<UrlReply, QString> CurlUrlLoader::load(const UrlRequest& request)
{
    ReplyCollector collector;
    if (isRequestableUrl(request.url) &&
        std::make_shared<UrlTransfer>(request, collector, driver_, cache_)->perform())
        return std::move(collector.reply);
    return tl::unexpected(QCoreApplication::translate("UrlConnection", "This address cannot be opened."));
}

} // namespace zib
