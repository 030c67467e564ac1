// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/PlayCounts.h"

#include <QDateTime>
#include <QLoggingCategory>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <algorithm>
#include <cmath>

namespace zib {

namespace {

Q_LOGGING_CATEGORY(log, "zib.catalogue.plays")

constexpr qint64 halfLifeMs = qint64(14) * 24 * 3600 * 1000;
constexpr qint64 repeatMs = 30 * 1000;
constexpr qint64 refreshMs = 3600 * 1000; ///< scores fade so slowly that they need no newer sums
constexpr qsizetype mostBegun = 10000;

} // namespace

PlayCounts::Clock PlayCounts::systemClock()
{
    return &QDateTime::currentMSecsSinceEpoch;
}

// A clock that was put back makes nothing grow.
double PlayCounts::Score::at(qint64 now) const
{
    return plays * std::exp2(-double(std::max<qint64>(0, now - time)) / double(halfLifeMs));
}

PlayCounts::PlayCounts(Database database, Clock clock)
    : database_(std::move(database))
    , clock_(std::move(clock))
{
    QSqlQuery query(database_.connection());
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("SELECT artist_key, plays, time FROM plays")))
        qCWarning(log).noquote() << query.lastError().text();
    while (query.next())
        scores_.insert(query.value(0).toString(), {query.value(1).toDouble(), query.value(2).toLongLong()});
}

bool PlayCounts::isRepeated(const QByteArray& client, const QString& songId, qint64 now)
{
    const auto isOver = [now](qint64 begun) { return begun > now || now - begun >= repeatMs; };
    const auto key = std::pair(client, songId);
    if (const auto begun = begun_.constFind(key); begun != begun_.constEnd() && !isOver(*begun))
        return true;
    if (begun_.size() >= mostBegun)
        begun_.removeIf([&](decltype(begun_)::iterator entry) { return isOver(*entry); });
    if (begun_.size() >= mostBegun)
        return true; // so many plays in so short a time are nobody's listening
    begun_.insert(key, now);
    return false;
}

void PlayCounts::count(const QByteArray& client, const QString& songId, const QString& artistKey)
{
    const std::lock_guard lock(mutex_);
    const qint64 now = clock_();
    if (isRepeated(client, songId, now))
        return;
    auto& score = scores_[artistKey];
    score = {score.at(now) + 1, now};
    recent_.reset();
    writing_.start([this, artistKey, score] { store(artistKey, score); });
}

void PlayCounts::store(const QString& artistKey, Score score) const
{
    QSqlQuery query(database_.connection());
    query.prepare(QStringLiteral("INSERT OR REPLACE INTO plays (artist_key, plays, time) VALUES (?, ?, ?)"));
    query.addBindValue(artistKey.isNull() ? QStringLiteral("") : artistKey);
    query.addBindValue(score.plays);
    query.addBindValue(score.time);
    if (!query.exec())
        qCWarning(log).noquote() << query.lastError().text();
}

std::shared_ptr<const RecentPlays> PlayCounts::recent() const
{
    const std::lock_guard lock(mutex_);
    const qint64 now = clock_();
    if (recent_ && std::abs(now - recentTime_) < refreshMs)
        return recent_;
    auto recent = std::make_shared<RecentPlays>();
    for (auto entry = scores_.cbegin(); entry != scores_.cend(); ++entry)
        recent->insert(entry.key(), entry->at(now));
    recent_ = recent;
    recentTime_ = now;
    return recent;
}

} // namespace zib
