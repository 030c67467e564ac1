// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts replies about artists, albums, lyrics and releases in which a client misses a value or finds
// another's: the service is asked with the clients' own requests and read at the places where they read.
#include "catalogue/CatalogueService.h"
#include "services/ArtistInfoReply.h"
#include "services/LyricsReply.h"
#include "services/ProfileReply.h"
#include "services/ReleaseReply.h"
#include "services/utilities/StringUtilities.h"
#include "tests/catalogue/FakeDemoSongs.h"
#include "tests/catalogue/WavFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include <pugixml.hpp>
#include <taglib/tpropertymap.h>
#include <taglib/wavfile.h>

#include <future>

namespace zib {
namespace {

using namespace Qt::StringLiterals;

const QString demoAlbumId = u"0a1b2c3d-1111-2222-3333-444455556666"_s;
constexpr const char* ownReleaseId = "aaaaaaaa-1111-2222-3333-444455556666";

DemoArtist demoArtist()
{
    const QString song(32, u'a');
    const DemoTrack track{song, u"Low & High"_s,          61, u"mp3"_s, u"audio/mpeg"_s,
                          {},   u"One \"two\"\n<three>"_s};
    DemoArtist artist{u"Salt/Orchard"_s, {u"folk"_s, u"dream pop"_s}, 0.9, 0.45, {}};
    artist.albums = {{u"First & Last"_s,
                      2009,
                      {track},
                      demoAlbumId,
                      QDate(2009, 5, 4),
                      u"Quay & Sons"_s,
                      u"IS"_s,
                      u"Made with [[Björn]] <by> the {{sea}}."_s}};
    artist.biography = u"They met [[Björn]] & liked {{dream pop}}.\nThey stayed."_s;
    artist.articles = {
        {QString(32, u'1'), DemoArticle::Blog, u"On <tape>"_s, u"A Page"_s, QDate(2020, 2, 3),
         u"Seen with [[Björn]].\nAnd more."_s},
        {QString(32, u'2'), DemoArticle::News, u"A tour"_s, u"B"_s, QDate(2021, 2, 3), u"They go."_s},
        {QString(32, u'3'), DemoArticle::Review, u"Good"_s, u"C"_s, QDate(2022, 2, 3), u"It is."_s,
         u"First & Last"_s},
    };
    artist.pictureId = QString(32, u'f');
    artist.pictures = 2;
    return artist;
}

class InfoRequestsTest : public testing::Test {
  protected:
    InfoRequestsTest()
    {
        demo_.addArtist(demoArtist());
        demo_.addArtist(u"Björn"_s, {u"folk"_s}, 0.5);
        writeOwn(u"1.wav"_s, "One", "1", "");
        writeOwn(u"2.wav"_s, "Two", "2", "La\nla");
        QFile cover(folder_.filePath(u"music/cover.png"_s));
        EXPECT_TRUE(cover.open(QIODevice::WriteOnly) && cover.write("\x89PNG\r\n\x1a\n") == 8);
        cover.close();
        service_.emplace(demo_, *Database::open(folder_.filePath(u"index.sqlite"_s), SongIndex::schema()));
        service_->keepIndexed(
            {QFile::encodeName(folder_.filePath(u"music"_s))},
            [](const auto&) { return std::make_unique<TagFileReader>(); }, std::chrono::hours(1));
        while (service_->index().songCount() < 2)
            std::this_thread::yield();
    }

    void writeOwn(const QString& name, const char* title, const char* track, const char* lyrics)
    {
        QDir(folder_.path()).mkpath(u"music"_s);
        const QString path = folder_.filePath(u"music/"_s + name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(wavFile(2)) > 0);
        file.close();
        TagLib::RIFF::WAV::File tagged(QFile::encodeName(path).constData());
        TagLib::PropertyMap tags;
        const std::pair<const char*, const char*> values[] = {
            {"ARTIST", "Own"},      {"ALBUM", "Disc"},  {"TITLE", title},
            {"TRACKNUMBER", track}, {"DATE", "1998"},   {"GENRE", "Folk; Home"},
            {"LABEL", "Cellar"},    {"LYRICS", lyrics}, {"MUSICBRAINZ_ALBUMID", ownReleaseId}};
        for (const auto& [key, value] : values)
            tags[key] = TagLib::String(value);
        tagged.setProperties(tags);
        EXPECT_TRUE(tagged.save());
    }

