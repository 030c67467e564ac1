// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

#include <tl/expected.hpp>

namespace zib {

/// The tables of one part of the service.
struct DatabaseSchema {
    QString name;
    /// One list of statements for each version of the tables. Once shipped, a list is never changed. Each
    /// statement is to hold for both kinds of database; "{bytes}" stands for the type of a run of bytes.
    QList<QStringList> versions;
    /// Whether what is committed outlives a failure of the machine, and not only of the program.
    bool outlivesMachine = false;
};

/// A database of the service: an SQLite file, or one on a PostgreSQL server, which several processes may
/// share. Each thread that asks gets a connection of its own, kept until the thread ends.
class Database {
  public:
    /// Opens the file or server, makes the file when it is missing, and brings the tables up to date.
    /// @param location a file, or postgresql://[USER[:PASSWORD]@]HOST[:PORT]/NAME, where ?host=FOLDER names
    /// the folder of a local server's socket
    /// @return a text that says what is wrong, without the password
    static tl::expected<Database, QString> open(const QString& location, const DatabaseSchema& schema);
    /// Whether that names a database server and not a file.
    static bool isServer(const QString& location);

    /// The calling thread's connection; not to be passed to another thread. One that the server has closed is
    /// opened again.
    [[nodiscard]] QSqlDatabase connection() const;

  private:
    Database(QString location, bool outlivesMachine)
        : location_(std::move(location))
        , outlivesMachine_(outlivesMachine)
    {
    }

    QString location_;
    bool outlivesMachine_;
};

/// Commits what was done since it was made, when told so; else undoes it.
class Transaction {
  public:
    explicit Transaction(const QSqlDatabase& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    bool commit();

  private:
    QSqlDatabase database_;
    bool open_;
};

} // namespace zib
