// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts replies that the song-search client cannot read or that list the wrong artists: each is read back by
// the client's own code.
#include "catalogue/ArtistService.h"
#include "catalogue/ArtistRanking.h"
#include "catalogue/TextMatching.h"
#include "services/SongSearchReply.h"
#include "tests/catalogue/FakeDemoSongs.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <pugixml.hpp>

namespace zib {
namespace {

using namespace Qt::StringLiterals;

DemoTrack track(char letter, const QString& title)
{
    return {QString(32, QLatin1Char(letter)), title, 61, QStringLiteral("mp3"), QStringLiteral("audio/mpeg")};
}

class ArtistServiceTest : public testing::Test {
  protected:
    ArtistServiceTest()
    {
        demo_.addArtist(u"Amber Tide"_s, {u"ambient"_s, u"electronic"_s}, 0.9,
                        {track('a', u"Low & <High>"_s)});
        demo_.addArtist(u"Björn Ólafsson"_s, {u"folk"_s, u"acoustic"_s}, 0.5,
                        {track('b', u"Vor"_s), track('c', u"Bad\u0001\uFFFF\U0001F3B5Text"_s)});
        demo_.addArtist(u"Tide"_s, {u"indie rock"_s, u"electronic"_s}, 0.7, {track('d', u"Ebb"_s)});
        demo_.addArtist(u"Circuit"_s, {u"electronic"_s, u"ambient"_s}, 0.6, {track('e', u"Loop"_s)});
        const auto database =
            *Database::open(folder_.filePath(QStringLiteral("index.sqlite")), SongIndex::schema());
        index_.emplace(database);
        plays_.emplace(database);
        catalogue_.emplace(demo_, *index_, *plays_);
    }

    HttpReply ask(const QString& method, const QByteArray& query)
    {
        HttpRequest request;
        request.host = "127.0.0.1:99";
        request.query = parsedQuery(query).value();
        return ArtistService(*catalogue_).answer(method, request).value_or(plainReply(404));
    }

    /// The names in the reply, or the message of a refusal.
    QString names(const QString& method, const QByteArray& query)
    {
        const auto reply = ask(method, query);
        pugi::xml_document document;
        EXPECT_TRUE(document.load_buffer(reply.body.constData(), size_t(reply.body.size())));
        const auto status = document.select_node("response/status").node();
        if (reply.status != 200)
            return QString::fromUtf8(status.child_value("message"));
        EXPECT_STREQ(status.child_value("message"), "Success");
        EXPECT_STREQ(status.child_value("code"), "0");
        EXPECT_TRUE(document.select_node("response/artists"));
        QStringList list;
        for (const auto& artist : document.select_nodes("response/artists/artist"))
            list.append(QString::fromUtf8(artist.node().child_value("name")));
        return list.join(u'|');
    }

