// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"
#include "services/WebServiceClient.h"

namespace zib {

class RVFileDownloader;

/// Told how a download goes, on the main thread; the downloader may be destroyed from within each call.
/// downloadFailedForRequest can come from within the downloader's constructor, before anybody owns it.
class RVFileDownloaderDelegate {
  public:
    virtual ~RVFileDownloaderDelegate() = default;
    /// The response has begun.
    virtual void downloadGotExpectedContentLength(RVFileDownloader& /*download*/) {}
    /// Now and then while data comes.
    virtual void downloadReceivedContentLength(RVFileDownloader& /*download*/) {}
    /// The whole file is in receivedData.
    virtual void downloadCompletedForRequest(RVFileDownloader& /*request*/) {}
    /// @param withError its text is for people.
    virtual void downloadFailedForRequest(RVFileDownloader& /*request*/, const ServiceError& /*withError*/) {}
};

/// Fetches the file of one song into memory, under way from its construction on. A reply that says that there
/// is no such song is a failure, so that no error page is ever taken for music. The delegate may be null and
/// outlives the downloader. Main thread.
class RVFileDownloader final : public WebServiceClient {
  public:
    /// A longer file fails: it is held in memory until it is whole.
    static constexpr qint64 maximumBytes = qint64(512) * 1024 * 1024;
    static constexpr qint32 noUid = -1;

    /// @param dict the track record, shared with its other holders.
    RVFileDownloader(const WebServices& services, const Record& dict, RVFileDownloaderDelegate* delegate);

    [[nodiscard]] const Record& fileDict() const { return fileDict_; }
    /// Identifies the list that was shown when the download began; noUid until it is set.
    [[nodiscard]] qint32 uid() const { return uid_; }
    void setUid(qint32 uid) { uid_ = uid; }
    /// Bytes, -1 while unknown.
    [[nodiscard]] qint64 expectedContentLength() const { return expectedContentLength_; }
    /// Bytes received so far.
    [[nodiscard]] qint64 contentLength() const { return contentLength_; }

  private:
    void responseReceived(const UrlResponse& response) override;
    void dataReceived() override;
    void requestFinished() override;
    void requestFailed(const ServiceError& error) override;

    const Record fileDict_;
    RVFileDownloaderDelegate* delegate_;
    qint32 uid_ = noUid;
    qint64 expectedContentLength_ = -1;
    qint64 contentLength_ = 0;
};

} // namespace zib
