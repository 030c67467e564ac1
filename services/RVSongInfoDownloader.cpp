// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/RVSongInfoDownloader.h"

#include "platform/SettingsKeys.h"
#include "services/ApiKeys.h"
#include "services/ServiceHosts.h"
#include "services/utilities/StringUtilities.h"

namespace zib {

namespace {

std::optional<QString> textIn(const Record& track, RecordKey key)
{
    return track.contains(key) ? std::optional(track.string(key)) : std::nullopt;
}

} // namespace

RVSongInfoDownloader::RVSongInfoDownloader(const WebServices& services, const Record& dict,
                                           InfoServiceDelegate<RVSongInfoDownloader>* delegate)
    : InfoServiceClient(services, delegate)
{
    info_.artist = textIn(dict, keys::Artist);
    info_.album = textIn(dict, keys::Album);
    info_.name = textIn(dict, keys::Name);
    const QString request = QLatin1String("/2.0/?method=track.getinfo&api_key=") + musicInfoApiKey +
                            QLatin1String("&artist=") + urlEncodedString(artist()) +
                            QLatin1String("&track=") + urlEncodedString(name()) +
                            QLatin1String("&autocorrect=1");
    sendRequest(xmlRequest(settings::MusicInfoHost, request));
}

void RVSongInfoDownloader::requestFinished()
{
    readSongInfoReply(receivedData(), musicInfoWebSite(services().userDefaults), info_);
    reportCompletion();
}

} // namespace zib
