// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/RVPlaylistUploader.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "records/KeyedArchive.h"
#include "records/PropertyValue.h"
#include "services/Log.h"
#include "services/ServiceHosts.h"
#include "services/ShareUserName.h"
#include "services/utilities/Base64.h"

#include <QCoreApplication>

namespace zib {

namespace {

QString withoutAmpersands(QString value)
{
    return value.replace(QLatin1Char('&'), QLatin1String("^AMP;"));
}

/// As text, whether it is kept as a number or as text.
QString identifierIn(const Record& playlist)
{
    const PropertyValue value = playlist.value(keys::Id);
    return value.get<QString>() != nullptr ? *value.get<QString>()
                                           : QString::number(playlist.integer(keys::Id));
}

/// Everybody can fetch it, so the secret by which the service knows the user stays out of it.
QByteArray archiveOf(const Record& playlist)
{
    Record published = playlist.copy();
    if (published.contains(keys::Username))
        published.set(keys::Username, withoutSecret(playlist.string(keys::Username)));
    return archivedData(published);
}

} // namespace

QString artistSummary(const QList<Record>& tracks)
{
    constexpr int mostArtists = 5;
    const QLatin1String separator(", ");
    QString summary;
    int artists = 0;
    for (const Record& track : tracks) {
        const QString entry = track.string(keys::Artist) + separator;
        if (artists == mostArtists || entry.size() == separator.size() ||
            summary.contains(entry, Qt::CaseInsensitive))
            continue;
        summary += entry;
        ++artists;
    }
    summary.chop(artists == 0 ? 0 : separator.size());
    return summary;
}

QByteArray playlistForm(const Record& playlist, bool isPublic)
{
    const QString description = playlist.string(keys::Description);
    QString form = QLatin1String("user=") + playlist.string(keys::Username) + QLatin1String("&name=") +
                   playlist.string(keys::Name) + QLatin1String("&description=") + description +
                   QLatin1String("&hidden=") + QLatin1String(isPublic ? "0" : "1") + QLatin1String("&data=") +
                   QString::fromLatin1(base64Encoding(archiveOf(playlist)));
    if (playlist.contains(keys::Id))
        form += QLatin1String("&id=") + identifierIn(playlist);
    if (playlist.contains(keys::Tags))
        form += QLatin1String("&tags=") + withoutAmpersands(playlist.string(keys::Tags));
    form += QLatin1String("&description=") + withoutAmpersands(description + QLatin1String("^1;") +
                                                               artistSummary(playlist.records(keys::Tracks)));
    return form.toUtf8();
}

RVPlaylistUploader::RVPlaylistUploader(const WebServices& services, const Record& dict,
                                       RVPlaylistUploaderDelegate& delegate, int tag)
    : WebServiceClient(services)
    , delegate_(delegate)
    , uid_(qint32(identifierIn(dict).toLongLong()))
    , tag_(tag)
{
    constexpr qint64 mostReplyBytes = 64 * 1024; // of a line
    const bool isPublic = services.userDefaults.boolean(settings::WantsPublicShare);
    sendRequest({.url = serviceAddress(services.userDefaults, settings::PlaylistHost,
                                       QStringLiteral("/playlists/addplaylist.php")),
                 .body = UrlRequestBody{"application/x-www-form-urlencoded", playlistForm(dict, isPublic)},
                 .maximumBytes = mostReplyBytes});
}

void RVPlaylistUploader::requestFinished()
{
    const QString reply = QString::fromUtf8(receivedData());
    if (reply.startsWith(QLatin1String("OK")))
        delegate_.uploadCompletedWithResult(reply, *this);
    else
        delegate_.uploadFailedWithError(reply, *this);
}

void RVPlaylistUploader::requestFailed(const ServiceError& error)
{
    if (error.kind != ServiceError::Kind::NoConnection)
        qCWarning(servicesLog, "Connection failed! Error - %s", qUtf8Printable(error.text));
    delegate_.uploadFailedWithError(
        QCoreApplication::translate("RVPlaylistUploader", "Could not connect to server"), *this);
}

} // namespace zib
