// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/UrlConnection.h"

namespace zib {

class CurlMultiDriver;
class UrlCache;

/// Web requests by libcurl on the main thread's event loop, with a cache on disk that answers first.
class CurlUrlLoader : public UrlLoader {
  public:
    /// @param cacheFolder where replies are kept; made when there is something to keep.
    /// @param maximumCacheBytes what the folder may take; the replies used longest ago leave first.
    explicit CurlUrlLoader(const QString& cacheFolder, qint64 maximumCacheBytes = qint64{50} * 1024 * 1024);
    ~CurlUrlLoader() override;

    [[nodiscard]] std::unique_ptr<UrlConnection> start(const UrlRequest& request,
                                                       UrlConnectionDelegate& delegate) override;
    [[nodiscard]] tl::expected<UrlReply, QString> load(const UrlRequest& request) override;

  private:
    // Connections hold these too, so they may outlive the loader.
    std::shared_ptr<CurlMultiDriver> driver_;
    std::shared_ptr<UrlCache> cache_;
};

} // namespace zib
