// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SongIndex.h"

namespace zib {

/// Which artists answer a question, in which order. Pure functions.

/// Artists of that name, the best match first. With fuzzy, those whose name holds the words of one come after
/// the equal ones, and when there is neither, names with a typing error are forgiven.
QList<Artist> artistsNamed(const QList<Artist>& artists, const QStringList& names, bool fuzzy);

enum class TagOrder { BestMatch, Hotness };

/// Artists with at least one of these tags: those that fit more of them come first; among equals the better
/// fit or the hotter artist, as asked.
QList<Artist> artistsTagged(const QList<Artist>& artists, const QStringList& descriptions, bool fuzzy,
                            TagOrder order);

/// A name with the weight that follows it as "^2.00"; without one it weighs 1.
struct BoostedName {
    QString name;
    double boost = 1;

    static BoostedName parsed(const QString& text);
};

/// Other artists that share tags with the named ones, the most alike first, among equals the one played more
/// lately. Typing errors are forgiven.
QList<Artist> artistsSimilar(const QList<Artist>& artists, const QList<BoostedName>& names);

/// All artists, the hottest first.
QList<Artist> artistsByHotness(QList<Artist> artists);

} // namespace zib