    HttpReply get(const QByteArray& target)
    {
        const auto request =
            checkedRequest("GET", target, {{"Host", "127.0.0.1:99"}}, HostPolicy::LoopbackOnly);
        std::promise<HttpReply> reply;
        service_->answer(request.value(), [&reply](const HttpReply& given) { reply.set_value(given); });
        return reply.get_future().get();
    }

    /// The values at that path in the reply, parted by '|'.
    QString read(const QByteArray& target, const char* path)
    {
        const auto reply = get(target);
        pugi::xml_document document;
        EXPECT_TRUE(document.load_buffer(reply.body.constData(), size_t(reply.body.size()))) << reply.status;
        QStringList values;
        for (const auto& found : document.select_nodes(path))
            values.append(
                QString::fromUtf8(found.attribute() ? found.attribute().value() : found.node().text().get()));
        return values.join(u'|');
    }

    QTemporaryDir folder_;
    FakeDemoSongs demo_{folder_.path()};
    std::optional<CatalogueService> service_;
};

const QByteArray profile =
    "/api/v4/artist/profile?&format=xml&api_key=K&bucket=blogs&bucket=images&bucket=news&bucket=reviews"
    "&bucket=video&bucket=familiarity&bucket=hotttnesss&bucket=terms&bucket=urls&name=";
const QByteArray artistInfo = "/2.0/?method=artist.getinfo&api_key=K&autocorrect=1&artist=";
const QByteArray albumInfo = "/2.0/?method=album.getinfo&api_key=K&artist=";
const QByteArray lyrics = "/apiv1.asmx/SearchLyricDirect?artist=";
const QByteArray release = "/ws/1/release/?type=xml&inc=tracks+release-events+labels&artist=";

TEST_F(InfoRequestsTest, ClientsFindEveryValueWhereTheyReadIt)
{
    const QByteArray demo = "Salt%2FOrchard";
    const QByteArray demoRelease = release + demo + "&title=First+%26+Last";
    const QByteArray byId =
        "/ws/1/release/" + QByteArray(ownReleaseId) + "?type=xml&inc=tracks+release-events+labels";
    const QString picture = u"http://127.0.0.1:99/picture/"_s + QString(32, u'f');
    const QString article = u"http://127.0.0.1:99/article/"_s;
    const QString bjorn = u"<a href=\"http://127.0.0.1:99/music/Bj%C3%B6rn\">Björn</a>"_s;
    struct Case {
        QByteArray target;
        const char* path;
        QString values;
    };
    const QList<Case> cases{
        {profile + demo, "response/status/message", u"Success"_s},
        {profile + demo, "response/artist/familiarity", u"0.450000"_s},
        {profile + demo, "response/artist/hotttnesss", u"0.900000"_s},
        {profile + demo, "response/artist/images/image/url", picture + u"-1.jpg|"_s + picture + u"-2.jpg"_s},
        {profile + demo, "response/artist/terms/name", u"folk|dream pop"_s},
        {profile + demo, "response/artist/video", u""_s},
        {profile + demo, "response/artist/urls/urls/official_url",
         u"http://127.0.0.1:99/music/Salt%2FOrchard"_s},
        {profile + demo, "response/artist/blogs/blog/name", u"On &lt;tape&gt;"_s},
        {profile + demo, "response/artist/blogs/blog/url", article + QString(32, u'1')},
        {profile + demo, "response/artist/blogs/blog/summary", u"Seen with Björn."_s},
        {profile + demo, "response/artist/blogs/blog/date_posted", u"2020-02-03T00:00:00"_s},
        {profile + demo, "response/artist/news/news/date_posted", u"2021-02-03T00:00:00"_s},
        {profile + demo, "response/artist/reviews/review/release", u"First &amp; Last"_s},
        {profile + demo, "response/artist/reviews/review/date_found", u"2022-02-03T00:00:00"_s},
        {profile + "own", "response/artist/terms/name", u"folk|home"_s},
        {profile + "own", "response/artist/blogs/blog", u""_s},
        {profile + "Nobody", "response/artist/name", u"Nobody"_s},
        {profile, "response/status/message", u"Missing parameter: \"name\""_s},
        {"/api/v4/artist/profile?name=X", "response/status/message", u"Missing/ Invalid API Key"_s},

        {artistInfo + "salt%2Forchard", "lfm/artist/name", u"Salt/Orchard"_s},
        {artistInfo + demo, "lfm/artist/bio/content",
         u"They met %1 &amp; liked <a href=\"http://127.0.0.1:99/tag/dream%20pop\">dream pop</a>.\n\n"
         "They stayed.\n"_s.arg(bjorn)},
        {artistInfo + "Bj%C3%B6rn", "lfm/artist/similar/artist/name", u"Salt/Orchard|Own"_s},
        {artistInfo + "Own", "lfm/artist/similar/artist[count(image)=3]/name", u"Salt/Orchard|Björn"_s},
        {artistInfo + "Bj%C3%B6rn", "lfm/artist/similar/artist[1]/image[3]", picture + u"-1-tile.jpg"_s},
        {artistInfo + "Own", "lfm/artist/bio/content",
         u"In your music: <i>Disc</i> (1998). Filed under "
         "<a href=\"http://127.0.0.1:99/tag/folk\">folk</a> and "
         "<a href=\"http://127.0.0.1:99/tag/home\">home</a>.\n"_s},
        {artistInfo + "Nobody", "lfm/artist", u""_s},

        {albumInfo + demo + "&album=first+%26+last", "lfm/album/name", u"First & Last"_s},
        {albumInfo + demo + "&album=First+%26+Last", "lfm/album/image[3]",
         u"http://127.0.0.1:99/cover/"_s + QString(32, u'a')},
        {albumInfo + demo + "&album=First+%26+Last", "lfm/album/wiki/content",
         u"Made with %1 &lt;by&gt; the <a href=\"http://127.0.0.1:99/tag/sea\">sea</a>.\n"_s.arg(bjorn)},
        {albumInfo + "Own&album=Disc", "lfm/album/wiki", u""_s},
        {albumInfo + "Own&album=First+%26+Last", "lfm/album", u""_s},

        {lyrics + demo + "&song=Low%20%26%20High", "GetLyricResult/LyricArtist", u"Salt/Orchard"_s},
        {lyrics + demo + "&song=Low%20%26%20High", "GetLyricResult/LyricSong", u"Low & High"_s},
        {lyrics + demo + "&song=Low%20%26%20High", "GetLyricResult/Lyric",
         u"One &quot;two&quot;\n&lt;three&gt;\n"_s},
        {lyrics + "Own&song=Two", "GetLyricResult/Lyric", u"La\nla\n"_s},
        {lyrics + "Own&song=One", "GetLyricResult/LyricArtist", u""_s},

        {demoRelease, "metadata/release/@type", u"Album"_s},
        {demoRelease, "metadata/release/release-event-list/event/@date", u"2009-05-04"_s},
        {demoRelease, "metadata/release/release-event-list/event/@country", u"IS"_s},
        {demoRelease, "metadata/release/release-event-list/event/label/name", u"Quay & Sons"_s},
        {demoRelease, "metadata/release/track-list/track/title", u"Low & High"_s},
        {demoRelease, "metadata/release/track-list/track/duration", u"61000"_s},
        {"/ws/1/release/" + demoAlbumId.toLatin1() + "?type=xml", "metadata/release/title",
         u"First & Last"_s},
        {byId, "metadata/release/title", u"Disc"_s},
        {byId, "metadata/release/@type", u""_s},
        {byId, "metadata/release/release-event-list/event/@date", u"1998"_s},
        {byId, "metadata/release/track-list/track/title", u"One|Two"_s},
        {byId, "metadata/release/track-list/track/duration", u"2000|2000"_s},
        {release + "Own&title=Nothing", "metadata/release", u""_s},
        {"/ws/1/release/none?type=xml", "metadata/release", u""_s},

        {"/2.0/?method=track.getinfo&api_key=K&artist=Own&track=Two", "lfm/track/album/mbid",
         QLatin1String(ownReleaseId)},
        {"/2.0/?method=artist.getinfo&artist=Own", "lfm/error/@code", u"10"_s},
    };
    for (const auto& [target, path, values] : cases)
        EXPECT_EQ(read(target, path), values) << target.constData() << ' ' << path;
}

TEST_F(InfoRequestsTest, TheProgramsOwnClientsReadIt)
{
    const auto told = artistProfileOfReply(get(profile + "Salt%2FOrchard").body);
    ASSERT_TRUE(told);
    EXPECT_EQ(told->blogs.size(), 1);
    EXPECT_EQ(told->news.size(), 1);
    EXPECT_EQ(told->reviews.size(), 1);
    EXPECT_EQ(told->images.size(), 2);
    EXPECT_EQ(told->links.value(0).url, u"http://127.0.0.1:99/music/Salt%2FOrchard"_s);
    EXPECT_TRUE(artistProfileOfReply(get(profile + "Nobody").body)) << "no reason to show an error";
    EXPECT_FALSE(artistProfileOfReply(get("/api/v4/artist/profile?name=X").body));

    ArtistInfo artist;
    readArtistInfoReply(get(artistInfo + "Salt%2FOrchard").body, artist);
    EXPECT_EQ(artist.similar.size(), 2);
    EXPECT_TRUE(stringByReplacingNewlineCharactersWithHTMLTags(artist.bio).endsWith(u"<br>They stayed."_s));

    const QByteArray sung = get(lyrics + "Salt%2FOrchard&song=Low%20%26%20High").body;
    EXPECT_EQ(lyricsOfReply(sung, u"Salt/Orchard"_s, u"Low & High (Live)"_s),
              u"One \"two\"\n&lt;three&gt;\n"_s);
    EXPECT_FALSE(lyricsOfReply(get(lyrics + "Own&song=One").body, u"Own"_s, u"One"_s));
    EXPECT_EQ(releaseInfoOfReply(get(release + "Own&title=Disc").body).tracks.size(), 2);
}

TEST_F(InfoRequestsTest, ShowsTheUsersOwnCovers)
{
    const QString address = read(profile + "Own", "response/artist/images/image/url");
    ASSERT_TRUE(address.startsWith(u"http://127.0.0.1:99/cover/"_s));
    EXPECT_EQ(read(artistInfo + "Bj%C3%B6rn", "lfm/artist/similar/artist[2]/image[3]"), address);
    EXPECT_EQ(read(albumInfo + "Own&album=Disc", "lfm/album/image[3]"), address);
    EXPECT_EQ(get(address.toLatin1().mid(19)).contentType, "image/png");
}

TEST_F(InfoRequestsTest, ItsPagesAreReadableAndEscaped)
{
    struct Case {
        QByteArray target;
        QByteArrayView part; ///< empty when there is no such page
    };
    const QList<Case> cases{
        {"/article/" + QByteArray(32, '1'), "<h1>On &lt;tape&gt;</h1>"},
        {"/article/" + QByteArray(32, '1'), "<p>And more.</p>"},
        {"/article/" + QByteArray(32, '1'), "3 February 2020"},
        {"/article/" + QByteArray(32, '9'), ""},
        {"/music/Salt%2FOrchard", "First &amp; Last (2009)"},
        {"/music/Salt/Orchard", "/picture/ffffffffffffffffffffffffffffffff-2.jpg"},
        {"/music/Nobody", ""},
        {"/tag/%3Cb%3E", "<h1>&lt;b&gt;</h1>"},
        {"/tag/folk", "<a href=\"http://127.0.0.1:99/music/Salt%2FOrchard\">Salt/Orchard</a>"},
    };
    for (const auto& [target, part] : cases) {
        const auto reply = get(target);
        EXPECT_EQ(reply.status, part.isEmpty() ? 404 : 200) << target.constData();
        EXPECT_TRUE(reply.body.contains(part)) << target.constData() << '\n' << reply.body.constData();
    }
}

TEST_F(InfoRequestsTest, ServesAnArtistsPictures)
{
    const QByteArray id(32, 'f');
    demo_.render(QString::fromLatin1(id) + u"2"_s, "picture");
    const auto reply = get("/picture/" + id + "-2-tile.jpg");
    EXPECT_EQ(reply.contentType, "image/jpeg");
    EXPECT_EQ(reply.length, 7);
    for (const char* name : {"-3.jpg", "-0.jpg", "-1.png", "-01.jpg", ".jpg", "-2-tile.jpg/x"})
        EXPECT_EQ(get("/picture/" + id + name).status, 404) << name;
    EXPECT_EQ(get("/picture/" + QByteArray(32, 'e') + "-1.jpg").status, 404);
}

} // namespace
} // namespace zib
