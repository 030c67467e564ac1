// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/RVSongInfoDownloader.h"

#include "platform/SettingsKeys.h"
#include "services/ApiKeys.h"
#include "services/Log.h"
#include "services/ServiceHosts.h"
#include "services/XmlReply.h"
#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>

namespace zib {

namespace {

std::optional<QString> textIn(const Record& track, RecordKey key)
{
    return track.contains(key) ? std::optional(track.string(key)) : std::nullopt;
}

} // namespace

RVSongInfoDownloader::RVSongInfoDownloader(const WebServices& services, const Record& dict,
                                           RVSongInfoDownloaderDelegate* delegate)
    : WebServiceClient(services)
    , delegate_(delegate)
{
    info_.artist = textIn(dict, keys::Artist);
    info_.album = textIn(dict, keys::Album);
    info_.name = textIn(dict, keys::Name);
    const QString request = QLatin1String("/2.0/?method=track.getinfo&api_key=") + musicInfoApiKey +
                            QLatin1String("&artist=") + urlEncodedString(artist()) +
                            QLatin1String("&track=") + urlEncodedString(name()) +
                            QLatin1String("&autocorrect=1");
    sendRequest({.url = serviceAddress(services.userDefaults, settings::MusicInfoHost, request),
                 .maximumBytes = maximumXmlBytes});
}

void RVSongInfoDownloader::requestFinished()
{
    readSongInfoReply(receivedData(), musicInfoWebSite(services().userDefaults), info_);
    if (delegate_ != nullptr)
        delegate_->webServiceCompletedForRequest(*this);
}

void RVSongInfoDownloader::requestFailed(const ServiceError& error)
{
    ServiceError reported = error;
    if (error.kind == ServiceError::Kind::NoConnection)
        reported.text = QCoreApplication::translate("RVSongInfoDownloader", "Connection failed");
    else
        qCWarning(servicesLog, "Connection failed! %s", qUtf8Printable(error.text));
    if (delegate_ != nullptr)
        delegate_->webServiceFailedForRequest(*this, reported);
}

} // namespace zib
