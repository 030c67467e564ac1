// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: names and places that do not survive a way out and in, files of other programs that are misread, and
// what a stranger's file could smuggle in.
#include "library/playlists/PlaylistFile.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace zib {
namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// A folder /lists with what is below /lists/there.
PlaylistPlace lists()
{
    return {text("/lists"), [](const QString& path) { return path.startsWith(text("/lists/there/")); }};
}

tl::expected<PlaylistDocument, QString> read(const QByteArray& bytes, PlaylistFormat format)
{
    return readPlaylist(bytes, format, lists());
}

TEST(PlaylistFile, GoesOutAndComesBackTheSame)
{
    const PlaylistDocument all{
        text("R&B <1> \"ö\" 歌"),
        {{text("0123456789abcdef"), text("A - B"), text("C - D, E"), text("F"), 61,
          text("http://a.example/x%20y?b=1&c=2")},
         {text("i/d&"), text("</title>"), text("\" onclick="), {}, 0, text("file:///lists/there/a.mp3")},
         {text("1"), text("Name"), {}, {}, 5, text("file:///elsewhere/%23%25%20:ö%0A.mp3")},
         {{}, {}, {}, {}, 0, text("file:///\xEF\xB7\xAB/ö.mp3")},
         {{}, {}, {}, {}, 0, text("https://a.example/") + QString(8000, QLatin1Char('x'))},
         {text("2"), text("#EXTINF:3,x"), text("Ann"), text("#"), 7, text("file:///lists/%23b.mp3")}}};
    for (const auto format : {PlaylistFormat::M3u8, PlaylistFormat::Xspf, PlaylistFormat::Jspf}) {
        PlaylistDocument expected = all;
        for (PlaylistEntry& entry : expected.entries) {
            entry.location.replace(text("ö"), text("%C3%B6"));
            entry.location.replace(text("\xEF\xB7\xAB"), text("%EF%B7%AB"));
            if (format == PlaylistFormat::M3u8)
                entry.id.clear(); // has no room for it
        }
        PlaylistDocument given = expected;
        for (qsizetype i = 0; i < all.entries.size(); ++i)
            given.entries[i].id = all.entries[i].id;
        const QByteArray bytes = writePlaylist(given, format, text("/lists"));
        const auto back = read(bytes, format);
        ASSERT_TRUE(back) << qUtf8Printable(back.error());
        EXPECT_EQ(back->title, expected.title);
        ASSERT_EQ(back->entries.size(), expected.entries.size()) << bytes.constData();
        for (qsizetype i = 0; i < expected.entries.size(); ++i)
            EXPECT_EQ(back->entries[i], expected.entries[i]) << i << "\n" << bytes.constData();
    }
    EXPECT_TRUE(writePlaylist(all, PlaylistFormat::M3u8, text("/lists")).contains("\nthere/a.mp3\n"));

    // A line of a name is no line of the file.
    const PlaylistDocument hostile{text("a\n/etc/passwd"),
                                   {{{}, text("b\r\n/c\x01"), {}, {}, 0, text("http://d.example/")},
                                    {{}, {}, {}, {}, 0, text("http://e.example/\n/etc/passwd")}}};
    for (const auto format : {PlaylistFormat::M3u8, PlaylistFormat::Xspf, PlaylistFormat::Jspf}) {
        const auto back = read(writePlaylist(hostile, format, {}), format);
        ASSERT_TRUE(back && !back->entries.isEmpty());
        EXPECT_EQ(back->title, text("a /etc/passwd"));
        EXPECT_EQ(back->entries.last().location,
                  format == PlaylistFormat::M3u8 ? text("http://d.example/") : QString());
        EXPECT_EQ(back->entries[0].name, text("b  /c"));
    }
}

