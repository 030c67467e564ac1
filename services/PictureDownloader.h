// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/WebServiceClient.h"

#include <functional>

namespace zib {

/// Fetches the file of one picture into memory, under way from its construction on. Main thread.
class PictureDownloader final : public WebServiceClient {
  public:
    /// A longer file is not taken: a cover for a small place is some tens of kilobytes.
    static constexpr qint64 maximumBytes = qint64(16) * 1024 * 1024;

    /// @param ended called once with the file, which nobody has looked into yet, or with nothing when there
    /// is none; perhaps from within the constructor. The downloader may be destroyed from within the call.
    PictureDownloader(const WebServices& services, const QString& address,
                      std::function<void(const QByteArray& file)> ended);

  private:
    void responseReceived(const UrlResponse& response) override;
    void requestFinished() override;
    void requestFailed(const ServiceError& error) override;

    std::function<void(const QByteArray& file)> ended_;
    bool found_ = false;
};

} // namespace zib
