// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: songs lost or mixed up in a reply, a reply from hell taken at its word.
#include "services/SongSearchReply.h"

#include "records/PropertyValue.h"
#include "services/XmlReply.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

QByteArray success(const QByteArray& artists)
{
    return "<?xml version=\"1.0\" "
           "encoding=\"UTF-8\"?><response><status><code>0</code><message>Success</message>"
           "</status><artists>" +
           artists + "</artists></response>";
}

/// A reply of one artist with that audio.
QByteArray songs(const QByteArray& audio)
{
    return success("<artist><name>A</name><audio>" + audio + "</audio></artist>");
}

QList<Record> tracksOf(const QByteArray& reply)
{
    const auto tracks = tracksOfSongSearchReply(reply);
    EXPECT_TRUE(tracks.has_value()) << tracks.error().text.toStdString();
    return tracks.value_or(QList<Record>());
}

TEST(SongSearchReply, FillsEveryKey)
{
    const QList<Record> tracks = tracksOf(
        success("<artist><name>Bj\xc3\xb6rk &amp; <![CDATA[<Co>]]></name><hotttnesss>0.567</hotttnesss>"
                "<familiarity>1.0</familiarity><audio><audio><url>http://h/a.mp3</url><title>Song</title>"
                "<length>215.9</length><link>http://h/</link><date>2010-03-04T05:06:07</date>"
                "<release> KIND of\tbLUE\t </release><id>0123456789abcdefXYZ</id></audio></audio></artist>"));
    ASSERT_EQ(tracks.size(), 1);
    EXPECT_EQ(tracks[0], Record::make({
                             {keys::Artist, QStringLiteral("Bj\u00f6rk & <Co>")},
                             {keys::Hotness, 56},
                             {keys::Familiarity, 100},
                             {keys::Location, QStringLiteral("http://h/a.mp3")},
                             {keys::Name, QStringLiteral("Song")},
                             {keys::Duration, 215},
                             {keys::Info, QStringLiteral("http://h/")},
                             {keys::FoundDate, QDateTime(QDate(2010, 3, 4), QTime(5, 6, 7), Qt::UTC)},
                             {keys::Album, QStringLiteral("Kind Of\tBlue")},
                             {keys::Id, QStringLiteral("0123456789abcdef")},
                         }));
}

TEST(SongSearchReply, AFieldThatIsMissingIsTakenFromTheSongBefore)
{
    const QList<Record> tracks = tracksOf(success(
        "<artist><name>A</name><hotttnesss>0.5</hotttnesss><audio>"
        "<audio><url>u/1.mp3</url><title>One</title><length>1</length><link>l</link>"
        "<date>2010-03-04T05:06:07</date><release>r</release><id>1111111111111111</id></audio>"
        "<audio><title>no address</title><release>lost</release></audio>"
        "<audio><url>u/2.mp3</url></audio>"
        "<audio><url>u/3.mp3</url><date>yesterday</date><id>3333333333333333</id></audio></audio></artist>"
        "<artist><audio><audio><url>nameless.mp3</url></audio></audio></artist>"
        "<artist><name>B</name><audio><audio><url>u/4.mp3</url></audio></audio></artist>"));
    ASSERT_EQ(tracks.size(), 4);

    Record expected = tracks[0].copy(); // no title, so the name comes from the address
    expected.set(keys::Location, QStringLiteral("u/2.mp3"));
    expected.set(keys::Name, QStringLiteral("2"));
    EXPECT_EQ(tracks[1], expected);

    expected.set(keys::Location, QStringLiteral("u/3.mp3"));
    expected.set(keys::Name, QStringLiteral("3"));
    expected.set(keys::Id, QStringLiteral("3333333333333333"));
    expected.remove(keys::FoundDate); // a date that can't be read clears
    EXPECT_EQ(tracks[2], expected);

    EXPECT_EQ(tracks[3], Record::make({{keys::Artist, QStringLiteral("B")},
                                       {keys::Location, QStringLiteral("u/4.mp3")},
                                       {keys::Name, QStringLiteral("4")}}));
}

TEST(SongSearchReply, ReadsOneFieldAsItStands)
{
    struct Case {
        const char* audio;
        RecordKey key;
        PropertyValue value;
    };
    const auto date = [](int hour) { return QDateTime(QDate(2010, 3, 14), QTime(hour, 30, 0), Qt::UTC); };
    const Case cases[] = {
        {"<url>http://h/x/My%20Song.mp3</url>", keys::Name, QStringLiteral("My%20Song")},
        {"<url>http://h/x/</url>", keys::Name, QStringLiteral("x")},
        {"<url>u.mp3</url><title/>", keys::Name, QString()},
        {"<url>u</url><title>a<!-- c -->b<i>c<b>d</b></i>e</title>", keys::Name, QStringLiteral("abcde")},
        {"<url>u</url><title>first</title><title>second</title>", keys::Name, QStringLiteral("first")},
        {"<url/>", keys::Location, QString()},
        {"<url>u</url><length>x</length>", keys::Duration, 0},
        {"<url>u</url><length>-3</length>", keys::Duration, -3},
        {"<url>u</url><length>99999999999999999999</length>", keys::Duration, qint64(INT64_MAX)},
        {"<url>u</url><id>short</id>", keys::Id, QStringLiteral("short")},
        {"<url>u</url><id/>", keys::Id, QString()},
        {"<url>u</url><date>2010-03-14T02:30:00</date>", keys::FoundDate, date(2)}, // in no hour of New York
        {"<url>u</url><date>2010-03-14 12:30:00</date>", keys::FoundDate, date(12)},
        {"<url>u</url><date>2010-03-14T12:30:00Z</date>", keys::FoundDate, {}},
        {"<url>u</url><date>2010-03-14</date>", keys::FoundDate, {}},
        {"<url>u</url><date>2010-02-30T12:30:00</date>", keys::FoundDate, {}},
        {"<url>u</url><date>2010-03-14T24:00:00</date>", keys::FoundDate, {}},
        {"<url>u</url><date>2010-3-14T012:30:00</date>", keys::FoundDate, {}},
        {"<url>u</url><date/>", keys::FoundDate, {}},
        {"<url>u</url><release> \t </release>", keys::Album, QString()},
        {"<url>u</url><release>(LIVE) at\n</release>", keys::Album, QStringLiteral("(Live) At\n")},
    };
    for (const Case& entry : cases) {
        const QList<Record> tracks = tracksOf(songs(QByteArray("<audio>") + entry.audio + "</audio>"));
        ASSERT_EQ(tracks.size(), 1) << entry.audio;
        EXPECT_EQ(tracks[0].value(entry.key), entry.value) << entry.audio;
    }
}

