// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/UrlConnection.h"
#include "platform/desktop/CurlMultiDriver.h"

namespace zib {

class UrlCache;

/// One web request on its way, answered by the cache or by the network. It gathers what comes and hands it to
/// the delegate outside of curl, so that the delegate may do anything, also cancel.
class UrlTransfer : public DrivenTransfer, public std::enable_shared_from_this<UrlTransfer> {
  public:
    UrlTransfer(UrlRequest request, UrlConnectionDelegate& delegate, std::shared_ptr<CurlMultiDriver> driver,
                std::shared_ptr<UrlCache> cache);

    /// @return false when the request can't be made.
    bool begin();
    /// Makes the request and delivers all of its events, without an event loop.
    /// @return false, without any event, when the request can't be made.
    bool perform();
    /// No event follows.
    void cancel();

    [[nodiscard]] CURL* handle() const override { return easy_.get(); }
    void transferDone(CURLcode result) override;
    void deliver() override;

  private:
    /// @return whether the cache has answered.
    bool answerFromCache();
    bool makeRequest();
    void sendBody();
    void noteResponse();
    void fail(const QString& description);
    void deliverEnd();
    [[nodiscard]] bool isWorthKeeping() const;
    size_t takeBytes(const char* bytes, size_t count);
    static size_t onBytes(char* bytes, size_t size, size_t count, void* self);
    static size_t onHeaderLine(char* bytes, size_t size, size_t count, void* self);

    const UrlRequest request_;
    UrlConnectionDelegate* delegate_; ///< null once ended or cancelled
    std::shared_ptr<CurlMultiDriver> driver_;
    std::shared_ptr<UrlCache> cache_;
    CurlEasy easy_;
    CurlList headers_; ///< those that a body adds
    QTimer patience_;

    ResponseHead head_;
    UrlResponse response_;
    bool responded_ = false; ///< response_ is that of the final response
    bool responseDelivered_ = false;
    QByteArray pending_; ///< received and not yet delivered
    QByteArray kept_;    ///< the body for the cache, while it is worth keeping
    qint64 received_ = 0;
    bool fromCache_ = false;
    bool ended_ = false;
    QString failure_; ///< null unless the request failed
    bool delivering_ = false;
};

} // namespace zib
