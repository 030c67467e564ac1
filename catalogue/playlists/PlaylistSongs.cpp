// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/playlists/PlaylistSongs.h"

#include "records/KeyedArchive.h"
#include "records/RecordKeys.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

namespace zib {

namespace {

constexpr qsizetype mostSongs = 50; // the program offers no more either
constexpr qsizetype longestText = 1000;
constexpr qsizetype longestLocation = 4000;
constexpr qint64 mostSeconds = 7 * 24 * 3600;

QString shortText(const Record& track, RecordKey key)
{
    return track.string(key).simplified().left(longestText);
}

QString playableLocation(const QString& location)
{
    const QUrl url(location, QUrl::StrictMode);
    const bool isWeb = url.isValid() && !url.host().isEmpty() &&
                       (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
    return isWeb && location.size() <= longestLocation ? QString::fromLatin1(url.toEncoded()) : QString();
}

PlaylistSong songOf(const Record& track)
{
    return {.title = shortText(track, keys::Name),
            .artist = shortText(track, keys::Artist),
            .album = shortText(track, keys::Album),
            .seconds = int(std::clamp<qint64>(track.integer(keys::Duration), 0, mostSeconds)),
            .location = playableLocation(track.string(keys::Location))};
}

} // namespace

tl::expected<QList<PlaylistSong>, QString> songsOfPlaylist(const QByteArray& archive)
{
    const auto refused = [](const char* reason) { return tl::unexpected(QString::fromLatin1(reason)); };
    const auto value = unarchivedValue(archive);
    const auto* playlist = value ? value->get<Record>() : nullptr;
    if (!playlist)
        return refused("The playlist service could not read this playlist.");
    const auto tracks = playlist->records(keys::Tracks);
    if (tracks.isEmpty())
        return refused("A shared playlist must contain at least 1 song");
    if (tracks.size() > mostSongs)
        return refused("A shared playlist cannot contain more than 50 songs");
    QList<PlaylistSong> songs;
    for (const auto& track : tracks)
        songs.append(songOf(track));
    return songs;
}

QByteArray songsAsJson(const QList<PlaylistSong>& songs)
{
    QJsonArray array;
    for (const auto& song : songs)
        array.append(QJsonObject{{QStringLiteral("title"), song.title},
                                 {QStringLiteral("artist"), song.artist},
                                 {QStringLiteral("album"), song.album},
                                 {QStringLiteral("seconds"), song.seconds},
                                 {QStringLiteral("location"), song.location}});
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

QList<PlaylistSong> songsFromJson(const QByteArray& json)
{
    QList<PlaylistSong> songs;
    for (const auto value : QJsonDocument::fromJson(json).array()) {
        const auto song = value.toObject();
        songs.append({song[QStringLiteral("title")].toString(), song[QStringLiteral("artist")].toString(),
                      song[QStringLiteral("album")].toString(), song[QStringLiteral("seconds")].toInt(),
                      song[QStringLiteral("location")].toString()});
    }
    return songs;
}

} // namespace zib
