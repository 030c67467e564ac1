// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/InfoServiceDelegate.h"
#include "services/Log.h"
#include "services/WebServiceClient.h"

#include <QCoreApplication>

namespace zib {

/// What the clients that report to an InfoServiceDelegate share. Client is the derived class itself. The
/// delegate may be null and outlives the client.
template <class Client>
class InfoServiceClient : public WebServiceClient {
  protected:
    InfoServiceClient(const WebServices& services, InfoServiceDelegate<Client>* delegate)
        : WebServiceClient(services)
        , delegate_(delegate)
    {
    }

    /// Each is the last thing a client does: it may be destroyed meanwhile.
    /// @{
    void reportCompletion()
    {
        if (delegate_ != nullptr)
            delegate_->webServiceCompletedForRequest(static_cast<Client&>(*this));
    }
    void reportFailure(const ServiceError& error)
    {
        if (delegate_ != nullptr)
            delegate_->webServiceFailedForRequest(static_cast<Client&>(*this), error);
    }
    /// @}

    virtual void logFailedConnection(const QString& description) const
    {
        qCWarning(servicesLog, "Connection failed! %s", qUtf8Printable(description));
    }

  private:
    void requestFailed(const ServiceError& error) final
    {
        ServiceError reported = error;
        if (error.kind == ServiceError::Kind::NoConnection)
            reported.text = QCoreApplication::translate("WebServiceClient", "Connection failed");
        else
            logFailedConnection(error.text);
        reportFailure(reported);
    }

    InfoServiceDelegate<Client>* delegate_;
};

} // namespace zib
