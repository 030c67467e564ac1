// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/RVArtistInfoDownloader.h"

#include "platform/SettingsKeys.h"
#include "services/ApiKeys.h"
#include "services/utilities/StringUtilities.h"

namespace zib {

RVArtistInfoDownloader::RVArtistInfoDownloader(const WebServices& services, const QString& artist,
                                               InfoServiceDelegate<RVArtistInfoDownloader>* delegate)
    : InfoServiceClient(services, delegate)
{
    info_.name = artist;
    sendRequest(xmlRequest(settings::MusicInfoHost, QLatin1String("/2.0/?method=artist.getinfo&api_key=") +
                                                        musicInfoApiKey + QLatin1String("&artist=") +
                                                        urlEncodedString(artist) +
                                                        QLatin1String("&autocorrect=1")));
}

void RVArtistInfoDownloader::requestFinished()
{
    readArtistInfoReply(receivedData(), info_);
    reportCompletion();
}

} // namespace zib
