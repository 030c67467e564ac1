// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/UrlConnection.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <vector>

namespace zib {

/// One request that a FakeUrlLoader started: the test's end of it. Every event is dropped once the connection
/// is destroyed or has ended, so a test may send late ones.
class FakeUrlExchange {
  public:
    FakeUrlExchange(const UrlRequest& sent, UrlConnectionDelegate& delegate)
        : request(sent)
        , delegate_(&delegate)
    {
    }

    const UrlRequest request;
    /// Whether the connection was destroyed before its end.
    [[nodiscard]] bool isCancelled() const { return cancelled_; }
    /// Whether events still reach the delegate.
    [[nodiscard]] bool isRunning() const { return delegate_ != nullptr; }

    void respond(const UrlResponse& response = {200, -1, {}})
    {
        bytes_ = 0;
        if (delegate_ != nullptr)
            delegate_->didReceiveResponse(response);
    }
    void send(QByteArrayView data)
    {
        bytes_ += data.size();
        if (bytes_ > request.maximumBytes)
            fail(QStringLiteral("The reply is too long"));
        else if (delegate_ != nullptr)
            delegate_->didReceiveData(data);
    }
    void finish()
    {
        if (UrlConnectionDelegate* delegate = end())
            delegate->didFinishLoading();
    }
    void fail(const QString& description)
    {
        if (UrlConnectionDelegate* delegate = end())
            delegate->didFailWithError(description);
    }
    /// A response with that body, whole.
    void reply(QByteArrayView body, int status = 200)
    {
        respond({.status = status, .expectedContentLength = body.size(), .headers = {}});
        send(body);
        finish();
    }

  private:
    friend class FakeUrlLoader;
    UrlConnectionDelegate* end() { return std::exchange(delegate_, nullptr); }

    UrlConnectionDelegate* delegate_;
    qint64 bytes_ = 0;
    bool cancelled_ = false;
};

/// A loader whose test decides when the response, the bytes, the end and the failures come.
class FakeUrlLoader : public UrlLoader {
  public:
    std::unique_ptr<UrlConnection> start(const UrlRequest& request, UrlConnectionDelegate& delegate) override
    {
        if (refuses)
            return nullptr;
        exchanges.push_back(std::make_shared<FakeUrlExchange>(request, delegate));
        return std::make_unique<Connection>(exchanges.back());
    }
    tl::expected<UrlReply, QString> load(const UrlRequest& request) override
    {
        loaded.push_back(request);
        return onLoad(request);
    }
    /// The request started last.
    [[nodiscard]] FakeUrlExchange& last() const { return *exchanges.back(); }

    bool refuses = false; ///< no connection can be made
    std::vector<std::shared_ptr<FakeUrlExchange>> exchanges;
    std::vector<UrlRequest> loaded; ///< what was waited for
    std::function<tl::expected<UrlReply, QString>(const UrlRequest&)> onLoad = [](const UrlRequest&) {
        return tl::unexpected(QStringLiteral("The server could not be reached."));
    };

  private:
    class Connection : public UrlConnection {
      public:
        explicit Connection(std::shared_ptr<FakeUrlExchange> exchange)
            : exchange_(std::move(exchange))
        {
        }
        ~Connection() override { exchange_->cancelled_ = exchange_->end() != nullptr; }

      private:
        std::shared_ptr<FakeUrlExchange> exchange_;
    };
};

} // namespace zib
