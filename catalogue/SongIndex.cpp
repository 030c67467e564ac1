// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SongIndex.h"

#include "catalogue/TextMatching.h"

#include <QCryptographicHash>
#include <QLoggingCategory>
#include <QMap>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <algorithm>

namespace zib {

namespace {

Q_LOGGING_CATEGORY(log, "zib.catalogue.index")

constexpr int batchSize = 100;
constexpr qsizetype mostTags = 12;
const QChar genreSeparator = u'\n';

bool succeeded(QSqlQuery& query)
{
    if (query.exec())
        return true;
    qCWarning(log).noquote() << query.lastError().text();
    return false;
}

QSqlQuery prepared(const QSqlDatabase& database, const char* statement)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    query.prepare(QLatin1String(statement));
    return query;
}

constexpr const char* songColumns =
    "id, path, modified, artist, album, title, year, track, seconds, folder, disc, milliseconds, date, label,"
    " country, release_type, release_id, has_picture";

IndexedSong songAt(const QSqlQuery& query)
{
    IndexedSong song;
    song.id = query.value(0).toString();
    song.path = query.value(1).toByteArray();
    song.modified = query.value(2).toLongLong();
    song.tags.artist = query.value(3).toString();
    song.tags.album = query.value(4).toString();
    song.tags.title = query.value(5).toString();
    song.tags.year = query.value(6).toInt();
    song.tags.track = query.value(7).toInt();
    song.tags.seconds = query.value(8).toInt();
    song.folder = query.value(9).toByteArray();
    song.tags.disc = query.value(10).toInt();
    song.tags.milliseconds = query.value(11).toInt();
    song.tags.date = query.value(12).toString();
    song.tags.label = query.value(13).toString();
    song.tags.country = query.value(14).toString();
    song.tags.releaseType = query.value(15).toString();
    song.tags.releaseId = query.value(16).toString();
    song.tags.hasPicture = query.value(17).toBool();
    return song;
}

/// A text that the database does not take for a missing value.
QString present(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

QStringList mostFrequent(const QHash<QString, int>& counts)
{
    QStringList names = counts.keys();
    std::sort(names.begin(), names.end(), [&counts](const QString& a, const QString& b) {
        return counts[a] != counts[b] ? counts[a] > counts[b] : a < b;
    });
    return names.mid(0, mostTags);
}

/// What the songs of one artist say together.
struct Gathered {
    QHash<QString, int> names;
    QHash<QString, int> genres;
    int songs = 0;
};

Artist madeArtist(const QString& key, const Gathered& gathered)
{
    // Before anybody has played anything: an artist whom the user has much music of is one whom the user
    // likes.
    const double share = double(gathered.songs) / (gathered.songs + 5.0);
    return {key, mostFrequent(gathered.names).value(0), mostFrequent(gathered.genres), share, share};
}

} // namespace

const DatabaseSchema& SongIndex::schema()
{
    static const DatabaseSchema schema{
        QStringLiteral("songs"),
        {
            {
                QStringLiteral("CREATE TABLE songs (id TEXT PRIMARY KEY, path BLOB NOT NULL UNIQUE,"
                               " folder BLOB NOT NULL, size INTEGER NOT NULL, modified INTEGER NOT NULL,"
                               " playable INTEGER NOT NULL, artist TEXT NOT NULL, artist_key TEXT NOT NULL,"
                               " album TEXT NOT NULL, title TEXT NOT NULL, genres TEXT NOT NULL,"
                               " year INTEGER NOT NULL, track INTEGER NOT NULL, seconds INTEGER NOT NULL)"),
                QStringLiteral("CREATE INDEX songs_artist ON songs (artist_key)"),
            },
            {
                QStringLiteral("ALTER TABLE songs ADD COLUMN disc INTEGER NOT NULL DEFAULT 0"),
                QStringLiteral("ALTER TABLE songs ADD COLUMN milliseconds INTEGER NOT NULL DEFAULT 0"),
                QStringLiteral("ALTER TABLE songs ADD COLUMN date TEXT NOT NULL DEFAULT ''"),
                QStringLiteral("ALTER TABLE songs ADD COLUMN label TEXT NOT NULL DEFAULT ''"),
                QStringLiteral("ALTER TABLE songs ADD COLUMN country TEXT NOT NULL DEFAULT ''"),
                QStringLiteral("ALTER TABLE songs ADD COLUMN release_type TEXT NOT NULL DEFAULT ''"),
                QStringLiteral("ALTER TABLE songs ADD COLUMN release_id TEXT NOT NULL DEFAULT ''"),
                QStringLiteral("ALTER TABLE songs ADD COLUMN has_picture INTEGER NOT NULL DEFAULT 0"),
                QStringLiteral("ALTER TABLE songs ADD COLUMN lyrics TEXT NOT NULL DEFAULT ''"),
                QStringLiteral("CREATE INDEX songs_release ON songs (release_id)"),
                // Files of another size than before are read again, and these hold more than was kept of
                // them.
                QStringLiteral("UPDATE songs SET size = -1"),
            },
            {
                QStringLiteral("CREATE TABLE plays (artist_key TEXT PRIMARY KEY, plays REAL NOT NULL,"
                               " time INTEGER NOT NULL)"),
            },
        }};
    return schema;
}

SongIndex::SongIndex(Database database)
    : database_(std::move(database))
{
}

QString SongIndex::songId(const QByteArray& path)
{
    return QString::fromLatin1(QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().left(32));
}

QHash<QByteArray, SongIndex::Known> SongIndex::knownFiles() const
{
    QHash<QByteArray, Known> known;
    auto query = prepared(database_.connection(), "SELECT path, size, modified FROM songs");
    succeeded(query);
    while (query.next())
        known.insert(query.value(0).toByteArray(),
                     {query.value(1).toLongLong(), query.value(2).toLongLong()});
    return known;
}

void SongIndex::keepOnly(const QList<QByteArray>& folders)
{
    QList<QByteArray> gone;
    auto query = prepared(database_.connection(), "SELECT DISTINCT folder FROM songs");
    succeeded(query);
    while (query.next()) {
        if (!folders.contains(query.value(0).toByteArray()))
            gone.append(query.value(0).toByteArray());
    }
    for (const auto& folder : gone) {
        auto removal = prepared(database_.connection(), "DELETE FROM songs WHERE folder = ?");
        removal.addBindValue(folder);
        succeeded(removal);
    }
    changed();
}

SongIndex::Update SongIndex::update(const QList<QByteArray>& folders, TagReader& reader,
                                    const Progress& progress, const std::stop_token& stop)
{
    Update update;
    const auto files = musicFiles(folders, stop);
    if (stop.stop_requested())
        return update;
    auto known = knownFiles();
    QList<MusicFile> unread;
    for (const auto& file : files) {
        const auto old = known.constFind(file.path);
        if (old == known.constEnd() || old->size != file.size || old->modified != file.modified)
            unread.append(file);
        known.remove(file.path);
    }
    if (!drop(known.keys()))
        return update;
    update.removed = int(known.size());

    for (qsizetype i = 0; i < unread.size(); i += batchSize) {
        if (!store(unread.mid(i, batchSize), reader, update, stop) || stop.stop_requested())
            return update;
        if (progress)
            progress(update.read, int(unread.size()));
    }
    update.complete = true;
    return update;
}

bool SongIndex::drop(const QList<QByteArray>& paths)
{
    if (paths.isEmpty())
        return true;
    Transaction transaction(database_.connection());
    auto removal = prepared(database_.connection(), "DELETE FROM songs WHERE path = ?");
    for (const auto& path : paths) {
        removal.bindValue(0, path);
        if (!succeeded(removal))
            return false;
    }
    const bool committed = transaction.commit();
    changed();
    return committed;
}

// A file that cannot be played is remembered too, so that it is not read again each time.
bool SongIndex::store(const QList<MusicFile>& files, TagReader& reader, Update& update,
                      const std::stop_token& stop)
{
    QList<std::pair<MusicFile, std::optional<SongTags>>> songs;
    for (const auto& file : files) {
        if (stop.stop_requested())
            break;
        songs.emplaceBack(file, reader.read(file.path)); // slow, so before the database is locked
    }
    Transaction transaction(database_.connection());
    auto insertion =
        prepared(database_.connection(),
                 "INSERT OR REPLACE INTO songs (id, path, folder, size, modified, playable, artist,"
                 " artist_key, album, title, genres, year, track, seconds, disc, milliseconds, date, label,"
                 " country, release_type, release_id, has_picture, lyrics)"
                 " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    for (const auto& [file, read] : songs) {
        const auto tags = completedTags(read.value_or(SongTags()), file.path, file.folder);
        const QVariantList values{songId(file.path),
                                  file.path,
                                  file.folder,
                                  file.size,
                                  file.modified,
                                  read.has_value(),
                                  tags.artist,
                                  folded(tags.artist),
                                  present(tags.album),
                                  present(tags.title),
                                  present(tags.genres.join(genreSeparator)),
                                  tags.year,
                                  tags.track,
                                  tags.seconds,
                                  tags.disc,
                                  tags.milliseconds,
                                  present(tags.date),
                                  present(tags.label),
                                  present(tags.country),
                                  present(tags.releaseType),
                                  present(tags.releaseId),
                                  tags.hasPicture,
                                  present(tags.lyrics)};
        for (int i = 0; i < values.size(); ++i)
            insertion.bindValue(i, values.at(i));
        if (!succeeded(insertion))
            return false;
        ++update.read;
        update.unplayable += read ? 0 : 1;
    }
    const bool committed = transaction.commit();
    changed();
    return committed;
}

void SongIndex::changed()
{
    const std::lock_guard lock(mutex_);
    artists_.reset();
    ++version_;
}

Artists SongIndex::artists() const
{
    quint64 version = 0;
    {
        const std::lock_guard lock(mutex_);
        if (artists_)
            return artists_;
        version = version_;
    }
    auto gathered = gatheredArtists();
    const std::lock_guard lock(mutex_);
    if (version == version_)
        artists_ = gathered;
    return gathered;
}

Artists SongIndex::gatheredArtists() const
{
    QMap<QString, Gathered> gathered;
    auto query = prepared(database_.connection(),
                          "SELECT artist_key, artist, genres, COUNT(*) FROM songs WHERE playable"
                          " GROUP BY artist_key, artist, genres");
    succeeded(query);
    while (query.next()) {
        auto& artist = gathered[query.value(0).toString()];
        const int songs = query.value(3).toInt();
        artist.names[query.value(1).toString()] += songs;
        for (const auto& genre : query.value(2).toString().split(genreSeparator, Qt::SkipEmptyParts))
            artist.genres[genre] += songs;
        artist.songs += songs;
    }
    QList<Artist> artists;
    for (auto entry = gathered.cbegin(); entry != gathered.cend(); ++entry)
        artists.append(madeArtist(entry.key(), entry.value()));
    return std::make_shared<const QList<Artist>>(std::move(artists));
}

QList<IndexedSong> SongIndex::songsWhere(QLatin1String condition, const QString& value, int most) const
{
    QList<IndexedSong> songs;
    auto query = QSqlQuery(database_.connection());
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT %1 FROM songs WHERE %2 = ? AND playable"
                                 " ORDER BY year, album, disc, track, title, id LIMIT ?")
                      .arg(QLatin1String(songColumns), condition));
    query.addBindValue(value);
    query.addBindValue(most);
    succeeded(query);
    while (query.next())
        songs.append(songAt(query));
    return songs;
}

QList<IndexedSong> SongIndex::songs(const QString& artistKey, int most) const
{
    return songsWhere(QLatin1String("artist_key"), artistKey, most);
}

QList<IndexedSong> SongIndex::songsOfRelease(const QString& releaseId, int most) const
{
    return releaseId.isEmpty() ? QList<IndexedSong>()
                               : songsWhere(QLatin1String("release_id"), releaseId, most);
}

std::optional<IndexedSong> SongIndex::song(const QString& id) const
{
    const auto songs = songsWhere(QLatin1String("id"), id, 1);
    return songs.isEmpty() ? std::nullopt : std::optional(songs.first());
}

QString SongIndex::lyrics(const QString& id) const
{
    auto query = prepared(database_.connection(), "SELECT lyrics FROM songs WHERE id = ? AND playable");
    query.addBindValue(id);
    return succeeded(query) && query.next() ? query.value(0).toString() : QString();
}

int SongIndex::songCount() const
{
    auto query = prepared(database_.connection(), "SELECT COUNT(*) FROM songs WHERE playable");
    return succeeded(query) && query.next() ? query.value(0).toInt() : 0;
}

} // namespace zib
