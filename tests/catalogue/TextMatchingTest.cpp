// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts names that a person would call the same and the search does not, and the other way round.
#include "catalogue/TextMatching.h"

#include <gtest/gtest.h>

#include <QList>

namespace zib {
namespace {

using namespace Qt::StringLiterals;

TEST(TextMatching, Folds)
{
    const QList<std::pair<QString, QString>> cases{
        {u"Björk"_s, u"bjork"_s},
        {u"SIGUR RÓS"_s, u"sigur ros"_s},
        {u"  Two   Blanks "_s, u"two blanks"_s},
        {u"Guns N' Roses"_s, u"guns n roses"_s},
        {u"AC/DC"_s, u"ac dc"_s},
        {u"Søren Łukasz"_s, u"soren lukasz"_s},
        {u"Weiße Straße"_s, u"weisse strasse"_s},
        {u"ﬁne"_s, u"fine"_s},
        {u"The Lighthouse"_s, u"lighthouse"_s},
        {u"The The"_s, u"the"_s},
        {u"東京"_s, u"東京"_s},
        {u"!!!"_s, u"!!!"_s},
        {u""_s, u""_s},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(folded(text), expected) << text.toStdString();
}

TEST(TextMatching, Matches)
{
    struct Case {
        QString query, name;
        NameMatch match;
    };
    const QList<Case> cases{
        {u"amber tide"_s, u"Amber Tide"_s, NameMatch::SameText},
        {u"bjork"_s, u"Björk"_s, NameMatch::Folded},
        {u"Beatles"_s, u"The Beatles"_s, NameMatch::Folded},
        {u"Amber"_s, u"Amber Tide"_s, NameMatch::Words},
        {u"mber"_s, u"Amber Tide"_s, NameMatch::None},
        {u"am"_s, u"am pm"_s, NameMatch::None}, // too short to look for inside
        {u"Amber Tied"_s, u"Amber Tide"_s, NameMatch::Typo},
        {u"Ambr Tied"_s, u"Amber Tide"_s, NameMatch::Typo},
        {u"Ambr Teid X"_s, u"Amber Tide"_s, NameMatch::None},
        {u"Abmer"_s, u"Amber"_s, NameMatch::Typo},
        {u"Abmre"_s, u"Amber"_s, NameMatch::None}, // two in a short word
        {u"ABC"_s, u"ABD"_s, NameMatch::None},     // any in a very short one
        {u""_s, u"Amber"_s, NameMatch::None},
        {u" "_s, u""_s, NameMatch::None},
    };
    for (const auto& [query, name, match] : cases)
        EXPECT_EQ(NameQuery(query).match(name, folded(name)), match)
            << query.toStdString() << " in " << name.toStdString();
}

TEST(TextMatching, CountsEdits)
{
    struct Case {
        QString a, b;
        int edits;
    };
    const QList<Case> cases{
        {u""_s, u""_s, 0},        {u"abc"_s, u"abc"_s, 0},        {u"abc"_s, u"ab"_s, 1},
        {u"abc"_s, u"xabc"_s, 1}, {u"abcd"_s, u"abdc"_s, 1},      {u"abcd"_s, u"badc"_s, 2},
        {u""_s, u"ab"_s, 2},      {u"kitten"_s, u"sitting"_s, 3}, {u"abcdef"_s, u"badcfe"_s, 3},
    };
    for (const auto& [a, b, edits] : cases) {
        EXPECT_TRUE(withinEdits(a, b, edits)) << a.toStdString() << ' ' << b.toStdString();
        EXPECT_TRUE(withinEdits(b, a, edits)) << a.toStdString() << ' ' << b.toStdString();
        EXPECT_FALSE(withinEdits(a, b, edits - 1)) << a.toStdString() << ' ' << b.toStdString();
    }
}

} // namespace
} // namespace zib
