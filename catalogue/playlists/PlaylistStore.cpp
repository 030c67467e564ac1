// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/playlists/PlaylistStore.h"

#include "catalogue/TextMatching.h"

#include <QCryptographicHash>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <limits>
#include <numeric>

namespace zib {

namespace {

Q_LOGGING_CATEGORY(log, "zib.catalogue.playlists")

constexpr int idAttempts = 20;
constexpr qsizetype mostQueryWords = 5;
constexpr int fewPlaylists = 500;
constexpr const char* shownColumns = "p.id, p.author, p.name, p.description, p.artists, p.tags, p.hidden, "
                                     "p.published, p.song_count, p.seconds";

/// What a term in the index is.
enum TermKind { NameWord = 0, Tag = 1 };

/// A statement on the calling thread's connection, its values bound as they are added.
class Statement {
  public:
    Statement(const QSqlDatabase& database, const QString& text)
        : query_(database)
    {
        query_.setForwardOnly(true);
        query_.prepare(text);
    }

    Statement& bind(const QString& text)
    {
        query_.addBindValue(text.isNull() ? QStringLiteral("") : text); // no text is not a missing value
        return *this;
    }
    Statement& bind(const QByteArray& bytes)
    {
        query_.addBindValue(bytes.isNull() ? QByteArray("") : bytes);
        return *this;
    }
    Statement& bind(qint64 number)
    {
        query_.addBindValue(number);
        return *this;
    }

    bool execute()
    {
        if (query_.exec())
            return true;
        qCWarning(log).noquote() << query_.lastError().text().trimmed();
        return false;
    }
    bool next() { return query_.next(); }
    [[nodiscard]] QVariant value(int column) const { return query_.value(column); }
    [[nodiscard]] int changedRows() const { return query_.numRowsAffected(); }

