// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Database.h"

#include <QHash>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QThreadStorage>

#include <atomic>

namespace zib {

namespace {

/// One list of statements for each version of the tables. Once shipped, a list is never changed.
const QList<QStringList>& migrations()
{
    static const QList<QStringList> lists{
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
            // Files of another size than before are read again, and these hold more than was kept of them.
            QStringLiteral("UPDATE songs SET size = -1"),
        },
    };
    return lists;
}

/// The connections of one thread, closed with it.
class ThreadConnections {
  public:
    ThreadConnections() = default;
    ThreadConnections(const ThreadConnections&) = delete;
    ThreadConnections& operator=(const ThreadConnections&) = delete;
    ~ThreadConnections()
    {
        for (const auto& name : std::as_const(names_))
            QSqlDatabase::removeDatabase(name);
    }

    QSqlDatabase to(const QString& file)
    {
        if (const auto known = names_.constFind(file); known != names_.constEnd())
            return QSqlDatabase::database(*known, false);
        static std::atomic<int> count = 0;
        const QString name = QStringLiteral("zib-catalogue-%1").arg(++count);
        auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        database.setDatabaseName(file);
        database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=10000"));
        names_.insert(file, name);
        if (database.open()) {
            QSqlQuery query(database);
            for (const auto* setting : {"foreign_keys = ON", "journal_mode = WAL", "synchronous = NORMAL"})
                query.exec(QStringLiteral("PRAGMA ") + QLatin1String(setting));
        }
        return database;
    }

  private:
    QHash<QString, QString> names_;
};

bool executed(QSqlDatabase& database, const QStringList& statements)
{
    QSqlQuery query(database);
    return std::all_of(statements.begin(), statements.end(),
                       [&query](const QString& statement) { return query.exec(statement); });
}

} // namespace

tl::expected<Database, QString> Database::open(const QString& file)
{
    const Database result(file);
    auto database = result.connection();
    const auto failed = [&](const QString& reason) {
        return tl::unexpected(QStringLiteral("%1: %2").arg(file, reason));
    };
    QSqlQuery query(database);
    if (!database.isOpen() || !query.exec(QStringLiteral("PRAGMA user_version")) || !query.next())
        return failed(database.isOpen() ? query.lastError().text() : database.lastError().text());
    const int version = query.value(0).toInt();
    query.finish();
    if (version < 0 || version > migrations().size())
        return failed(QStringLiteral("made by a newer version of this program"));
    for (int next = version; next < migrations().size(); ++next) {
        Transaction transaction(database);
        if (!executed(database, migrations().at(next)) ||
            !executed(database, {QStringLiteral("PRAGMA user_version = %1").arg(next + 1)}) ||
            !transaction.commit())
            return failed(database.lastError().text());
    }
    return result;
}

QSqlDatabase Database::connection() const
{
    static QThreadStorage<ThreadConnections*> connections;
    if (!connections.hasLocalData())
        connections.setLocalData(new ThreadConnections);
    return connections.localData()->to(file_);
}

Transaction::Transaction(const QSqlDatabase& database)
    : database_(database)
    , open_(database_.transaction())
{
}

Transaction::~Transaction()
{
    if (open_)
        database_.rollback();
}

bool Transaction::commit()
{
    const bool committed = open_ && database_.commit();
    open_ = open_ && !committed;
    return committed;
}

} // namespace zib
