// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a character that is escaped in one kind of address and must not be in another, a percent sign taken
// for an escape, bytes that are no UTF-8 taken for text.
#include "services/utilities/StringUtilities.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

const QString visible = QStringLiteral(
    "!\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcdefghijklmnopqrstuvwxyz{|}~");

/// The visible ASCII characters that the function escapes.
template <typename Function>
std::string escapedBy(Function function)
{
    QString result;
    for (const QChar character : visible) {
        const QString escaped = QStringLiteral("%") + QString::number(character.unicode(), 16).toUpper();
        const QString got = function(QString(character));
        if (got == escaped)
            result += character;
        else
            EXPECT_EQ(got.toStdString(), QString(character).toStdString());
    }
    return result.toStdString();
}

TEST(UrlEncoding, EscapesExactlyItsOwnCharacters)
{
    EXPECT_EQ(escapedBy([](const QString& text) { return stringByAddingPercentEscapes(text); }),
              R"("#%<>[\]^`{|})");
    EXPECT_EQ(escapedBy([](const QString& text) { return urlEncodedString(text); }),
              R"(!"#$%&'()*+,-.;<>?@[\]^`{|})");
    EXPECT_EQ(escapedBy([](const QString& text) { return URLEncodedString(text); }),
              R"(!"#$%&'()*+,/:;<=>?@[\]^`{|})");
    EXPECT_EQ(escapedBy([](const QString& text) { return stringWithPercentEscape(text); }),
              R"(!"#$%&'()*+,/:;<=>?@[\]^`{|})");
    EXPECT_EQ(escapedBy([](const QString& text) {
                  return encodePercentEscapesPerRFC2396ButNot(u"% a", u"a/~", text);
              }),
              R"("#/<>[\]^`{|}~)");
}

TEST(UrlEncoding, EscapesWhatIsNotAsciiByItsUtf8Bytes)
{
    struct Case {
        QString text;
        const char* escaped;
    };
    const Case cases[] = {
        {QString(), ""},
        {QStringLiteral("a b"), "a%20b"},
        {QStringLiteral("\t\n\r\x7f"), "%09%0A%0D%7F"},
        {QString(QChar(0)), "%00"},
        {QStringLiteral("Bj\u00f6rk"), "Bj%C3%B6rk"},
        {QStringLiteral("\u65e5\u672c"), "%E6%97%A5%E6%9C%AC"},
        {QStringLiteral("\U0001F3B5"), "%F0%9F%8E%B5"},
        {QStringLiteral("\uFFFC"), "%EF%BF%BC"},
        {QStringLiteral("e\u0301"), "e%CC%81"},              // a combining mark stays apart
        {QString(QChar(0xD83C)), "%EF%BF%BD"},               // half of a pair
        {QChar(0xDFB5) + QStringLiteral("a"), "%EF%BF%BDa"}, // the other half, before text
    };
    for (const Case& entry : cases) {
        EXPECT_EQ(urlEncodedString(entry.text).toStdString(), entry.escaped);
        EXPECT_EQ(URLEncodedString(entry.text).toStdString(), entry.escaped);
        EXPECT_EQ(stringWithPercentEscape(entry.text).toStdString(), entry.escaped);
        EXPECT_EQ(stringByAddingPercentEscapes(entry.text).toStdString(), entry.escaped);
    }
}

TEST(UrlEncoding, EscapesWholeTexts)
{
    EXPECT_EQ(urlEncodedString(u"a-b.c d").toStdString(), "a%2Db%2Ec%20d");
    EXPECT_EQ(urlEncodedString(u"http://h/x=~").toStdString(), "http://h/x=~");
    EXPECT_EQ(stringByAddingPercentEscapes(u"/a?n=100%&m=A+B^1.50").toStdString(),
              "/a?n=100%25&m=A+B%5E1.50");
    EXPECT_EQ(encodePercentEscapesPerRFC2396ButNot(u"\u00e9 \U0001F3B5", u".", u"\u00e9\u00e8 \U0001F3B5.")
                  .toStdString(),
              "\u00e9%C3%A8 \U0001F3B5%2E");
    EXPECT_EQ(encodePercentEscapesPerRFC2396ButNot(u".", u".", u".").toStdString(), "."); // "not" wins
}

TEST(UrlEncoding, DecodesOrGivesNothing)
{
    struct Case {
        QString text;
        std::optional<QString> decoded;
    };
    const Case cases[] = {
        {QString(), QString()},
        {QStringLiteral("plain"), QStringLiteral("plain")},
        {QStringLiteral("a%20b+c"), QStringLiteral("a b+c")},
        {QStringLiteral("%2b%2B"), QStringLiteral("++")},
        {QStringLiteral("Bj%C3%B6rk \u00f6"), QStringLiteral("Bj\u00f6rk \u00f6")},
        {QStringLiteral("%F0%9F%8E%B5"), QStringLiteral("\U0001F3B5")},
        {QStringLiteral("%EF%BB%BFa"), QStringLiteral("\uFEFFa")}, // a byte-order mark is kept
        {QStringLiteral("%00"), QString(QChar(0))},
        {QStringLiteral("%2541"), QStringLiteral("%41")}, // once only
        {QStringLiteral("100%"), std::nullopt},
        {QStringLiteral("%"), std::nullopt},
        {QStringLiteral("%4"), std::nullopt},
        {QStringLiteral("%4g"), std::nullopt},
        {QStringLiteral("%%41"), std::nullopt},
        {QStringLiteral("%\u0664\u0661"), std::nullopt}, // digits, but not hexadecimal ones
        {QStringLiteral("%C3"), std::nullopt},
        {QStringLiteral("%C3x"), std::nullopt},
        {QStringLiteral("%B6"), std::nullopt},
        {QStringLiteral("%FF"), std::nullopt},
        {QStringLiteral("%C0%AF"), std::nullopt},       // overlong
        {QStringLiteral("%ED%A0%80"), std::nullopt},    // a surrogate
        {QStringLiteral("%F4%90%80%80"), std::nullopt}, // beyond Unicode
    };
    for (const Case& entry : cases)
        EXPECT_EQ(URLDecodedString(entry.text), entry.decoded) << entry.text.toStdString();
}

TEST(UrlEncoding, DecodingUndoesEveryEscaper)
{
    const QString text = visible + QStringLiteral(" \t\u00f6\u65e5\U0001F3B5");
    for (const QString& escaped : {urlEncodedString(text), URLEncodedString(text),
                                   stringWithPercentEscape(text), stringByAddingPercentEscapes(text)})
        EXPECT_EQ(URLDecodedString(escaped), text);
}

} // namespace
} // namespace zib
