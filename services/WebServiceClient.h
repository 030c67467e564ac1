// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/UrlConnection.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace zib {

class Clock;
class UserDefaults;

/// What the web-service clients need of the world. All of it outlives them.
struct WebServices {
    UrlLoader& urlLoader;
    const UserDefaults& userDefaults; ///< names the hosts; read when a request is made
    const Clock& clock;
};

/// Why a request did not give what was asked for.
struct ServiceError {
    enum class Kind {
        NoConnection,     ///< the request could not even be started
        ConnectionFailed, ///< the network, or no progress for too long
        Reported,         ///< the service said so
        NotUnderstood,    ///< the reply is not what the service's replies are
    };
    Kind kind;
    QString text; ///< of NoConnection empty, else what the loader, the service or we have to say
};

/// One request to one web service: what all clients share. The derived class starts it from its constructor
/// and is told once how it ended. Destroying the client, also from within its report, cancels the request.
/// Main thread.
class WebServiceClient : private UrlConnectionDelegate {
  public:
    WebServiceClient(const WebServiceClient&) = delete;
    WebServiceClient& operator=(const WebServiceClient&) = delete;
    ~WebServiceClient() override;

    /// The reply so far.
    [[nodiscard]] const QByteArray& receivedData() const { return receivedData_; }

  protected:
    explicit WebServiceClient(const WebServices& services)
        : services_(services)
    {
    }

    [[nodiscard]] const WebServices& services() const { return services_; }
    /// A request to an outside service for an XML reply.
    /// @param hostKey the setting that names the service's host; with no host there, no request can be made.
    /// @param pathAndQuery from the slash on, already percent-escaped.
    [[nodiscard]] UrlRequest xmlRequest(const QString& hostKey, const QString& pathAndQuery) const;
    /// Starts the request in place of any other of this client. When it can't be started, requestFailed comes
    /// from within this call; everything else comes from the event loop.
    void sendRequest(const UrlRequest& request);

    /// Drops the request: nothing more is told of it.
    void cancelRequest() { connection_.reset(); }

    /// A response has begun, receivedData is empty; more of it has come. The last thing that is done for the
    /// event: the client may be destroyed meanwhile.
    /// @{
    virtual void responseReceived(const UrlResponse& /*response*/) {}
    virtual void dataReceived() {}
    /// @}
    /// The whole reply is in receivedData. The last thing this client does: it may be destroyed meanwhile.
    virtual void requestFinished() = 0;
    /// No reply. The last thing this client does: it may be destroyed meanwhile.
    virtual void requestFailed(const ServiceError& error) = 0;

  private:
    void didReceiveResponse(const UrlResponse& response) override;
    void didReceiveData(QByteArrayView data) override;
    void didFailWithError(const QString& description) override;
    void didFinishLoading() override;

    WebServices services_;
    QByteArray receivedData_;
    std::unique_ptr<UrlConnection> connection_;
};

} // namespace zib