    QTemporaryDir folder_;
    FakeDemoSongs demo_{folder_.path()};
    std::optional<SongIndex> index_;
    std::optional<PlayCounts> plays_;
    std::optional<MusicCatalogue> catalogue_;
};

TEST_F(ArtistServiceTest, FindsTheArtistsAskedFor)
{
    struct Case {
        const char* method;
        QByteArray query;
        const char* names;
    };
    const QList<Case> cases{
        {"search", "name=&name=Amber+Tide&fuzzy_match=true", "Amber Tide"},
        {"search", "name=amber+tide", "Amber Tide"},
        {"search", "name=&name=Amber+Tied&fuzzy_match=true", "Amber Tide"},
        {"search", "name=&name=Amber+Tied", ""},
        {"search", "name=bjorn+olafson&fuzzy_match=true", "Björn Ólafsson"},
        {"search", "name=Tide&fuzzy_match=true", "Tide|Amber Tide"},
        {"search", "name=Tide", "Tide"},
        {"search", "name=Nobody&fuzzy_match=true", ""},
        {"search", "name=", ""},
        {"search", "name=Circuit&name=Tide", "Tide|Circuit"},
        {"search", "description=folk", "Björn Ólafsson"},
        {"search", "description=ambient&sort=hotttnesss-desc", "Amber Tide|Circuit"},
        {"search", "description=electronic", "Circuit|Amber Tide|Tide"},
        {"search", "description=electronic&sort=hotttnesss-desc", "Amber Tide|Tide|Circuit"},
        {"search", "description=folk&description=acoustic&description=ambient&sort=hotttnesss-desc",
         "Björn Ólafsson|Amber Tide|Circuit"},
        {"search", "description=rock", "Tide"},
        {"search", "description=Elektronic&fuzzy_match=true&sort=hotttnesss-desc", "Amber Tide|Tide|Circuit"},
        {"search", "description=Elektronic", ""},
        {"similar", "name=&name=Amber+Tide", "Circuit|Tide"},
        {"similar", "name=Amber+Tied", "Circuit|Tide"},
        {"similar", "name=Bj%C3%B6rn+%C3%93lafsson", ""},
        {"similar", "name=Amber+Tide&name=Circuit", "Tide"},
        {"similar", "name=Nobody&name=Tide^1.50", "Circuit|Amber Tide"},
        {"similar", "name=Nobody", ""},
        {"top_hottt", "", "Amber Tide|Tide|Circuit|Björn Ólafsson"},
        {"top_hottt", "results=2", "Amber Tide|Tide"},
        {"top_hottt", "results=0", "Amber Tide"},
        {"top_hottt", "results=-99999", "Amber Tide"},
        {"top_hottt", "results=x", "Invalid parameter: \"results\" must be a number"},
        {"top_hottt", "format=json", "Invalid parameter: \"format\" must be xml"},
        {"similar", "", "Missing parameter: \"name\""},
        {"search", "", "Missing parameter: \"name\" or \"description\""},
    };
    for (const auto& [method, query, expected] : cases)
        EXPECT_EQ(names(QLatin1String(method), "api_key=K&" + query), QString::fromUtf8(expected))
            << method << ' ' << query.constData();
    EXPECT_EQ(names(u"search"_s, "name=Tide"), u"Missing/ Invalid API Key"_s);
    EXPECT_EQ(names(u"search"_s, "api_key=&name=Tide"), u"Missing/ Invalid API Key"_s);
    EXPECT_EQ(ask(u"other"_s, "api_key=K").status, 404);
}

TEST_F(ArtistServiceTest, BoostDecidesWhomTheAnswerResembles)
{
    const QList<Artist> artists{
        {u"a"_s, u"a"_s, {u"folk"_s}, 0, 0},
        {u"b"_s, u"b"_s, {u"jazz"_s}, 0, 0},
        {u"c"_s, u"c"_s, {u"folk"_s}, 0, 0},
        {u"d"_s, u"d"_s, {u"jazz"_s}, 0, 0},
    };
    const auto first = [&](const QString& a, const QString& b) {
        return artistsSimilar(artists, {BoostedName::parsed(a), BoostedName::parsed(b)}).first().name;
    };
    EXPECT_EQ(first(u"a^3.00"_s, u"b^1.00"_s), u"c"_s);
    EXPECT_EQ(first(u"a^1.00"_s, u"b^3.00"_s), u"d"_s);
    EXPECT_EQ(first(u"a"_s, u"b^1.5"_s), u"d"_s);
}

TEST(BoostedName, ReadsTheBoostAtTheEndOnly)
{
    const QList<std::tuple<QString, QString, double>> cases{
        {u"Amber Tide^2.50"_s, u"Amber Tide"_s, 2.5},
        {u"A^B^3"_s, u"A^B"_s, 3},
        {u"A^B"_s, u"A^B"_s, 1},
        {u"A^"_s, u"A^"_s, 1},
        {u"A^999999"_s, u"A"_s, 100},
        {u"A^-1"_s, u"A^-1"_s, 1},
    };
    for (const auto& [text, name, boost] : cases) {
        EXPECT_EQ(BoostedName::parsed(text).name, name) << text.toStdString();
        EXPECT_EQ(BoostedName::parsed(text).boost, boost) << text.toStdString();
    }
}

TEST_F(ArtistServiceTest, TheClientReadsEveryField)
{
    const auto reply =
        ask(u"search"_s, "api_key=K&name=&name=bjorn+olafsson&format=xml&results=100&bucket=audio"
                         "&bucket=hotttnesss&bucket=familiarity&fuzzy_match=true");
    const auto tracks = tracksOfSongSearchReply(reply.body);
    ASSERT_TRUE(tracks);
    ASSERT_EQ(tracks->size(), 2);
    const auto& song = tracks->first();
    const QString id(32, u'b');
    EXPECT_EQ(song.string(keys::Artist), u"Björn Ólafsson"_s);
    EXPECT_EQ(song.integer(keys::Hotness), 50);
    EXPECT_EQ(song.integer(keys::Familiarity), 25);
    EXPECT_EQ(song.string(keys::Name), u"Vor"_s);
    EXPECT_EQ(song.string(keys::Album), u"First Album"_s);
    EXPECT_EQ(song.integer(keys::Duration), 61);
    EXPECT_EQ(song.string(keys::Location), u"http://127.0.0.1:99/audio/%1.mp3"_s.arg(id));
    EXPECT_EQ(song.string(keys::Info), u"http://127.0.0.1:99/song/%1"_s.arg(id));
    EXPECT_EQ(song.date(keys::FoundDate), QDateTime(QDate(2009, 1, 1), QTime(0, 0), Qt::UTC));
    EXPECT_EQ(song.string(keys::Id), id.left(16));
    // What XML cannot carry is left out, and the rest stays.
    EXPECT_EQ(tracks->last().string(keys::Name), u"Bad\U0001F3B5Text"_s);
    EXPECT_EQ(tracksOfSongSearchReply(ask(u"top_hottt"_s, "api_key=K&bucket=audio").body)
                  ->first()
                  .string(keys::Name),
              u"Low & <High>"_s);
}

TEST_F(ArtistServiceTest, GivesOnlyTheBucketsAskedFor)
{
    const auto bare = ask(u"top_hottt"_s, "api_key=K&bucket=id:musicbrainz").body;
    for (const char* element : {"<audio", "<hotttnesss", "<familiarity"})
        EXPECT_FALSE(bare.contains(element)) << element;
    EXPECT_TRUE(ask(u"top_hottt"_s, "api_key=K&bucket=hotttnesss")
                    .body.contains("<hotttnesss>0.900000</hotttnesss>"));
    EXPECT_TRUE(ask(u"top_hottt"_s, "api_key=K&bucket=familiarity").body.contains("<familiarity>0.450000<"));
}

} // namespace
} // namespace zib
