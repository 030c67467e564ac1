// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Database.h"

#include <QCoreApplication>
#include <QHash>
#include <QSqlError>
#include <QSqlQuery>
#include <QThreadStorage>
#include <QUrl>
#include <QUrlQuery>

#include <atomic>

namespace zib {

namespace {

const QLatin1String serverScheme("postgresql://");

/// How a connection to that location is opened.
void setUp(QSqlDatabase& database, const QString& location)
{
    if (!Database::isServer(location)) {
        database.setDatabaseName(location);
        database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=10000"));
        return;
    }
    const QUrl url(location);
    const QString folder = QUrlQuery(url).queryItemValue(QStringLiteral("host"), QUrl::FullyDecoded);
    database.setHostName(folder.isEmpty() ? url.host() : folder);
    database.setPort(url.port(-1));
    database.setDatabaseName(url.path().mid(1));
    database.setUserName(url.userName(QUrl::FullyDecoded));
    database.setPassword(url.password(QUrl::FullyDecoded));
    database.setConnectOptions(QStringLiteral("connect_timeout=10"));
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

    QSqlDatabase to(const QString& location, bool outlivesMachine)
    {
        auto database = known(location);
        if (database.isOpen() || !database.open() || Database::isServer(location))
            return database;
        QSqlQuery query(database);
        for (const auto* setting : {"foreign_keys = ON", "journal_mode = WAL",
                                    outlivesMachine ? "synchronous = FULL" : "synchronous = NORMAL"})
            query.exec(QStringLiteral("PRAGMA ") + QLatin1String(setting));
        return database;
    }

  private:
    QSqlDatabase known(const QString& location)
    {
        if (const auto name = names_.constFind(location); name != names_.constEnd())
            return QSqlDatabase::database(*name, false);
        static std::atomic<int> count = 0;
        const QString name = QStringLiteral("zib-catalogue-%1").arg(++count);
        names_.insert(location, name);
        auto database = QSqlDatabase::addDatabase(
            Database::isServer(location) ? QStringLiteral("QPSQL") : QStringLiteral("QSQLITE"), name);
        setUp(database, location);
        return database;
    }

    QHash<QString, QString> names_;
};

/// Where a database remembers the version of its tables.
class SchemaVersion {
  public:
    SchemaVersion(const QSqlDatabase& database, bool onServer, QString schema)
        : query_(database)
        , onServer_(onServer)
        , schema_(std::move(schema))
    {
    }

    /// Keeps others who start at the same moment from making the same tables, until the transaction ends; and
    /// makes the place of the versions.
    bool lock()
    {
        if (!onServer_) // to write first is what takes SQLite's lock; who reads first cannot wait for it
            return query_.exec(QStringLiteral("PRAGMA application_id = 1516855904"));
        return query_.exec(QStringLiteral("SELECT pg_advisory_xact_lock(7243392)")) &&
               query_.exec(QStringLiteral("SET LOCAL client_min_messages = warning")) &&
               query_.exec(QStringLiteral("CREATE TABLE IF NOT EXISTS schema_versions"
                                          " (name TEXT PRIMARY KEY, version INTEGER NOT NULL)"));
    }

    /// -1 when it cannot be read.
    int read()
    {
        query_.prepare(onServer_ ? QStringLiteral("SELECT max(version) FROM schema_versions WHERE name = ?")
                                 : QStringLiteral("PRAGMA user_version"));
        if (onServer_)
            query_.addBindValue(schema_);
        const int version = query_.exec() && query_.next() ? query_.value(0).toInt() : -1;
        query_.finish();
        return version;
    }

    bool write(int version)
    {
        if (!onServer_)
            return query_.exec(QStringLiteral("PRAGMA user_version = %1").arg(version));
        query_.prepare(QStringLiteral("INSERT INTO schema_versions VALUES (?, ?)"
                                      " ON CONFLICT (name) DO UPDATE SET version = excluded.version"));
        query_.addBindValue(schema_);
        query_.addBindValue(version);
        return query_.exec();
    }

    bool execute(QString statement)
    {
        return query_.exec(
            statement.replace(QLatin1String("{bytes}"), QLatin1String(onServer_ ? "BYTEA" : "BLOB")));
    }

    [[nodiscard]] QString error() const { return query_.lastError().text(); }

  private:
    QSqlQuery query_;
    const bool onServer_;
    const QString schema_;
};

/// Brings the tables up to date, all or nothing. @return what is wrong, or empty
QString migrate(const QSqlDatabase& database, bool onServer, const DatabaseSchema& schema)
{
    Transaction transaction(database);
    SchemaVersion known(database, onServer, schema.name);
    if (!known.lock())
        return known.error();
    const int version = known.read();
    if (version < 0)
        return known.error();
    if (version > schema.versions.size())
        return QCoreApplication::translate("Database", "made by a newer version of this program");
    for (int next = version; next < schema.versions.size(); ++next) {
        for (const auto& statement : schema.versions.at(next)) {
            if (!known.execute(statement))
                return known.error();
        }
        if (!known.write(next + 1))
            return known.error();
    }
    return transaction.commit() ? QString() : database.lastError().text();
}

} // namespace

bool Database::isServer(const QString& location)
{
    return location.startsWith(serverScheme);
}

tl::expected<Database, QString> Database::open(const QString& location, const DatabaseSchema& schema)
{
    const Database result(location, schema.outlivesMachine);
    const auto database = result.connection();
    const auto reason = database.isOpen() ? migrate(database, isServer(location), schema)
                                          : database.lastError().text().trimmed();
    if (reason.isEmpty())
        return result;
    const QString shown =
        isServer(location) ? QUrl(location).toString(QUrl::RemoveUserInfo | QUrl::RemoveQuery) : location;
    return tl::unexpected(QStringLiteral("%1: %2").arg(shown, reason));
}

QSqlDatabase Database::connection() const
{
    static QThreadStorage<ThreadConnections*> connections;
    if (!connections.hasLocalData())
        connections.setLocalData(new ThreadConnections);
    return connections.localData()->to(location_, outlivesMachine_);
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