TEST(SongSearchReply, SharesBecomeWholePercents)
{
    const std::pair<const char*, int> cases[] = {
        {"0", 0}, {"0.999", 99}, {"0.5", 50}, {"1", 100},    {"-0.019", -1},
        {"", 0},  {"nan", 0},    {"x", 0},    {"1e-400", 0},
    };
    for (const auto& [share, percents] : cases) {
        const QList<Record> tracks =
            tracksOf(success(QByteArray("<artist><name>A</name><hotttnesss>") + share +
                             "</hotttnesss><audio><audio><url>u</url></audio></audio></artist>"));
        ASSERT_EQ(tracks.size(), 1);
        EXPECT_EQ(tracks[0].value(keys::Hotness), PropertyValue(percents)) << share;
    }
    EXPECT_EQ(
        tracksOf(success("<artist><name>A</name><familiarity>1e300</familiarity><audio><audio><url>u</url>"
                         "</audio></audio></artist>"))
            .size(),
        1); // far beyond any integer
}

TEST(SongSearchReply, ArtistsWithoutSongsAreASuccess)
{
    EXPECT_EQ(tracksOf(success("<artist><name>A</name></artist>")), QList<Record>());
    EXPECT_EQ(tracksOf(success("<artist/>")), QList<Record>());
}

TEST(SongSearchReply, SaysWhyThereIsNothing)
{
    const char* const none = "No songs found. Please check your spelling or try another search.";
    const char* const silence = "No server response";
    const QByteArray deep =
        QByteArray("<a>").repeated(1'000'000) + "x" + QByteArray("</a>").repeated(1'000'000);
    QByteArray entities = "<!DOCTYPE r [<!ENTITY a \"aaaaaaaaaaaaaaaa\">";
    for (char c = 'b'; c < 'z'; ++c)
        entities += QByteArray("<!ENTITY ") + c + " \"" +
                    ("&" + QByteArray(1, char(c - 1)) + ";").repeated(16) + "\">";
    entities += "]><response><status><message>&y;</message></status></response>";
    const std::pair<QByteArray, const char*> cases[] = {
        {"", silence},
        {"no xml", silence},
        {QByteArray(1000, '\0'), silence},
        {"\xff\xfe<", silence},
        {"<html><body>404</body></html>", silence},
        {"<response>", silence},
        {"<response/>", silence},
        {"<response><status/></response>", silence},
        {success("<artist><name>A").chopped(20), silence},
        {"<response><status><message/></status></response>", ""},
        {"<response><status><message>success</message></status></response>", "success"},
        {"<response><status><message>Invalid key</message></status></response>", "Invalid key"},
        {success(""), none},
        {"<response><status><message>Success</message></status></response>", none},
        {"<response><status><message>Success</message></status><artist><name>A</name></artist></response>",
         none},
        {deep, silence},
        {"<response><status><message>" + deep + "</message></status></response>", "x"},
        {entities, "&y;"}, // stands for nothing
        {success("<artist><name>" + QByteArray(int(maximumXmlBytes), 'x') + "</name></artist>"), silence},
    };
    for (const auto& [reply, text] : cases) {
        const auto tracks = tracksOfSongSearchReply(reply);
        ASSERT_FALSE(tracks.has_value()) << reply.left(80).toStdString();
        EXPECT_EQ(tracks.error().text.toStdString(), text) << reply.left(80).toStdString();
    }
}

TEST(SongSearchReply, FollowsTheDeclaredEncoding)
{
    EXPECT_EQ(
        tracksOf("<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><response><status><message>Success</message>"
                 "</status><artists><artist><name>\xe9</name><audio><audio><url>u</url></audio></audio>"
                 "</artist></artists></response>")[0]
            .string(keys::Artist)
            .toStdString(),
        "\u00e9");
    EXPECT_EQ(
        tracksOf(success("<artist><name>\xe9</name><audio><audio><url>u</url></audio></audio></artist>"))[0]
            .string(keys::Artist)
            .toStdString(),
        "\uFFFD"); // what is no UTF-8 is replaced
}

} // namespace
} // namespace zib
