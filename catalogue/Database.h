// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSqlDatabase>
#include <QString>

#include <tl/expected.hpp>

namespace zib {

/// The service's database. Each thread that asks gets a connection of its own, kept until the thread ends.
class Database {
  public:
    /// Opens the file, makes it when it is missing, and brings its tables up to date.
    /// @return a text that says what is wrong with the file
    static tl::expected<Database, QString> open(const QString& file);

    /// The calling thread's connection; not to be passed to another thread.
    [[nodiscard]] QSqlDatabase connection() const;

  private:
    explicit Database(QString file)
        : file_(std::move(file))
    {
    }

    QString file_;
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
