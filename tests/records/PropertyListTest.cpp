// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a value that writing and reading back changes, a text that breaks the XML, and input that makes the
// readers crash, run out of stack or memory, or accept what is no property list.
#include "records/PropertyList.h"
#include "records/PropertyListWriter.h"
#include "tests/records/EveryKindOfValue.h"

#include <QDataStream>

#include <gtest/gtest.h>

#include <limits>

using namespace std::literals;

namespace zib {
namespace {

QByteArray plist(const QByteArray& content)
{
    return "<?xml version=\"1.0\"?>\n<plist version=\"1.0\">" + content + "</plist>";
}

PropertyValue parsed(const QByteArray& bytes)
{
    const auto value = readPropertyList(bytes);
    EXPECT_TRUE(value.has_value()) << bytes.left(200).constData()
                                   << (value ? "" : qUtf8Printable(value.error()));
    return value.value_or(PropertyValue());
}

TEST(PropertyList, EveryValueSurvivesWritingAndReading)
{
    const PropertyValue value = everyKindOfValue();
    EXPECT_EQ(parsed(writePropertyList(value)), value);
}

TEST(PropertyList, WritesOnlyCharactersThatXmlHolds)
{
    const QString text = QStringLiteral("a") + QChar(0x01) + QChar(0x0B) + QChar(0xFFFE) + QChar(0) +
                         QChar(0xD800) + QStringLiteral("b");
    EXPECT_EQ(parsed(writePropertyList(text)), PropertyValue(QStringLiteral("a?b")));
}

TEST(PropertyList, WhatHasNoFormIsNotWritten)
{
    Record circle = Record::make();
    circle.set(keys::Data, PropertyArray{circle, circle});
    const PropertyValue values[] = {PropertyArray{PropertyValue()}, Record(), circle,
                                    QDateTime(QDate(12000, 1, 1), QTime(), Qt::UTC)};
    for (const PropertyValue& value : values)
        EXPECT_TRUE(writePropertyList(value).isEmpty());
    circle.remove(keys::Data);
}

TEST(PropertyList, ReadsWhatXmlAllows)
{
    const struct {
        QByteArray content;
        PropertyValue value;
    } cases[] = {
        {"<string>a&amp;b&lt;&gt;&quot;&apos;&#65;&#x42;&#x1F3B5;</string>",
         QStringLiteral("a&b<>\"'AB\U0001F3B5")},
        {"<string><![CDATA[<&]]>x<!-- c -->y</string>", QStringLiteral("<&xy")},
        {"<string>a\r\nb\rc</string>", QStringLiteral("a\nb\nc")},
        {"<string> kept </string >", QStringLiteral(" kept ")},
        {"<string/>", QString()},
        {"<!-- c --><?pi ?><true/>", true},
        {"<false></false>", false},
        {"<integer> -42 </integer>", -42},
        {"<integer>+0x10</integer>", 16},
        {"<integer>-9223372036854775808</integer>", std::numeric_limits<qint64>::min()},
        {"<integer>18446744073709551615</integer>", 18446744073709551615.0},
        {"<real>+1.5e3</real>", 1500.0},
        {"<real>inf</real>", std::numeric_limits<double>::infinity()},
        {"<real>1e999</real>", std::numeric_limits<double>::infinity()},
        {"<date>2001-01-01T00:00:00Z</date>", QDateTime(QDate(2001, 1, 1), QTime(), Qt::UTC)},
        {"<data>\n\tAAH/\n</data>", QByteArray("\0\1\xff", 3)},
        {"<array/>", PropertyArray()},
        {"<dict/>", Record::make()},
        {"<dict><key>Name</key><integer>1</integer><key>Name</key><integer>2</integer></dict>",
         Record::make({{keys::Name, 2}})},
        {"<dict><key>Na&#109;e</key><true/></dict>", Record::make({{keys::Name, true}})},
    };
    for (const auto& test : cases)
        EXPECT_EQ(parsed(plist(test.content)), test.value) << test.content.constData();
    EXPECT_EQ(
        parsed("\xEF\xBB\xBF<!DOCTYPE plist [<!ENTITY a \"]>\"> <!-- ]> -->]>" + plist("<true/>").mid(22)),
        PropertyValue(true));
}

TEST(PropertyList, RefusesWhatIsNone)
{
    QByteArrayList inputs = {"",
                             "   ",
                             "plist",
                             "<plist>",
                             "<plist/>",
                             "<html></html>",
                             "bplist00",
                             QByteArray(64, '\0'),
                             "<?xml",
                             "<!DOCTYPE plist [",
                             "<!-- ",
                             plist("<true/>") + "x",
                             plist("<true/><true/>")};
    for (const char* content : {"<string>",
                                "<string>a</integer>",
                                "<string>a<b/></string>",
                                "<string>&nbsp;</string>",
                                "<string>&#0;</string>",
                                "<string>&#xD800;</string>",
                                "<string>&#1114112;</string>",
                                "<string>&amp</string>",
                                "<string>\xC0\x80</string>",
                                "<string>\xED\xA0\x80</string>",
                                "<string>\xF4\x90\x80\x80</string>",
                                "<string>\xE2\x82</string>",
                                "<integer/>",
                                "<integer>1 2</integer>",
                                "<integer>0x</integer>",
                                "<integer>99999999999999999999</integer>",
                                "<real>one</real>",
                                "<date>2001-13-01T00:00:00Z</date>",
                                "<date>2001-02-29T00:00:00Z</date>",
                                "<date>2001-01-01</date>",
                                "<data>!</data>",
                                "<dict><key>a</key></dict>",
                                "<dict><true/></dict>",
                                "<array><key>a</key></array>",
                                "<array>text</array>",
                                "<dict></array>",
                                "<array></dict>",
                                "<true>",
                                "<string attribute=\"></string>",
                                "<key>a</key>",
                                "<unknown/>",
                                "<![CDATA[a]]>"})
        inputs.append(plist(content));
    for (const QByteArray& input : inputs) {
        const auto value = readPropertyList(input);
        EXPECT_FALSE(value.has_value()) << input.constData();
        EXPECT_TRUE(value || !value.error().isEmpty());
    }
    // no document type unfolds
    EXPECT_FALSE(
        readPropertyList("<!DOCTYPE plist [<!ENTITY a \"aaaa\">]>" + plist("<string>&a;</string>").mid(22)));
}

TEST(PropertyList, DepthIsBoundedAlikeInReadingAndWriting)
{
    const auto nested = [](int depth) {
        return plist(QByteArray("<array>").repeated(depth) + QByteArray("</array>").repeated(depth));
    };
    const auto deepest = readPropertyList(nested(propertyListDepth));
    ASSERT_TRUE(deepest);
    EXPECT_FALSE(writePropertyList(*deepest).isEmpty());
    EXPECT_TRUE(writePropertyList(PropertyArray{*deepest}).isEmpty());
    EXPECT_FALSE(readPropertyList(nested(propertyListDepth + 1)));
    EXPECT_FALSE(readPropertyList(nested(100000)));
    EXPECT_FALSE(readPropertyList(plist(QByteArray("<dict><key>a</key>").repeated(100000))));
}

/// A binary property list of those objects, the first the root.
QByteArray binary(const QByteArrayList& objects)
{
    QByteArray bytes = "bplist00";
    QByteArray offsets;
    for (const QByteArray& object : objects) {
        offsets.append(char(bytes.size() >> 8)).append(char(bytes.size()));
        bytes += object;
    }
    const auto number = [](qsizetype value) {
        QByteArray text(8, '\0');
        for (int i = 0; i < 8; ++i)
            text[7 - i] = static_cast<char>(value >> (8 * i));
        return text;
    };
    const qsizetype table = bytes.size();
    return bytes + offsets + QByteArray(6, '\0') + "\x02\x01" + number(objects.size()) + number(0) +
           number(table);
}

TEST(BinaryPropertyList, ReadsTheKindsThatPythonDoesNotWrite)
{
    EXPECT_EQ(parsed(binary({"\x80\x07"})), PropertyValue(Record::make({{RecordKey::named("CF$UID"sv), 7}})));
    EXPECT_EQ(parsed(binary({QByteArray("\x22\x3f\xc0\x00\x00", 5)})), PropertyValue(1.5));
    EXPECT_EQ(parsed(binary({"\x14" + QByteArray(8, '\xff') + QByteArray(8, '\xff')})), PropertyValue(-1));
    EXPECT_EQ(parsed(binary({"\x14" + QByteArray(8, '\0') + QByteArray(8, '\xff')})),
              PropertyValue(18446744073709551615.0));
    EXPECT_EQ(parsed(binary({QByteArray("\x33\xbf\xe0\0\0\0\0\0\0", 9)})), // half a second before 2001
              PropertyValue(QDateTime(QDate(2000, 12, 31), QTime(23, 59, 59), Qt::UTC)));
}

TEST(BinaryPropertyList, RefusesCirclesAndWhatUnfoldsWithoutEnd)
{
    EXPECT_FALSE(readPropertyList(binary({QByteArray("\xa1\x00", 2)}))) << "an array in itself";
    EXPECT_FALSE(readPropertyList(binary({QByteArray("\xa2\x01\x01", 3), QByteArray("\xa1\x00", 2)})));
    EXPECT_FALSE(readPropertyList(binary({QByteArray("\x00", 1)}))) << "null";
    EXPECT_FALSE(readPropertyList(binary({QByteArray("\xd1\x01\x01", 3), QByteArray("\x10\x01", 2)})))
        << "a key that is a number";
    QByteArrayList doubling;
    for (char next = 1; next < 60; ++next)
        doubling.append(QByteArray("\xa2") + next + next);
    doubling.append("\x09");
    EXPECT_FALSE(readPropertyList(binary(doubling))) << "2^59 values in 300 bytes";
}

TEST(TableDocument, TheFieldOfTheRootBecomesATable)
{
    const QByteArray content = "<dict><key>Library</key><dict>"
                               "<key>b</key><dict><key>Library</key><dict/></dict>"
                               "<key>a</key><dict><key>Name</key><string>A</string></dict>"
                               "</dict><key>Data</key><dict/></dict>";
    const auto document = readPropertyListWithTable(plist(content), keys::Library);
    ASSERT_TRUE(document) << qUtf8Printable(document.error());
    EXPECT_EQ(document->table.size(), 2);
    EXPECT_EQ(document->table.find("a"sv).string(keys::Name), QStringLiteral("A"));
    EXPECT_TRUE(document->table.find("b"sv).contains(keys::Library)) << "only the root's";
    EXPECT_EQ(document->root, Record::make({{keys::Data, Record::make()}}));

    for (const char* wrong : {"<array/>", "<string/>", "<dict><key>a</key><string/></dict>", "<true/>"}) {
        const QByteArray root = QByteArray("<dict><key>Library</key>") + wrong + "</dict>";
        EXPECT_FALSE(readPropertyListWithTable(plist(root), keys::Library)) << wrong;
    }
    EXPECT_FALSE(readPropertyListWithTable(plist("<array/>"), keys::Library));

    const QByteArray asBinary =
        binary({QByteArray("\xd1\x01\x02", 3), "\x57Library", QByteArray("\xd1\x03\x04", 3),
                "\x51"
                "a",
                QByteArray("\xd1\x05\x03", 3), "\x54Name"});
    const auto fromBinary = readPropertyListWithTable(asBinary, keys::Library);
    ASSERT_TRUE(fromBinary) << qUtf8Printable(fromBinary.error());
    EXPECT_EQ(fromBinary->table.find("a"sv).string(keys::Name), QStringLiteral("a"));
}

// However few bytes come at once, and wherever they are cut.
TEST(PropertyList, ATableInPieces)
{
    PropertyArray names;
    QByteArray entries;
    for (int number = 0; number < 200; ++number) {
        const QByteArray name = QByteArray(number % 20 == 0 ? 1000 : 3, 'x') + QByteArray::number(number);
        entries += "<key>" + QByteArray::number(number) + "</key><dict><key>Name</key><string>" + name +
                   "&amp;</string><key>Data</key><dict><key>a</key><true/></dict></dict>\n";
        names.append(QString::fromUtf8(name + '&'));
    }
    const QByteArray content = plist("<dict><key>Playlists</key><array><string>p</string></array>"
                                     "<key>Library</key><dict><!-- </dict> -->" +
                                     entries + "</dict><key>Data</key><dict/></dict> <!-- the end -->");
    const auto inPieces = [](const QByteArray& bytes, qsizetype most) {
        return [bytes, most, done = qsizetype(0)](std::span<char> target) mutable {
            const qsizetype count = std::min({qsizetype(target.size()), bytes.size() - done, most});
            std::copy_n(bytes.constData() + done, count, target.data());
            done += count;
            return std::size_t(count);
        };
    };
    for (const qsizetype most : {7, 100, 5000}) {
        const auto document = readPropertyListWithTable(inPieces(content, most), keys::Library);
        ASSERT_TRUE(document) << most << ": " << qUtf8Printable(document.error());
        PropertyArray found;
        document->table.forEach(
            [&found](std::string_view, const Record& record) { found.append(record.string(keys::Name)); });
        EXPECT_EQ(PropertyValue(found), PropertyValue(names)) << most;
        EXPECT_EQ(document->root, Record::make({{keys::Playlists, QStringList{QStringLiteral("p")}},
                                                {keys::Data, Record::make()}}));
        for (const qsizetype lost : {1, 30, 90, 500})
            EXPECT_FALSE(readPropertyListWithTable(inPieces(content.chopped(lost), most), keys::Library))
                << lost;
    }
    const auto whole = readPropertyListWithTable(content.chopped(500), keys::Library);
    const auto pieces = readPropertyListWithTable(inPieces(content.chopped(500), 100), keys::Library);
    EXPECT_EQ(whole.error(), pieces.error()) << "the same place of the fault";
}

// Fields in another order, missing or new ones: the reader goes by what the record before looked like.
TEST(PropertyList, RecordsThatDifferInTheirFields)
{
    QByteArray content;
    PropertyArray expected;
    for (int number = 0; number < 300; ++number) {
        Record record = Record::make();
        content += "<dict>";
        for (int field = 0; field < 90; ++field) {
            if ((number * 7 + field * 13) % (2 + field % 5) == 0)
                continue;
            const QByteArray name = "key" + QByteArray::number((number % 3 == 0) ? 90 - field : field);
            content += "<key>" + name + "</key><integer>" + QByteArray::number(number + field) + "</integer>";
            record.set(RecordKey::named(std::string_view(name.constData(), std::size_t(name.size()))),
                       number + field);
        }
        content += "</dict>";
        expected.append(record);
    }
    EXPECT_EQ(parsed(plist("<array>" + content + "</array>")), PropertyValue(expected));
}

} // namespace
} // namespace zib
