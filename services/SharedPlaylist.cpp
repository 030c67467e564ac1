// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/SharedPlaylist.h"

#include "platform/SettingsKeys.h"
#include "records/KeyedArchive.h"
#include "records/PropertyValue.h"
#include "services/ServiceHosts.h"
#include "services/utilities/Base64.h"
#include "services/utilities/StringUtilities.h"

namespace zib {

namespace {

constexpr RecordKey textKeys[] = {keys::Id,    keys::Name,     keys::Artist, keys::Album,
                                  keys::Genre, keys::Location, keys::Info};
constexpr RecordKey numberKeys[] = {keys::Year, keys::Duration, keys::Position, keys::Hotness,
                                    keys::Familiarity};

bool isOnTheWeb(const QString& location)
{
    return location.startsWith(QLatin1String("http://")) || location.startsWith(QLatin1String("https://"));
}

Record songIn(const Record& published)
{
    Record song = Record::make();
    const auto take = [&]<typename T>(RecordKey key, std::type_identity<T>) {
        const PropertyValue value = published.value(key);
        if (value.get<T>() != nullptr)
            song.set(key, value);
    };
    for (const RecordKey key : textKeys)
        take(key, std::type_identity<QString>());
    for (const RecordKey key : numberKeys)
        take(key, std::type_identity<qint64>());
    take(keys::FoundDate, std::type_identity<QDateTime>());
    return song;
}

} // namespace

UrlRequest sharedPlaylistRequest(const UserDefaults& userDefaults, const QString& identifier)
{
    constexpr qint64 mostBytes = 4 * 1024 * 1024; // of fifty songs 60 KB
    return {.url = serviceAddress(userDefaults, settings::PlaylistHost,
                                  QLatin1String("/playlists/getplaylist.php?id=") + identifier),
            .maximumBytes = mostBytes};
}

tl::expected<SharedPlaylist, QString> readSharedPlaylist(QByteArrayView reply)
{
    const auto text = URLDecodedString(QString::fromUtf8(reply));
    if (!text)
        return tl::unexpected(QStringLiteral("shared playlist: wrong escapes"));
    const QString base64 = QString(*text).replace(QLatin1Char(' '), QLatin1Char('+'));
    const auto archived = unarchivedValue(dataWithBase64EncodedString(base64));
    if (!archived)
        return tl::unexpected(archived.error());
    const auto* playlist = archived->get<Record>();
    const PropertyValue tracks = playlist != nullptr ? playlist->value(keys::Tracks) : PropertyValue();
    const PropertyValue name = playlist != nullptr ? playlist->value(keys::Name) : PropertyValue();
    if (tracks.get<PropertyArray>() == nullptr || name.get<QString>() == nullptr)
        return tl::unexpected(QStringLiteral("shared playlist: no playlist"));
    SharedPlaylist result{*name.get<QString>(), {}};
    for (const Record& track : playlist->records(keys::Tracks))
        if (!track.string(keys::Id).isEmpty() && isOnTheWeb(track.string(keys::Location)))
            result.tracks.append(songIn(track));
    return result;
}

} // namespace zib
