// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SongMetadata.h"

#include "records/PropertyValue.h"

#include <QDateTime>
#include <QStringList>

#include <limits>

namespace zib {
namespace {

constexpr qint64 microsecondsPerSecond = 1'000'000;
constexpr qint64 largest = std::numeric_limits<int>::max(); // of what a foreign file claims
const QString trackId = QStringLiteral("mpris:trackid");
const QString length = QStringLiteral("mpris:length");

/// Ids can come from foreign files, while a path knows letters, digits and the underscore.
QDBusObjectPath pathOf(const Record& track)
{
    QByteArray id;
    const QByteArray bytes = track.string(keys::Id).toUtf8();
    for (const char byte : bytes) {
        const bool plain =
            (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
        id += plain ? QByteArray(1, byte) : '_' + QByteArray(1, byte).toHex();
    }
    return QDBusObjectPath(QStringLiteral("/zib/song/id") + QString::fromLatin1(id));
}

} // namespace

QVariantMap songMetadata(const Record& track, int durationSeconds, const QString& artAddress)
{
    if (!track)
        return {};
    QVariantMap metadata{{trackId, QVariant::fromValue(pathOf(track))}};
    const auto text = [&](const char* key, RecordKey field) {
        if (const QString value = track.string(field); !value.isEmpty())
            metadata.insert(QLatin1String(key), value);
    };
    const auto list = [&](const char* key, RecordKey field) {
        if (const QString value = track.string(field); !value.isEmpty())
            metadata.insert(QLatin1String(key), QStringList(value));
    };
    const auto number = [&](const char* key, RecordKey field) {
        if (const qint64 value = track.integer(field); value > 0)
            metadata.insert(QLatin1String(key), int(qMin(value, largest)));
    };
    text("xesam:title", keys::Name);
    list("xesam:artist", keys::Artist);
    text("xesam:album", keys::Album);
    list("xesam:genre", keys::Genre);
    text("xesam:url", keys::Location);
    number("xesam:trackNumber", keys::Position);
    metadata.insert(QStringLiteral("xesam:useCount"),
                    int(qBound(qint64(0), track.integer(keys::PlayCount), largest)));
    metadata.insert(QStringLiteral("xesam:userRating"), track.boolean(keys::Favorite) ? 1.0 : 0.0);
    const PropertyValue date = track.value(keys::PlayDate);
    if (const auto* played = date.get<QDateTime>())
        metadata.insert(QStringLiteral("xesam:lastUsed"), played->toUTC().toString(Qt::ISODate));
    if (!artAddress.isEmpty())
        metadata.insert(QStringLiteral("mpris:artUrl"), artAddress);
    const qint64 seconds = durationSeconds > 0 ? durationSeconds : track.integer(keys::Duration);
    if (seconds > 0)
        metadata.insert(length, qMin(seconds, largest) * microsecondsPerSecond);
    return metadata;
}

QDBusObjectPath trackIdOf(const QVariantMap& metadata)
{
    return metadata.value(trackId).value<QDBusObjectPath>();
}

qint64 lengthOf(const QVariantMap& metadata)
{
    return metadata.value(length).toLongLong();
}

} // namespace zib
