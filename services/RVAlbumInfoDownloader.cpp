// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/RVAlbumInfoDownloader.h"

#include "platform/SettingsKeys.h"
#include "services/ApiKeys.h"
#include "services/utilities/StringUtilities.h"

namespace zib {

RVAlbumInfoDownloader::RVAlbumInfoDownloader(const WebServices& services, const Record& dict,
                                             InfoServiceDelegate<RVAlbumInfoDownloader>* delegate)
    : InfoServiceClient(services, delegate)
{
    info_.name = dict.string(keys::Album);
    sendRequest(xmlRequest(settings::MusicInfoHost, QLatin1String("/2.0/?method=album.getinfo&api_key=") +
                                                        musicInfoApiKey + QLatin1String("&artist=") +
                                                        urlEncodedString(dict.string(keys::Artist)) +
                                                        QLatin1String("&album=") + urlEncodedString(name())));
}

void RVAlbumInfoDownloader::requestFinished()
{
    readAlbumInfoReply(receivedData(), info_);
    reportCompletion();
}

} // namespace zib
