// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/BoostedArtists.h"

#include "services/utilities/WildcardMatch.h"

#include <QSet>

#include <algorithm>
#include <tuple>
#include <vector>

namespace zib {
namespace {

struct Entry {
    QString value;
    qint64 weight = 0;    ///< how often its tracks were played
    qint64 frequency = 0; ///< how many tracks it has
};

} // namespace

QStringList fiveOf(QStringList values, qint64 scramble)
{
    const qsizetype n = values.size();
    if (n <= 5)
        return values;
    const auto seconds = static_cast<qint32>(scramble);
    for (qsizetype i = 0; i < 6; ++i) {
        qsizetype j = seconds % (n - i) + i;
        if (j < 0) // a clock before 2001
            j += n - i;
        values.swapItemsAt(i, j);
    }
    values.remove(4, n - 5);
    return values;
}

QStringList boostedArtists(RecordKey key, const QList<Record>& tracks, qint64 scramble)
{
    QStringList values;
    QSet<QString> seen;
    for (const Record& track : tracks) {
        const QString value = track.string(key);
        if (!value.isEmpty() && !seen.contains(value)) {
            seen.insert(value);
            values += value;
        }
    }
    std::vector<Entry> entries;
    for (const QString& value : fiveOf(values, scramble)) {
        Entry entry{value};
        const WildcardMatch pattern(value,
                                    WildcardMatch::CaseInsensitive | WildcardMatch::DiacriticInsensitive);
        for (const Record& track : tracks) {
            if (pattern.matches(track.string(key))) {
                ++entry.frequency;
                entry.weight += track.integer(keys::PlayCount);
            }
        }
        entries.push_back(std::move(entry));
    }
    std::ranges::stable_sort(entries, {}, [](const Entry& e) { return std::tuple(e.weight, e.frequency); });
    QStringList result;
    for (const Entry& entry : entries)
        result += entry.value;
    return result;
}

} // namespace zib
