// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/RVLyricsDownloader.h"

#include "platform/SettingsKeys.h"
#include "services/Log.h"
#include "services/LyricsReply.h"
#include "services/utilities/StringUtilities.h"

namespace zib {

RVLyricsDownloader::RVLyricsDownloader(const WebServices& services, const Record& dict,
                                       LyricsServiceDelegate* delegate)
    : WebServiceClient(services)
    , delegate_(delegate)
    , artist_(dict.string(keys::Artist))
    , title_(dict.string(keys::Name))
{
    UrlRequest request =
        xmlRequest(settings::LyricsHost, QLatin1String("/apiv1.asmx/SearchLyricDirect?artist=") +
                                             urlEncodedString(artist_) + QLatin1String("&song=") +
                                             urlEncodedString(title_));
    request.returnCacheDataElseLoad = false; // lyrics are added and corrected all the time
    address_ = request.url;
    sendRequest(request);
}

void RVLyricsDownloader::requestFinished()
{
    const auto lyrics = lyricsOfReply(receivedData(), artist_, title_);
    if (!lyrics) {
        reportFailure();
        return;
    }
    lyrics_ = *lyrics;
    if (delegate_ != nullptr)
        delegate_->lyricsServiceCompletedForRequest(*this);
}

void RVLyricsDownloader::requestFailed(const ServiceError& error)
{
    if (error.kind != ServiceError::Kind::NoConnection)
        qCWarning(servicesLog, "Connection failed! Error - %s %s", qUtf8Printable(error.text),
                  address_.constData());
    reportFailure();
}

void RVLyricsDownloader::reportFailure()
{
    if (delegate_ != nullptr)
        delegate_->lyricsServiceFailedForRequest(*this);
}

} // namespace zib
