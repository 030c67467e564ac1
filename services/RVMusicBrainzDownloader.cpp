// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/RVMusicBrainzDownloader.h"

#include "platform/SettingsKeys.h"
#include "services/utilities/StringUtilities.h"

namespace zib {
namespace {

QString requestFor(const Record& album)
{
    const QString mbid = album.string(keys::Mbid);
    const QString request =
        QLatin1String("/ws/1/release/") + mbid + QLatin1String("?type=xml&inc=tracks+release-events+labels");
    if (!mbid.isEmpty())
        return request;
    return request + QLatin1String("&artist=") + URLEncodedString(album.string(keys::Artist)) +
           QLatin1String("&title=") + URLEncodedString(album.string(keys::Album));
}

} // namespace

RVMusicBrainzDownloader::RVMusicBrainzDownloader(const WebServices& services, const Record& dict,
                                                 InfoServiceDelegate<RVMusicBrainzDownloader>* delegate)
    : InfoServiceClient(services, delegate)
{
    sendRequest(xmlRequest(settings::ReleaseHost, requestFor(dict)));
}

void RVMusicBrainzDownloader::requestFinished()
{
    info_ = releaseInfoOfReply(receivedData());
    reportCompletion();
}

} // namespace zib
