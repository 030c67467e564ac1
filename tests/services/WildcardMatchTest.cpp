// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: names that differ only in case or accents counted apart, ordinary characters taken for wildcards.
#include "services/utilities/WildcardMatch.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

constexpr auto Both = WildcardMatch::CaseInsensitive | WildcardMatch::DiacriticInsensitive;
constexpr WildcardMatch::Options Exact;

TEST(WildcardMatch, Table)
{
    struct Case {
        const char* pattern;
        const char* text;
        WildcardMatch::Options options;
        bool matches;
    };
    const Case cases[] = {
        {"", "", Exact, true},
        {"a", "", Exact, false},
        {"abc", "abc", Exact, true},
        {"abc", "xabc", Exact, false},
        {"*", "", Exact, true},
        {"?", "a", Exact, true},
        {"a*c", "abbbc", Exact, true},
        {"a*c", "abbb", Exact, false},
        {"*a?c", "aabcabc", Exact, true},
        {"*.*?", "a.", Exact, false},
        {"a.c", "abc", Exact, false},
        {"[ab]", "[ab]", Exact, true},
        {"(a|b)+^$", "(a|b)+^$", Exact, true},
        {"\\*", "*", Exact, false},
        {"a\nb*", "a\nb\nc", Exact, true},
        {"Abc", "aBC", Exact, false},
        {"Abc", "aBC", WildcardMatch::CaseInsensitive, true},
        {"\u00c9a*", "\u00e9aX", WildcardMatch::CaseInsensitive, true},
        {"\u00e9", "e", WildcardMatch::CaseInsensitive, false},
        {"\u00e9", "E", WildcardMatch::DiacriticInsensitive, false},
        {"\u00e9", "e", WildcardMatch::DiacriticInsensitive, true},
        {"Sigur R\u00f3s", "sigur ros", Both, true},
        {"\u1ec7", "E", Both, true}, // two marks on one letter
        {"\u0130", "i", Both, true},
        {"\u00e9", "e\u0301", Exact, true}, // composed or not
        {"?", "e\u0301", Exact, true},
        {"?", "\U0001F3B5", Exact, true}, // one character, two units
        {"*?", "\U0001F3B5", Exact, true},
        {"?", "\ud55c", Both, true}, // a syllable stays whole
        {"\U00010400", "\U00010428", Both, true},
    };
    for (const Case& entry : cases)
        EXPECT_EQ(WildcardMatch(QString::fromUtf8(entry.pattern), entry.options)
                      .matches(QString::fromUtf8(entry.text)),
                  entry.matches)
            << entry.pattern << " on " << entry.text;
}

TEST(WildcardMatch, ManyStarsDoNotExplode)
{
    const QString pattern = QStringLiteral("*a").repeated(200) + QLatin1Char('b');
    EXPECT_FALSE(WildcardMatch(pattern).matches(QString(2000, QLatin1Char('a'))));
}

} // namespace
} // namespace zib
