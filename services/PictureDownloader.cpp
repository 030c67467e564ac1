// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/PictureDownloader.h"

#include "services/Log.h"

namespace zib {

PictureDownloader::PictureDownloader(const WebServices& services, const QString& address,
                                     std::function<void(const QByteArray& file)> ended)
    : WebServiceClient(services)
    , ended_(std::move(ended))
{
    sendRequest({.url = address.toUtf8(), .maximumBytes = maximumBytes});
}

void PictureDownloader::responseReceived(const UrlResponse& response)
{
    found_ = response.status >= 200 && response.status < 300;
}

void PictureDownloader::requestFinished()
{
    const auto ended = ended_; // the call may destroy this
    ended(found_ ? receivedData() : QByteArray());
}

void PictureDownloader::requestFailed(const ServiceError& error)
{
    qCInfo(servicesLog, "No picture: %s", qUtf8Printable(error.text));
    const auto ended = ended_;
    ended({});
}

} // namespace zib
