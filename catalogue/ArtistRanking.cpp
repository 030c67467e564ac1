// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ArtistRanking.h"

#include "catalogue/TextMatching.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace zib {

namespace {

constexpr double greatestBoost = 100;

/// An artist's place in the order: the greater marks first, then the hotter, then by name.
struct Ranked {
    double mark = 0;
    double nextMark = 0;
    const Artist* artist = nullptr;
};

bool comesBefore(const Ranked& a, const Ranked& b)
{
    if (a.mark != b.mark)
        return a.mark > b.mark;
    if (a.nextMark != b.nextMark)
        return a.nextMark > b.nextMark;
    if (a.artist->hotness != b.artist->hotness)
        return a.artist->hotness > b.artist->hotness;
    return a.artist->key < b.artist->key;
}

QList<Artist> inOrder(QList<Ranked> ranked)
{
    std::sort(ranked.begin(), ranked.end(), comesBefore);
    QList<Artist> artists;
    artists.reserve(ranked.size());
    for (const auto& entry : ranked)
        artists.append(*entry.artist);
    return artists;
}

/// The weight of the tag at that place among an artist's tags.
double tagWeight(qsizetype place)
{
    return 1.0 / (1.0 + 0.4 * double(place));
}

double fit(NameMatch match, bool fuzzy)
{
    switch (match) {
    case NameMatch::SameText:
    case NameMatch::Folded:
        return 1.0;
    case NameMatch::Words:
        return 0.7;
    case NameMatch::Typo:
        return fuzzy ? 0.5 : 0.0;
    case NameMatch::None:
        break;
    }
    return 0.0;
}

/// How well the best of the artist's tags answers, 0 when none does.
double bestFit(const Artist& artist, const NameQuery& query, bool fuzzy)
{
    double best = 0;
    for (qsizetype i = 0; i < artist.tags.size(); ++i) {
        const auto& tag = artist.tags.at(i);
        best = std::max(best, fit(query.match(tag, folded(tag)), fuzzy) * tagWeight(i));
    }
    return best;
}

/// Sums of the same numbers in another order are the same.
double rounded(double sum)
{
    return std::round(sum * 1e9) / 1e9;
}

QHash<QString, double> weighedTags(const Artist& artist)
{
    QHash<QString, double> weights;
    for (qsizetype i = 0; i < artist.tags.size(); ++i) {
        auto& weight = weights[folded(artist.tags.at(i))];
        weight = std::max(weight, tagWeight(i));
    }
    return weights;
}

} // namespace

QList<Artist> artistsNamed(const QList<Artist>& artists, const QStringList& names, bool fuzzy)
{
    QList<NameQuery> queries;
    for (const auto& name : names)
        queries.append(NameQuery(name));
    QList<Ranked> found;
    QList<Ranked> mistyped;
    for (const auto& artist : artists) {
        auto best = NameMatch::None;
        for (const auto& query : queries)
            best = std::max(best, query.match(artist.name, artist.key));
        if (best == NameMatch::SameText || (fuzzy && best > NameMatch::Typo))
            found.append({double(best), 0, &artist});
        else if (fuzzy && best == NameMatch::Typo)
            mistyped.append({double(best), 0, &artist});
    }
    return inOrder(found.isEmpty() ? mistyped : found);
}

QList<Artist> artistsTagged(const QList<Artist>& artists, const QStringList& descriptions, bool fuzzy,
                            TagOrder order)
{
    QList<NameQuery> queries;
    for (const auto& description : descriptions)
        queries.append(NameQuery(description));
    QList<Ranked> found;
    for (const auto& artist : artists) {
        int fitting = 0;
        double sum = 0;
        for (const auto& query : queries) {
            const double best = bestFit(artist, query, fuzzy);
            fitting += best > 0 ? 1 : 0;
            sum += best;
        }
        if (fitting > 0)
            found.append({double(fitting), order == TagOrder::BestMatch ? sum : artist.hotness, &artist});
    }
    return inOrder(found);
}

BoostedName BoostedName::parsed(const QString& text)
{
    static const QRegularExpression boosted(QStringLiteral(R"(\A(.*)\^(\d{1,6}(?:\.\d{1,6})?)\z)"),
                                            QRegularExpression::DotMatchesEverythingOption);
    const auto match = boosted.match(text);
    if (!match.hasMatch())
        return {text};
    return {match.captured(1), std::min(match.captured(2).toDouble(), greatestBoost)};
}

QList<Artist> artistsSimilar(const QList<Artist>& artists, const QList<BoostedName>& names)
{
    QSet<QString> named;
    QHash<QString, double> wanted;
    for (const auto& [name, boost] : names) {
        const auto found = artistsNamed(artists, {name}, true);
        if (found.isEmpty())
            continue;
        named.insert(found.first().key);
        const auto weights = weighedTags(found.first());
        for (auto tag = weights.cbegin(); tag != weights.cend(); ++tag)
            wanted[tag.key()] += boost * tag.value();
    }
    QList<Ranked> alike;
    for (const auto& artist : artists) {
        double shared = 0;
        const auto weights = weighedTags(artist);
        for (auto tag = weights.cbegin(); tag != weights.cend(); ++tag)
            shared += tag.value() * wanted.value(tag.key());
        if (shared > 0 && !named.contains(artist.key))
            alike.append({rounded(shared), artist.recentPlays, &artist});
    }
    return inOrder(alike);
}

QList<Artist> artistsByHotness(QList<Artist> artists)
{
    std::sort(artists.begin(), artists.end(), [](const Artist& a, const Artist& b) {
        return a.hotness != b.hotness ? a.hotness > b.hotness : a.key < b.key;
    });
    return artists;
}

} // namespace zib
