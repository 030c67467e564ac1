// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/RVFileDownloader.h"

#include "services/Log.h"

#include <QCoreApplication>

namespace zib {
namespace {

constexpr int firstErrorStatus = 400;

/// Whether to tell of the data that has come now: of every 201st piece, counted over all downloads together,
/// so that several at once cost the window no more than one.
bool isProgressDue()
{
    constexpr int piecesBetween = 200;
    static int pieces = 0;
    const bool due = pieces == piecesBetween;
    pieces = due ? 0 : pieces + 1;
    return due;
}

RVFileDownloaderDelegate noDelegate;

} // namespace

RVFileDownloader::RVFileDownloader(const WebServices& services, const Record& dict,
                                   RVFileDownloaderDelegate* delegate)
    : WebServiceClient(services)
    , fileDict_(dict)
    , delegate_(delegate != nullptr ? delegate : &noDelegate)
{
    sendRequest({.url = fileDict_.string(keys::Location).toUtf8(), .maximumBytes = maximumBytes});
}

void RVFileDownloader::responseReceived(const UrlResponse& response)
{
    if (response.status >= firstErrorStatus) {
        cancelRequest();
        requestFailed({ServiceError::Kind::Reported,
                       QCoreApplication::translate("RVFileDownloader", "The server answered with error %1.")
                           .arg(response.status)});
        return;
    }
    contentLength_ = 0;
    expectedContentLength_ = response.expectedContentLength;
    delegate_->downloadGotExpectedContentLength(*this);
}

void RVFileDownloader::dataReceived()
{
    contentLength_ = receivedData().size();
    if (isProgressDue())
        delegate_->downloadReceivedContentLength(*this);
}

void RVFileDownloader::requestFinished()
{
    delegate_->downloadCompletedForRequest(*this);
}

void RVFileDownloader::requestFailed(const ServiceError& error)
{
    if (error.kind == ServiceError::Kind::NoConnection) {
        delegate_->downloadFailedForRequest(
            *this, {error.kind,
                    QCoreApplication::translate("RVFileDownloader", "Could not establish a connection")});
        return;
    }
    qCWarning(servicesLog, "Connection failed! Error - %s %s", qUtf8Printable(error.text),
              qUtf8Printable(fileDict_.string(keys::Location)));
    delegate_->downloadFailedForRequest(*this, error);
}

} // namespace zib
