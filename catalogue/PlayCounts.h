// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Database.h"
#include "catalogue/WorkerPool.h"

#include <QHash>

#include <functional>
#include <memory>
#include <mutex>

namespace zib {

/// How much each artist is played now, by artist key: each play counts one, half after two weeks, a quarter
/// after four.
using RecentPlays = QHash<QString, double>;

/// Counts the plays of each artist's songs, in memory and, for the next start, in the index's database. Any
/// thread; none waits for the database.
class PlayCounts {
  public:
    /// Milliseconds since 1970.
    using Clock = std::function<qint64()>;

    explicit PlayCounts(Database database, Clock clock = systemClock());

    /// Counts one play, unless the same client has begun the same song less than half a minute ago: players
    /// ask again when a stream breaks off.
    void count(const QByteArray& client, const QString& songId, const QString& artistKey);

    /// The same object as long as it tells about the same.
    [[nodiscard]] std::shared_ptr<const RecentPlays> recent() const;

    static Clock systemClock();

  private:
    /// A sum of plays as it was at a time; it halves with each half-life since.
    struct Score {
        double plays = 0;
        qint64 time = 0;

        [[nodiscard]] double at(qint64 now) const;
    };

    [[nodiscard]] bool isRepeated(const QByteArray& client, const QString& songId, qint64 now);
    void store(const QString& artistKey, Score score) const;

    const Database database_;
    const Clock clock_;

    mutable std::mutex mutex_; ///< guards what follows
    QHash<QString, Score> scores_;
    QHash<std::pair<QByteArray, QString>, qint64> begun_; ///< by client and song, when lately
    mutable std::shared_ptr<const RecentPlays> recent_;   ///< empty when somebody has played since
    mutable qint64 recentTime_ = 0;

    WorkerPool writing_{1}; ///< last: its thread uses the database
};

} // namespace zib