TEST(PlaylistFile, ReadsWhatOtherProgramsWrite)
{
    const PlaylistFormat m3u8 = PlaylistFormat::M3u8;
    const PlaylistFormat xspf = PlaylistFormat::Xspf;
    const PlaylistFormat jspf = PlaylistFormat::Jspf;
    const auto inXspf = [](const QByteArray& track) {
        return QByteArray("<?xml version=\"1.0\"?><playlist version=\"1\" xmlns=\"http://xspf.org/ns/0/\">"
                          "<trackList><track>" +
                          track + "</track></trackList></playlist>");
    };
    const struct {
        const char* name;
        QByteArray bytes;
        PlaylistFormat format;
        PlaylistEntry entry;
    } cases[] = {
        {"a byte order mark and CR LF",
         "\xEF\xBB\xBF#EXTM3U\r\n#EXTINF:123,Ann - Bo\r\nthere/a.mp3\r\n",
         m3u8,
         {{}, text("Bo"), text("Ann"), {}, 123, text("file:///lists/there/a.mp3")}},
        {"a plain list",
         "there/\xC3\xB6.mp3",
         m3u8,
         {{}, {}, {}, {}, 0, text("file:///lists/there/%C3%B6.mp3")}},
        {"another encoding",
         "#EXTINF:-1,Bj\xF6rk - X\nthere/a",
         m3u8,
         {{}, text("X"), text("Björk"), {}, 0, text("file:///lists/there/a")}},
        {"attributes with commas",
         "#EXTINF:1.9 a=\"b,c\",T\n#EXTALB:L\n/x",
         m3u8,
         {{}, text("T"), {}, text("L"), 1, text("file:///x")}},
        {"an escaped path",
         "there/a%20b.mp3",
         m3u8,
         {{}, {}, {}, {}, 0, text("file:///lists/there/a%2520b.mp3")}},
        {"a path of another system",
         "..\\lists\\there\\a.mp3",
         m3u8,
         {{}, {}, {}, {}, 0, text("file:///lists/there/a.mp3")}},
        {"another machine's name",
         "file://localhost/a%20b",
         m3u8,
         {{}, {}, {}, {}, 0, text("file:///a%20b")}},
        {"a relative address",
         inXspf("<location>there/a%20b.mp3</location>"),
         xspf,
         {{}, {}, {}, {}, 0, text("file:///lists/there/a%20b.mp3")}},
        {"a second location",
         inXspf("<location>magnet:?x</location><location>https://a.example/</location>"
                "<identifier>isbn:1</identifier><identifier>urn:zib:7</identifier>"
                "<title><![CDATA[A & B]]></title><duration>1999</duration>"),
         xspf,
         {text("7"), text("A & B"), {}, {}, 1, text("https://a.example/")}},
        {"one text for an array",
         R"({"playlist":{"track":[{"title":"T","location":"http://a.example/b","duration":2000}]}})",
         jspf,
         {{}, text("T"), {}, {}, 2, text("http://a.example/b")}},
    };
    for (const auto& test : cases) {
        const auto list = read(test.bytes, test.format);
        ASSERT_TRUE(list && list->entries.size() == 1) << test.name;
        EXPECT_EQ(list->entries[0], test.entry)
            << test.name << ": " << qUtf8Printable(list->entries[0].location);
    }
}

TEST(PlaylistFile, RefusesWhatIsNoneOrWouldDoHarm)
{
    QByteArray deep;
    for (int level = 0; level < 100'000; ++level)
        deep += "<track>";
    const struct {
        const char* name;
        QByteArray bytes;
        PlaylistFormat format;
    } refused[] = {
        {"no XML", "#EXTM3U", PlaylistFormat::Xspf},
        {"other XML", "<a/>", PlaylistFormat::Xspf},
        {"XML that ends early", "<playlist><trackList>" + deep, PlaylistFormat::Xspf},
        {"nothing but tags", "<playlist>" + QByteArray("<a/>").repeated(4'000'001) + "</playlist>",
         PlaylistFormat::Xspf},
        {"no JSON", "{", PlaylistFormat::Jspf},
        {"other JSON", "{\"playlist\":[]}", PlaylistFormat::Jspf},
        {"deep JSON", "{\"playlist\":" + QByteArray(100'000, '['), PlaylistFormat::Jspf},
        {"pieces of a stream", "#EXTM3U\n#EXT-X-TARGETDURATION:9\na.ts", PlaylistFormat::M3u8},
        {"too many songs", QByteArray("a\n").repeated(mostPlaylistEntries + 1), PlaylistFormat::M3u8},
        {"too many bytes", QByteArray(largestPlaylistFile + 1, '\n'), PlaylistFormat::M3u8},
    };
    for (const auto& test : refused) {
        const auto list = read(test.bytes, test.format);
        ASSERT_FALSE(list) << test.name;
        EXPECT_FALSE(list.error().isEmpty()) << test.name;
    }
    for (const char* const location : {"javascript:alert(1)", "smb://host/a", "file://host/a", "data:,x",
                                       "http:///x", "file:///a%00b", "ftp://a.example/b", "zib://a"}) {
        const auto list = read("<playlist><trackList><track><location>" + QByteArray(location) +
                                   "</location></track></trackList></playlist>",
                               PlaylistFormat::Xspf);
        ASSERT_TRUE(list && list->entries.size() == 1) << location;
        EXPECT_EQ(list->entries[0].location, QString()) << location;
    }
}

} // namespace
} // namespace zib
