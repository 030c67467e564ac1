// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/WebServiceClient.h"

#include "services/ServiceHosts.h"
#include "services/XmlReply.h"

namespace zib {

WebServiceClient::~WebServiceClient() = default;

UrlRequest WebServiceClient::xmlRequest(const QString& hostKey, const QString& pathAndQuery) const
{
    return {.url = serviceAddress(services_.userDefaults, hostKey, pathAndQuery),
            .maximumBytes = maximumXmlBytes};
}

void WebServiceClient::sendRequest(const UrlRequest& request)
{
    connection_.reset();
    receivedData_.clear();
    if (!request.url.isEmpty())
        connection_ = services_.urlLoader.start(request, *this);
    if (connection_ == nullptr)
        requestFailed({ServiceError::Kind::NoConnection, {}});
}

void WebServiceClient::didReceiveResponse(const UrlResponse& response)
{
    receivedData_.truncate(0); // what came before belongs to a redirect
    responseReceived(response);
}

void WebServiceClient::didReceiveData(QByteArrayView data)
{
    receivedData_.append(data);
    dataReceived();
}

void WebServiceClient::didFailWithError(const QString& description)
{
    const ServiceError error{ServiceError::Kind::ConnectionFailed, description};
    connection_.reset(); // and with it perhaps the description
    requestFailed(error);
}

void WebServiceClient::didFinishLoading()
{
    connection_.reset();
    requestFinished();
}

} // namespace zib
