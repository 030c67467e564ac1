// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/RVDataDownloader.h"

#include "platform/SettingsKeys.h"
#include "services/ApiKeys.h"
#include "services/utilities/StringUtilities.h"

namespace zib {

RVDataDownloader::RVDataDownloader(const WebServices& services, const QString& artist,
                                   InfoServiceDelegate<RVDataDownloader>* delegate)
    : InfoServiceClient(services, delegate)
    , artist_(artist)
{
    // The empty parameter before the first one has always been sent, and the service passes over it.
    sendRequest(xmlRequest(settings::SongSearchHost,
                           QLatin1String("/api/v4/artist/profile?&format=xml&api_key=") + songSearchApiKey +
                               QLatin1String("&name=") + urlEncodedString(artist) +
                               QLatin1String("&bucket=blogs&bucket=images&bucket=news&bucket=reviews"
                                             "&bucket=video&bucket=familiarity&bucket=hotttnesss"
                                             "&bucket=terms&bucket=urls")));
}

void RVDataDownloader::requestFinished()
{
    auto profile = artistProfileOfReply(receivedData());
    if (!profile) {
        reportFailure(profile.error());
        return;
    }
    profile_ = *std::move(profile);
    reportCompletion();
}

void RVDataDownloader::logFailedConnection(const QString& description) const
{
    qCWarning(servicesLog, "Connection failed! Error - %s %s", qUtf8Printable(description),
              qUtf8Printable(artist_));
}

} // namespace zib
