// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/RVPlaylistDownloader.h"

#include "platform/Clock.h"
#include "platform/SettingsKeys.h"
#include "services/ApiKeys.h"
#include "services/BoostedArtists.h"
#include "services/Log.h"
#include "services/SongSearchReply.h"
#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>

#include <algorithm>

namespace zib {
namespace {

constexpr qsizetype mostArtists = 5;
const QString separator = QStringLiteral(", ");

/// The start of every request.
QString method(QLatin1String name)
{
    return QLatin1String("/api/v4/artist/") + name + QLatin1String("?api_key=") + songSearchApiKey;
}

QString parameters(QLatin1String prefix, const QStringList& values)
{
    QString result;
    for (const QString& value : values)
        result += prefix + QString(value).replace(QLatin1Char(' '), QLatin1Char('+'));
    return result;
}

} // namespace

RVPlaylistDownloader::RVPlaylistDownloader(const WebServices& services,
                                           RVPlaylistDownloaderDelegate* delegate)
    : WebServiceClient(services)
    , delegate_(delegate)
{
}

RVPlaylistDownloader::RVPlaylistDownloader(const WebServices& services, const QStringList& artists,
                                           bool similarArtists, RVPlaylistDownloaderDelegate* delegate)
    : WebServiceClient(services)
    , delegate_(delegate)
    , searchString_(artists.join(separator))
{
    const QStringList names = artists.first(std::min(artists.size(), mostArtists));
    searchType_ = names.size() > 1 || similarArtists ? SimilarArtists : Artist;
    // The empty name before the first one has always been sent, and the service passes over it.
    QString request = method(searchType_ == Artist ? QLatin1String("search") : QLatin1String("similar"));
    request += QLatin1String("&name=") + stringByAddingPercentEscapes(parameterStringForArtists(names));
    request += QLatin1String("&format=xml&results=100&bucket=audio&bucket=hotttnesss&bucket=familiarity");
    if (searchType_ == Artist)
        request += QLatin1String("&fuzzy_match=true");
    sendRequestWithURLString(request);
}

RVPlaylistDownloader::RVPlaylistDownloader(const WebServices& services, const QStringList& tags,
                                           RVPlaylistDownloaderDelegate* delegate)
    : WebServiceClient(services)
    , delegate_(delegate)
    , searchString_(tags.join(separator))
    , searchType_(Tags)
{
    const QString rest = QLatin1String("&bucket=audio&results=100&fuzzy_match=true&bucket=hotttnesss"
                                       "&bucket=familiarity&sort=hotttnesss-desc") +
                         parameterStringForTags(tags);
    sendRequestWithURLString(method(QLatin1String("search")) + QLatin1String("&format=xml") +
                             stringByAddingPercentEscapes(rest));
}

RVPlaylistDownloader::RVPlaylistDownloader(const WebServices& services, RecordKey key,
                                           const QList<Record>& tracks,
                                           RVPlaylistDownloaderDelegate* delegate)
    : WebServiceClient(services)
    , delegate_(delegate)
    , searchType_(Recommended)
{
    QStringList names;
    for (const Record& track : tracks)
        names += track.string(key);
    searchString_ = names.join(separator);
    const QString rest = QLatin1String("&results=100&bucket=audio&bucket=hotttnesss&bucket=familiarity") +
                         boostedArtistsParameterStringForKey(key, tracks, services.clock);
    sendRequestWithURLString(method(QLatin1String("similar")) + QLatin1String("&format=xml") +
                             stringByAddingPercentEscapes(rest));
}

void RVPlaylistDownloader::beginSearchForTopHot()
{
    searchType_ = TopHot;
    sendRequestWithURLString(method(QLatin1String("top_hottt")) +
                             QLatin1String("&format=xml&bucket=audio&bucket=id:musicbrainz&results=100"
                                           "&bucket=hotttnesss&bucket=familiarity"));
}

QString RVPlaylistDownloader::parameterStringForArtists(const QStringList& artists)
{
    return parameters(QLatin1String("&name="), artists);
}

QString RVPlaylistDownloader::parameterStringForTags(const QStringList& tags)
{
    return parameters(QLatin1String("&description="), tags);
}

QString RVPlaylistDownloader::boostedArtistsParameterStringForKey(RecordKey key,
                                                                  const QList<Record>& andTracks,
                                                                  const Clock& clock)
{
    const QStringList artists = boostedArtists(key, andTracks, secondsSince2001(clock));
    QString result;
    for (qsizetype k = 0; k < artists.size(); ++k)
        result += parameters(QLatin1String("&name="), {artists[k]}) + QLatin1Char('^') +
                  QString::number(1.0 + 0.5 * double(k), 'f', 2);
    return result;
}

void RVPlaylistDownloader::sendRequestWithURLString(const QString& pathAndQuery)
{
    sendRequest(xmlRequest(settings::SongSearchHost, pathAndQuery));
}

void RVPlaylistDownloader::requestFinished()
{
    const auto tracks = tracksOfSongSearchReply(receivedData());
    if (delegate_ == nullptr)
        return;
    if (tracks)
        delegate_->searchCompletedWithResult(*tracks, *this);
    else
        delegate_->searchFailedWithError(tracks.error().text, *this);
}

void RVPlaylistDownloader::requestFailed(const ServiceError& error)
{
    QString text;
    if (error.kind == ServiceError::Kind::NoConnection) {
        text = QCoreApplication::translate("RVPlaylistDownloader", "no connection");
    } else {
        qCWarning(servicesLog, "Connection failed! Error - %s", qUtf8Printable(error.text));
        text = QCoreApplication::translate("RVPlaylistDownloader", "Could not connect to server");
    }
    if (delegate_ != nullptr)
        delegate_->searchFailedWithError(text, *this);
}

} // namespace zib