  private:
    QSqlQuery query_;
};

tl::unexpected<StoreError> unavailable()
{
    return tl::unexpected(StoreError::Unavailable);
}

/// The secret has 128 random bits, so a plain digest is enough to keep it from who reads the database.
QByteArray ownerOf(const QString& user)
{
    return QCryptographicHash::hash(user.toUtf8(), QCryptographicHash::Sha256);
}

QList<QByteArray> termsOf(const QString& text)
{
    QList<QByteArray> terms;
    for (const auto& word : folded(text).split(u' ', Qt::SkipEmptyParts)) {
        if (const auto term = word.toUtf8(); !terms.contains(term))
            terms.append(term);
    }
    return terms;
}

bool addTerms(const QSqlDatabase& database, TermKind kind, const QList<QByteArray>& terms, int id)
{
    return std::all_of(terms.begin(), terms.end(), [&](const QByteArray& term) {
        return Statement(
                   database,
                   QStringLiteral("INSERT INTO playlist_terms (kind, term, published, playlist)"
                                  " SELECT CAST(? AS INTEGER), ?, published, id FROM playlists WHERE id = ?"))
            .bind(kind)
            .bind(term)
            .bind(id)
            .execute();
    });
}

// Two ways to find a word: to begin with all that have it, which is quick when they are few, and to look at
// each of the newest, which is quick when they are many.
constexpr auto withWord =
    " AND p.id IN (SELECT playlist FROM playlist_terms WHERE kind = 0 AND term >= ? AND term < ?)";
constexpr auto havingWord =
    " AND EXISTS (SELECT 1 FROM playlist_terms w WHERE w.playlist = p.id AND w.kind = 0"
    " AND w.term >= ? AND w.term < ?)";

/// Behind all terms that begin with that one: no UTF-8 has this byte.
QByteArray endOf(const QByteArray& word)
{
    return word + '\xff';
}

/// How many names have a word that begins so; no more than fewPlaylists are counted.
int countOf(const QSqlDatabase& database, const QByteArray& word)
{
    Statement count(database,
                    QStringLiteral("SELECT COUNT(*) FROM (SELECT 1 FROM playlist_terms WHERE kind = 0"
                                   " AND term >= ? AND term < ? LIMIT ?) AS some"));
    return count.bind(word).bind(endOf(word)).bind(fewPlaylists).execute() && count.next()
               ? count.value(0).toInt()
               : fewPlaylists;
}

/// @return whether few names have the word that then stands first
bool putRareWordFirst(const QSqlDatabase& database, QList<QByteArray>& words)
{
    for (auto& word : words) {
        if (countOf(database, word) < fewPlaylists) {
            std::swap(words.front(), word);
            return true;
        }
    }
    return false;
}

/// Makes the publication found by its words and tags, as long as it is not hidden.
bool setTerms(const QSqlDatabase& database, const PlaylistForm& form, int id)
{
    if (!Statement(database, QStringLiteral("DELETE FROM playlist_terms WHERE playlist = ?"))
             .bind(id)
             .execute())
        return false;
    if (form.hidden)
        return true;
    QList<QByteArray> tags;
    for (const auto& tag : form.tags) {
        if (const auto term = folded(tag).toUtf8(); !tags.contains(term))
            tags.append(term);
    }
    return addTerms(database, NameWord, termsOf(form.name), id) && addTerms(database, Tag, tags, id);
}

/// The last of a publication, since on a server others wait for who has changed this row.
bool countChange(const QSqlDatabase& database)
{
    return Statement(database, QStringLiteral("UPDATE playlist_changes SET changes = changes + 1")).execute();
}

/// The columns that each publication sets, in the order of bindContent().
const QStringList& contentColumns()
{
    static const QStringList columns{
        QStringLiteral("author"),     QStringLiteral("name"),    QStringLiteral("description"),
        QStringLiteral("artists"),    QStringLiteral("tags"),    QStringLiteral("hidden"),
        QStringLiteral("song_count"), QStringLiteral("seconds"), QStringLiteral("updated"),
        QStringLiteral("songs"),      QStringLiteral("archive")};
    return columns;
}

void bindContent(Statement& statement, const PlaylistForm& form, const QList<PlaylistSong>& songs, qint64 now)
{
    const int seconds = std::accumulate(songs.begin(), songs.end(), 0,
                                        [](int sum, const PlaylistSong& song) { return sum + song.seconds; });
    statement.bind(shownUserName(form.user))
        .bind(form.name)
        .bind(form.description)
        .bind(form.artists)
        .bind(form.tags.join(u','))
        .bind(form.hidden ? 1 : 0)
        .bind(songs.size())
        .bind(seconds)
        .bind(now)
        .bind(songsAsJson(songs))
        .bind(form.archive);
}

PublishedPlaylist playlistAt(const Statement& row)
{
    return {.id = row.value(0).toInt(),
            .author = row.value(1).toString(),
            .name = row.value(2).toString(),
            .description = row.value(3).toString(),
            .artists = row.value(4).toString(),
            .tags = row.value(5).toString().split(u',', Qt::SkipEmptyParts),
            .hidden = row.value(6).toInt() != 0,
            .published = row.value(7).toLongLong(),
            .songCount = row.value(8).toInt(),
            .seconds = row.value(9).toInt()};
}

/// @return the id, or 0 when an attempt has hit one that is taken
tl::expected<int, StoreError> inserted(const QSqlDatabase& database, const PlaylistForm& form,
                                       const QList<PlaylistSong>& songs, qint64 now)
{
    static const QString text = QStringLiteral("INSERT INTO playlists (id, owner, published, ") +
                                contentColumns().join(QStringLiteral(", ")) +
                                QStringLiteral(") VALUES (?, ?, ?") +
                                QStringLiteral(", ?").repeated(contentColumns().size()) +
                                QStringLiteral(") ON CONFLICT (id) DO NOTHING");
    const int id = QRandomGenerator::system()->bounded(1, std::numeric_limits<int>::max());
    Statement statement(database, text);
    statement.bind(id).bind(ownerOf(form.user)).bind(now);
    bindContent(statement, form, songs, now);
    if (!statement.execute())
        return unavailable();
    return statement.changedRows() == 1 ? id : 0;
}

/// Replaces what the user has published under the form's id.
tl::expected<int, StoreError> replaced(const QSqlDatabase& database, const PlaylistForm& form,
                                       const QList<PlaylistSong>& songs, qint64 now)
{
    static const QString text = QStringLiteral("UPDATE playlists SET ") +
                                contentColumns().join(QStringLiteral(" = ?, ")) +
                                QStringLiteral(" = ? WHERE id = ? AND owner = ?");
    Statement update(database, text);
    bindContent(update, form, songs, now);
    if (!update.bind(*form.id).bind(ownerOf(form.user)).execute())
        return unavailable();
    if (update.changedRows() != 1)
        return tl::unexpected(StoreError::NotYours);
    return *form.id;
}

} // namespace

const DatabaseSchema& PlaylistStore::schema()
{
    static const DatabaseSchema schema{
        QStringLiteral("playlists"),
        {{
             QStringLiteral(
                 "CREATE TABLE playlists (id INTEGER PRIMARY KEY, owner {bytes} NOT NULL,"
                 " author TEXT NOT NULL, name TEXT NOT NULL, description TEXT NOT NULL,"
                 " artists TEXT NOT NULL, tags TEXT NOT NULL, hidden INTEGER NOT NULL,"
                 " published BIGINT NOT NULL, updated BIGINT NOT NULL, song_count INTEGER NOT NULL,"
                 " seconds INTEGER NOT NULL, songs {bytes} NOT NULL, archive {bytes} NOT NULL)"),
             QStringLiteral("CREATE INDEX playlists_public ON playlists (published, id) WHERE hidden = 0"),
             QStringLiteral("CREATE TABLE playlist_terms (kind INTEGER NOT NULL, term {bytes} NOT NULL,"
                            " published BIGINT NOT NULL, playlist INTEGER NOT NULL REFERENCES playlists (id)"
                            " ON DELETE CASCADE, PRIMARY KEY (kind, term, published, playlist))"),
             QStringLiteral("CREATE INDEX playlist_terms_playlist ON playlist_terms (playlist, kind, term)"),
         },
         {
             QStringLiteral("CREATE TABLE playlist_changes (changes BIGINT NOT NULL)"),
             QStringLiteral("INSERT INTO playlist_changes VALUES (0)"),
         }},
        true};
    return schema;
}

PlaylistStore::PlaylistStore(Database database)
    : database_(std::move(database))
{
}

tl::expected<int, StoreError> PlaylistStore::publish(const PlaylistForm& form,
                                                     const QList<PlaylistSong>& songs, qint64 now)
{
    const auto connection = database_.connection();
    Transaction transaction(connection);
    tl::expected<int, StoreError> id = form.id ? replaced(connection, form, songs, now) : 0;
    for (int attempt = 0; id && *id == 0 && attempt < idAttempts; ++attempt)
        id = inserted(connection, form, songs, now);
    if (!id)
        return id;
    if (*id == 0 || !setTerms(connection, form, *id) || !countChange(connection) || !transaction.commit()) {
        qCWarning(log).noquote() << "not published:" << connection.lastError().text().trimmed();
        return unavailable();
    }
    return id;
}

tl::expected<std::optional<PublishedPlaylist>, StoreError> PlaylistStore::playlist(int id) const
{
    Statement statement(database_.connection(), QStringLiteral("SELECT ") + QLatin1String(shownColumns) +
                                                    QStringLiteral(" FROM playlists p WHERE p.id = ?"));
    if (!statement.bind(id).execute())
        return unavailable();
    return statement.next() ? std::optional(playlistAt(statement)) : std::nullopt;
}

tl::expected<QList<PlaylistSong>, StoreError> PlaylistStore::songs(int id) const
{
    Statement statement(database_.connection(), QStringLiteral("SELECT songs FROM playlists WHERE id = ?"));
    if (!statement.bind(id).execute())
        return unavailable();
    return statement.next() ? songsFromJson(statement.value(0).toByteArray()) : QList<PlaylistSong>();
}

tl::expected<std::optional<QByteArray>, StoreError> PlaylistStore::archive(int id) const
{
    Statement statement(database_.connection(), QStringLiteral("SELECT archive FROM playlists WHERE id = ?"));
    if (!statement.bind(id).execute())
        return unavailable();
    return statement.next() ? std::optional(statement.value(0).toByteArray()) : std::nullopt;
}

tl::expected<QList<PublishedPlaylist>, StoreError> PlaylistStore::list(const ListQuery& query) const
{
    auto words = termsOf(query.words).mid(0, mostQueryWords);
    const auto connection = database_.connection();
    const bool begunByWord = !words.isEmpty() && putRareWordFirst(connection, words);
    const bool tagged = !query.tag.isEmpty();
    const QString place = QLatin1String(tagged ? "t.published, t.playlist" : "p.published, p.id");

    QString text = QStringLiteral("SELECT ") + QLatin1String(shownColumns) +
                   QLatin1String(tagged ? " FROM playlist_terms t JOIN playlists p ON p.id = t.playlist"
                                          " WHERE t.kind = 1 AND t.term = ?"
                                        : " FROM playlists p WHERE p.hidden = 0");
    if (query.after)
        text += QStringLiteral(" AND (%1) < (?, ?)").arg(place);
    for (qsizetype i = 0; i < words.size(); ++i)
        text += QLatin1String(i == 0 && begunByWord ? withWord : havingWord);
    text += QStringLiteral(" ORDER BY %1 DESC LIMIT ?")
                .arg(QString(place).replace(u',', QLatin1String(" DESC,")));

    Statement statement(connection, text);
    if (tagged)
        statement.bind(folded(query.tag).toUtf8());
    if (query.after)
        statement.bind(query.after->published).bind(query.after->id);
    for (const auto& word : std::as_const(words))
        statement.bind(word).bind(endOf(word));
    if (!statement.bind(listLength + 1).execute())
        return unavailable();
    QList<PublishedPlaylist> playlists;
    while (statement.next())
        playlists.append(playlistAt(statement));
    return playlists;
}

tl::expected<qint64, StoreError> PlaylistStore::changes() const
{
    Statement statement(database_.connection(), QStringLiteral("SELECT changes FROM playlist_changes"));
    if (!statement.execute() || !statement.next())
        return unavailable();
    return statement.value(0).toLongLong();
}

bool PlaylistStore::isAvailable() const
{
    return Statement(database_.connection(), QStringLiteral("SELECT 1")).execute();
}

} // namespace zib
