// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: times shown wrongly at the turn of a minute, an hour, a day; markup that survives, or application
// links that do not; numbers and digests of odd texts.
#include "services/utilities/StringUtilities.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

TEST(TextFormat, TimeReadsAsAClock)
{
    const std::pair<const char*, const char*> cases[] = {
        {"0", "00:00"},          {"5", "00:05"},        {"59", "00:59"},       {"60", "01:00"},
        {"65", "01:05"},         {"3599", "59:59"},     {"3600", "1:00:00"},   {"3605", "1:00:05"},
        {"36000", "10:00:00"},   {"86399", "23:59:59"}, {"86400", "1.0 days"}, {"129600", "1.5 days"},
        {"864000", "10.0 days"}, {"", "00:00"},         {"song", "00:00"},     {"65 s", "01:05"},
        {" 65.9", "01:05"},
    };
    for (const auto& [seconds, clock] : cases)
        EXPECT_EQ(timeString(QString::fromUtf8(seconds)).toStdString(), clock) << seconds;
    EXPECT_EQ(timeString(65).toStdString(), "01:05");
}

TEST(TextFormat, NumbersAtTheStartOfATextCount)
{
    struct Case {
        const char* text;
        qint64 integer;
        double real;
    };
    const Case cases[] = {
        {"", 0, 0},
        {"x", 0, 0},
        {"12", 12, 12},
        {"+12", 12, 12},
        {"-12", -12, -12},
        {"+-12", 0, 0},
        {" \n12.75 s", 12, 12.75},
        {".5", 0, 0.5},
        {"1e3", 1, 1000},
        {"0x10", 0, 0},
        {"1,5", 1, 1},
        {"inf", 0, 0},
        {"nan", 0, 0},
        {"1e999", 1, 0},
        {"99999999999999999999", INT64_MAX, 99999999999999999999.0},
        {" -99999999999999999999", INT64_MIN, -99999999999999999999.0},
    };
    for (const Case& entry : cases) {
        EXPECT_EQ(integerValue(QString::fromUtf8(entry.text)), entry.integer) << entry.text;
        EXPECT_EQ(doubleValue(QString::fromUtf8(entry.text)), entry.real) << entry.text;
    }
}

TEST(TextFormat, WordsAreCapitalized)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"KIND OF BLUE", "Kind Of Blue"},
        {" two  blanks ", " Two  Blanks "},
        {"ta\tb\nc", "Ta\tB\nC"},
        {"don't rock-n-roll", "Don't Rock-n-roll"},
        {"(deluxe edition) 2ND", "(Deluxe Edition) 2nd"},
        {"\u00c9TOILE \u00e9toile", "\u00c9toile \u00c9toile"},
        {"\u01c6ep", "\u01c5ep"},                         // title case differs from upper case
        {"\U00010428\U00010428", "\U00010400\U00010428"}, // beyond 16 bits
    };
    for (const auto& [text, capitalized] : cases)
        EXPECT_EQ(capitalizedString(QString::fromUtf8(text)).toStdString(), capitalized);
}

TEST(TextFormat, LineBreaksBecomeTagsAndTheLastLineGoes)
{
    const std::pair<QString, const char*> cases[] = {
        {QString(), ""},
        {QStringLiteral("a"), "a"},
        {QStringLiteral("a\n"), "a"},
        {QStringLiteral("a\nb"), "a"},
        {QStringLiteral("a\nb\n"), "a<br>b"},
        {QStringLiteral("a\r\nb\n"), "a<br><br>b"}, // two characters, two breaks
        {QStringLiteral("\n"), ""},
        {QStringLiteral("\n\n"), "<br>"},
        {QStringLiteral("a\u0085b\u2028c\u2029d\re"), "a<br>b<br>c<br>d"},
        {QStringLiteral("a\tb\vc\fd"), "a\tb\vc\fd"}, // no line breaks these
    };
    for (const auto& [text, html] : cases)
        EXPECT_EQ(stringByReplacingNewlineCharactersWithHTMLTags(text).toStdString(), html);
}

TEST(TextFormat, FlatteningKeepsTheApplicationsLinks)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"plain", "plain"},
        {"  plain", "plain"},
        {"one <b>two</b> three", "one twothree"},
        {"<p>a</p>\n<p>b</p>", "ab"},
        {"a<br/>b", "ab"},
        {"a<", "a"},
        {"a<b", "a"},
        {"a<b>", "a"},
        {"a > b", "a > b"},
        {"<>a", "a"},
        {"by <a href=\"zib://search/artist/Name\">Name</a> and",
         "by <a href=\"zib://search/artist/Name\">Name</a> and"},
        {"<a class=\"x\" href=\"zib://search/tag/rock\">rock</a>.",
         "<a class=\"x\" href=\"zib://search/tag/rock\">rock</a>."},
        {"<a href=\"zib://search/tag/a/b/c\">x</a>", "<a href=\"zib://search/tag/a/b/c\">x</a>"},
        {"<a href=\"zib:////search//artist///Name\">x</a>",
         "<a href=\"zib:////search//artist///Name\">x</a>"},
        {"<a href=\"zib://search/artist/Name/+albums\">x</a>", "x"},
        {"<a href=\"zib://search/artist\">x</a>", "x"},
        {"<a href=\"zib://\">x</a>", "x"},
        {"<a href=\"http://h/tag/x\">x</a>", "x"},
        {"<a href=\"http://h/\">x</a><a href=\"zib://a/b/c\">y</a>", "x<a href=\"zib://a/b/c\">y</a>"},
        {"<a href=\"zib://a/b/c\">y</a><i> z</i>", "<a href=\"zib://a/b/c\">y</a>z"},
        {"<a href=\"zib://a/b/c\"><b>y</b></a>", "<a href=\"zib://a/b/c\"><b>y"}, // only the first inner tag
        {"<a href=\"zib://a/b/c\">y", "<a href=\"zib://a/b/c\">y"},
        {"<a href=\"zib://a/b/c", "<a href=\"zib://a/b/c"},
        {"<img src=\"x\"> zib://a/b/c", "zib://a/b/c"}, // text is no link
    };
    for (const auto& [html, flat] : cases)
        EXPECT_EQ(flattenHTMLIgnoringZibLinks(QString::fromUtf8(html)).toStdString(), flat) << html;
}

TEST(TextFormat, DigestEndsAtTheFirstZero)
{
    EXPECT_EQ(md5HexDigest(u"").toStdString(), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(md5HexDigest(u"abc").toStdString(), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(md5HexDigest(u"\u00e9").toStdString(), "66ddcd97cfdeabb2f6fb8a999b4bc76f");
    EXPECT_EQ(md5HexDigest(QStringView(u"abc\0def", 7)).toStdString(), "900150983cd24fb0d6963f7d28e17f72");
}

} // namespace
} // namespace zib
