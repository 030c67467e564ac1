// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: padding and line breaks off by one, garbage in the text taken for data.
#include "services/utilities/Base64.h"

#include <QString>

#include <gtest/gtest.h>

namespace zib {
namespace {

TEST(Base64, EncodesWithAndWithoutLines)
{
    struct Case {
        QByteArray data;
        unsigned lineLength;
        const char* text;
    };
    const Case cases[] = {
        {"", 0, ""},
        {"", 4, ""},
        {"foobar", 4, "Zm9v\nYmFy\n"}, // a full last line is ended too
        {"foobar", 1, "Zm9v\nYmFy\n"}, // groups are not broken
        {"foobar", 5, "Zm9vYmFy\n"},
        {"foobar", 8, "Zm9vYmFy\n"},
        {"foobar", 12, "Zm9vYmFy"},
        {"foob", 8, "Zm9vYg==\n"},
        {"foobarfoo", 8, "Zm9vYmFy\nZm9v"},
    };
    for (const Case& entry : cases)
        EXPECT_EQ(base64EncodingWithLineLength(entry.data, entry.lineLength).toStdString(), entry.text)
            << entry.data.toStdString() << " in lines of " << entry.lineLength;
    EXPECT_EQ(base64EncodingWithLineLength(QByteArray(114, 'x'), 76).count('\n'), 2);
}

TEST(Base64, DecodesWhatIsOfItsAlphabet)
{
    struct Case {
        QString text;
        QByteArray data;
    };
    const Case cases[] = {
        {QString(), ""},
        {QStringLiteral("Zm9v"), "foo"},
        {QStringLiteral("Zm8="), "fo"},
        {QStringLiteral("Zg=="), "f"},
        {QStringLiteral("Zg="), "f"},
        {QStringLiteral("AAAA"), QByteArray("\0\0\0", 3)},
        {QStringLiteral("++//"), "\xfb\xef\xff"},
        {QStringLiteral("Z m\n9\r-v_"), "foo"},          // others are skipped
        {QStringLiteral("Zm\u00e99v\U0001F3B5"), "foo"}, // also those of many bytes
        {QStringLiteral("Zm9vZg==Zm9v"), "foof"},        // the first "=" ends it
        {QStringLiteral("=Zm9v"), ""},
        {QStringLiteral("Zm9v=Zm9v"), "foo"},
        {QStringLiteral("Z="), "d"},      // one character: its six bits begin a byte
        {QStringLiteral("Zm9vZ"), "foo"}, // cut short
        {QStringLiteral("Zm9vZm8"), "foo"},
    };
    for (const Case& entry : cases)
        EXPECT_EQ(dataWithBase64EncodedString(entry.text), entry.data) << entry.text.toStdString();
}

TEST(Base64, EveryLengthComesBack)
{
    QByteArray data;
    for (int length = 0; length < 300; ++length) {
        for (const unsigned lineLength : {0U, 4U, 7U, 76U})
            EXPECT_EQ(dataWithBase64EncodedString(
                          QString::fromLatin1(base64EncodingWithLineLength(data, lineLength))),
                      data);
        EXPECT_EQ(base64Encoding(data), data.toBase64());
        data.append(char(length * 7));
    }
}

} // namespace
} // namespace zib
