// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/playlists/PlaylistFormats.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace zib::playlists {
namespace {

const QString playlistKey = QStringLiteral("playlist");
const QString trackKey = QStringLiteral("track");
const QString titleKey = QStringLiteral("title");
const QString creatorKey = QStringLiteral("creator");
const QString albumKey = QStringLiteral("album");
const QString durationKey = QStringLiteral("duration");
const QString locationKey = QStringLiteral("location");
const QString identifierKey = QStringLiteral("identifier");

/// Forty values a song. A document of nothing but empty values would take many times its bytes.
constexpr qsizetype mostMarks = 40 * mostPlaylistEntries;

/// The first that is of use; some write one text where an array belongs.
template <typename Reader>
QString firstOf(const QJsonValue& value, Reader read)
{
    if (value.isString())
        return read(value.toString());
    const QJsonArray array = value.toArray();
    for (const QJsonValue& each : array)
        if (const QString text = read(each.toString()); !text.isEmpty())
            return text;
    return {};
}

PlaylistEntry entryOf(const QJsonObject& track, const PlaylistPlace& place)
{
    PlaylistEntry entry;
    entry.name = plainText(track.value(titleKey).toString());
    entry.artist = plainText(track.value(creatorKey).toString());
    entry.album = plainText(track.value(albumKey).toString());
    entry.durationSeconds = secondsOf(track.value(durationKey).toInteger());
    entry.location =
        firstOf(track.value(locationKey), [&place](const QString& uri) { return addressOfUri(uri, place); });
    entry.id = firstOf(track.value(identifierKey), idOf);
    return entry;
}

void add(QJsonObject& object, const QString& key, const QString& text)
{
    if (const QString plain = plainText(text); !plain.isEmpty())
        object.insert(key, plain);
}

} // namespace

Result readJspf(const QByteArray& bytes, const PlaylistPlace& place)
{
    const bool isBounded = bytes.count(',') + bytes.count('[') + bytes.count('{') <= mostMarks;
    const QJsonValue playlist =
        isBounded ? QJsonDocument::fromJson(bytes).object().value(playlistKey) : QJsonValue();
    if (!playlist.isObject())
        return tl::unexpected(QCoreApplication::translate("PlaylistFile", "It is no JSPF playlist."));
    const QJsonObject object = playlist.toObject();
    const QJsonArray tracks = object.value(trackKey).toArray();
    if (tracks.size() > mostPlaylistEntries)
        return tl::unexpected(tooManySongs());
    PlaylistDocument result;
    result.title = plainText(object.value(titleKey).toString());
    for (const QJsonValue& track : tracks)
        if (track.isObject())
            result.entries.append(entryOf(track.toObject(), place));
    return result;
}

QByteArray writeJspf(const PlaylistDocument& playlist)
{
    QJsonArray tracks;
    for (const PlaylistEntry& entry : playlist.entries) {
        QJsonObject track;
        if (const QString location = writtenLocation(entry.location); !location.isEmpty())
            track.insert(locationKey, QJsonArray{location});
        if (!entry.id.isEmpty())
            track.insert(identifierKey, QJsonArray{identifierOf(entry.id)});
        add(track, titleKey, entry.name);
        add(track, creatorKey, entry.artist);
        add(track, albumKey, entry.album);
        if (entry.durationSeconds > 0)
            track.insert(durationKey, entry.durationSeconds * 1000);
        tracks.append(track);
    }
    QJsonObject object;
    add(object, titleKey, playlist.title);
    object.insert(trackKey, tracks);
    return QJsonDocument(QJsonObject{{playlistKey, object}}).toJson();
}

} // namespace zib::playlists
