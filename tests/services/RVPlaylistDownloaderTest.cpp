// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a request that differs by one byte, an outcome told twice, never or in the wrong words, a client
// used after its end.
#include "services/RVPlaylistDownloader.h"

#include "platform/SettingsKeys.h"
#include "records/PropertyValue.h"
#include "services/BoostedArtists.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeUrlLoader.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

#include <functional>

namespace zib {
namespace {

const QByteArray oneSong =
    "<response><status><message>Success</message></status><artists><artist><name>A</name>"
    "<audio><audio><url>u</url></audio></audio></artist></artists></response>";

Record played(const char* artist, int count)
{
    return Record::make({{keys::Artist, QString::fromUtf8(artist)}, {keys::PlayCount, count}});
}

class RVPlaylistDownloaderTest : public testing::Test, public RVPlaylistDownloaderDelegate {
  protected:
    FakeUrlLoader loader;
    FakeUserDefaults defaults{{{settings::SongSearchHost, QStringLiteral("h")}}};
    FakeClock clock;
    WebServices services{loader, defaults, clock};

    std::unique_ptr<RVPlaylistDownloader> client;
    int completed = 0;
    QStringList errors;
    const RVPlaylistDownloader* reporter = nullptr;
    QString reportedSearch;
    std::function<void()> onReport;

    void searchCompletedWithResult(const QList<Record>& result, RVPlaylistDownloader& request) override
    {
        ++completed;
        reporter = &request;
        reportedSearch = request.searchString();
        if (onReport)
            onReport();
        EXPECT_EQ(result.size(), 1); // readable even when the client is gone
    }
    void searchFailedWithError(const QString& error, RVPlaylistDownloader& request) override
    {
        reporter = &request;
        reportedSearch = request.searchString();
        if (onReport)
            onReport();
        errors += error;
    }
    template <typename... Arguments>
    void start(const Arguments&... arguments)
    {
        client = std::make_unique<RVPlaylistDownloader>(services, arguments..., this);
    }
    std::string sent() const { return loader.last().request.url.toStdString(); }
};

TEST_F(RVPlaylistDownloaderTest, SendsArtists)
{
    struct Case {
        QStringList artists;
        bool similar;
        qint32 type;
        const char* url;
        const char* searchString;
    };
    const Case cases[] = {
        {{QStringLiteral("Some Band")},
         false,
         1,
         "http://h/api/v4/artist/search?api_key=QZ7KX2MB9TNV4WLRE&name=&name=Some+Band&format=xml&results=100"
         "&bucket=audio&bucket=hotttnesss&bucket=familiarity&fuzzy_match=true",
         "Some Band"},
        {{QStringLiteral("Some Band")},
         true,
         2,
         "http://h/api/v4/artist/"
         "similar?api_key=QZ7KX2MB9TNV4WLRE&name=&name=Some+Band&format=xml&results=100"
         "&bucket=audio&bucket=hotttnesss&bucket=familiarity",
         "Some Band"},
        {{QStringLiteral("A"), QStringLiteral("Bj\u00f6rk & 100% \"#^")},
         false,
         2,
         "http://h/api/v4/artist/"
         "similar?api_key=QZ7KX2MB9TNV4WLRE&name=&name=A&name=Bj%C3%B6rk+&+100%25+%22%23%5E"
         "&format=xml&results=100&bucket=audio&bucket=hotttnesss&bucket=familiarity",
         "A, Bj\u00f6rk & 100% \"#^"},
        {{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4"),
          QStringLiteral("5"), QStringLiteral("%1=6")},
         false,
         2,
         "http://h/api/v4/artist/similar?api_key=QZ7KX2MB9TNV4WLRE&name=&name=1&name=2&name=3&name=4&name=5"
         "&format=xml&results=100&bucket=audio&bucket=hotttnesss&bucket=familiarity",
         "1, 2, 3, 4, 5, %1=6"},
        {{},
         false,
         1,
         "http://h/api/v4/artist/search?api_key=QZ7KX2MB9TNV4WLRE&name=&format=xml&results=100"
         "&bucket=audio&bucket=hotttnesss&bucket=familiarity&fuzzy_match=true",
         ""},
    };
    for (const Case& entry : cases) {
        start(entry.artists, entry.similar);
        EXPECT_EQ(sent(), entry.url);
        EXPECT_EQ(client->searchType(), entry.type);
        EXPECT_EQ(client->searchString().toStdString(), entry.searchString);
    }
    EXPECT_EQ(loader.last().request.timeout, std::chrono::seconds(10));
    EXPECT_TRUE(loader.last().request.returnCacheDataElseLoad);
}

TEST_F(RVPlaylistDownloaderTest, SendsTags)
{
    start(QStringList{QStringLiteral("hip hop"), QStringLiteral("r&b"), QStringLiteral("a/b:c+d=e")});
    EXPECT_EQ(
        sent(),
        "http://h/api/v4/artist/search?api_key=QZ7KX2MB9TNV4WLRE&format=xml&bucket=audio&results=100"
        "&fuzzy_match=true&bucket=hotttnesss&bucket=familiarity&sort=hotttnesss-desc&description=hip+hop"
        "&description=r&b&description=a/b:c+d=e");
    EXPECT_EQ(client->searchType(), 5);
    EXPECT_EQ(client->searchString().toStdString(), "hip hop, r&b, a/b:c+d=e");
}

TEST_F(RVPlaylistDownloaderTest, SendsTopHot)
{
    start();
    EXPECT_TRUE(loader.exchanges.empty());
    client->beginSearchForTopHot();
    EXPECT_EQ(sent(), "http://h/api/v4/artist/top_hottt?api_key=QZ7KX2MB9TNV4WLRE&format=xml&bucket=audio"
                      "&bucket=id:musicbrainz&results=100&bucket=hotttnesss&bucket=familiarity");
    EXPECT_EQ(client->searchType(), 3);
    EXPECT_TRUE(client->searchString().isEmpty());
}

TEST_F(RVPlaylistDownloaderTest, SendsRecommendationsTheMostPlayedLast)
{
    // "bjork" and its accented namesake count each other's tracks; of two with equal plays the rarer comes
    // first.
    start(keys::Artist,
          QList<Record>{played("A B", 7), played("Bj\u00f6rk", 2), played("bjork", 3), played("C", 3),
                        played("C", 2), played("D", 5), Record::make({{keys::PlayCount, 9}})});
    const std::string url = sent();
    EXPECT_EQ(url,
              "http://h/api/v4/artist/similar?api_key=QZ7KX2MB9TNV4WLRE&format=xml&results=100&bucket=audio"
              "&bucket=hotttnesss&bucket=familiarity&name=D%5E1.00&name=Bj%C3%B6rk%5E1.50&name=bjork%5E2.00"
              "&name=C%5E2.50&name=A+B%5E3.00");
    EXPECT_EQ(client->searchType(), 4);
}

TEST_F(RVPlaylistDownloaderTest, WildcardsInANameCountOthers)
{
    const QList<Record> tracks{played("a*", 1), played("abc", 5), played("x?z", 1), played("xyz", 3),
                               played("q", 5)};
    EXPECT_EQ(boostedArtists(keys::Artist, tracks, 0).join(QLatin1Char(',')).toStdString(),
              "xyz,x?z,abc,q,a*");
}

TEST_F(RVPlaylistDownloaderTest, TheScrambleKeepsFourOfTheFrontAndTheLast)
{
    struct Case {
        const char* values;
        qint64 seconds;
        const char* picked;
    };
    const Case cases[] = {
        {"ABCDE", 12345, "ABCDE"},
        // No exchange at all: the fifth is whatever stands last.
        {"ABCDEF", 0, "ABCDF"},
        {"ABCDEFG", 0, "ABCDG"},
        // 7 values, seconds 10: (10 mod 7, 6, 5, 4, 3, 2) + i = 3, 5, 2, 5, 5, 5.
        {"ABCDEFG", 10, "DFCBG"},
        // 6 values, seconds 5: 5, 1, 3, 5, 5, 5: the sixth exchange counts here.
        {"ABCDEF", 5, "FBDAE"},
        // Only 32 bits of the time count.
        {"ABCDEFG", 10 + (qint64(1) << 32), "DFCBG"},
        // Before 2001 the remainder is negative: nothing may be picked from outside of the list.
        {"ABCDEFG", -978307200, "EBCDG"},
    };
    for (const Case& entry : cases) {
        const QStringList values = QString::fromUtf8(entry.values).split(QString(), Qt::SkipEmptyParts);
        EXPECT_EQ(fiveOf(values, entry.seconds).join(QString()).toStdString(), entry.picked)
            << entry.values << " at " << entry.seconds;
    }
}

TEST_F(RVPlaylistDownloaderTest, TheHostIsTheOneOfTheMoment)
{
    defaults.setValue(settings::SongSearchHost, QStringLiteral("127.0.0.1:8080/base/"));
    start(QStringList{QStringLiteral("t")});
    EXPECT_EQ(sent().find("http://127.0.0.1:8080/base/api/v4/artist/search?"), 0U) << sent();
    defaults.setValue(settings::SongSearchHost, QStringLiteral("other"));
    start(QStringList{QStringLiteral("t")});
    EXPECT_EQ(sent().find("http://other/api/v4/"), 0U) << sent();
}

TEST_F(RVPlaylistDownloaderTest, ReportsTheTracksOnce)
{
    start(QStringList{QStringLiteral("t")});
    loader.last().respond();
    loader.last().send("from before a redirect");
    loader.last().respond();
    loader.last().send(oneSong.left(50));
    loader.last().send(oneSong.mid(50));
    EXPECT_EQ(completed, 0);
    loader.last().finish();
    EXPECT_EQ(completed, 1);
    EXPECT_EQ(reporter, client.get());
    EXPECT_TRUE(errors.isEmpty());
}

TEST_F(RVPlaylistDownloaderTest, SaysWhatWentWrong)
{
    const std::pair<std::function<void(FakeUrlExchange&)>, const char*> cases[] = {
        {[](auto& e) { e.fail(QStringLiteral("timed out")); }, "Could not connect to server"},
        {[](auto& e) { e.respond(), e.send(oneSong), e.fail(QStringLiteral("cut")); },
         "Could not connect to server"},
        {[](auto& e) { e.reply(QByteArray(9 << 20, 'x')); }, "Could not connect to server"},
        {[](auto& e) { e.reply("", 500); }, "No server response"},
        {[](auto& e) { e.reply("<response><status><message>Bad key</message></status></response>"); },
         "Bad key"},
    };
    for (const auto& [outcome, text] : cases) {
        start(QStringList{QStringLiteral("t")});
        outcome(loader.last());
        EXPECT_EQ(errors.join(QLatin1Char('|')).toStdString(), text);
        EXPECT_EQ(reporter, client.get());
        errors.clear();
    }
    EXPECT_EQ(completed, 0);
}

TEST_F(RVPlaylistDownloaderTest, WithoutAConnectionItReportsFromItsConstructor)
{
    for (const bool hostIsMissing : {false, true}) {
        loader.refuses = !hostIsMissing;
        if (hostIsMissing)
            defaults.remove(settings::SongSearchHost);
        errors.clear();
        onReport = [this] { EXPECT_EQ(client, nullptr); };
        client.reset();
        start(QStringList{QStringLiteral("t")});
        EXPECT_EQ(errors.join(QLatin1Char('|')).toStdString(), "no connection");
        EXPECT_EQ(reporter, client.get());
        EXPECT_EQ(reportedSearch.toStdString(), "t");
    }
    EXPECT_TRUE(loader.exchanges.empty());
}

TEST_F(RVPlaylistDownloaderTest, ItsOwnerMayDestroyItFromWithinTheReport)
{
    onReport = [this] { client.reset(); };
    start(QStringList{QStringLiteral("t")});
    loader.last().reply(oneSong);
    start(QStringList{QStringLiteral("t")});
    loader.last().reply("no xml");
    start(QStringList{QStringLiteral("t")});
    loader.last().fail(QStringLiteral("gone"));
    EXPECT_EQ(completed, 1);
    EXPECT_EQ(errors.size(), 2);
    EXPECT_EQ(client, nullptr);
}

TEST_F(RVPlaylistDownloaderTest, DestroyingItCancelsAndNothingFollows)
{
    start(QStringList{QStringLiteral("t")});
    loader.last().respond();
    client.reset();
    EXPECT_TRUE(loader.last().isCancelled());
    loader.last().reply(oneSong);
    loader.last().fail(QStringLiteral("late"));
    EXPECT_EQ(completed, 0);
    EXPECT_TRUE(errors.isEmpty());
}

TEST_F(RVPlaylistDownloaderTest, ADelegateIsOptional)
{
    start(QStringList{QStringLiteral("t")});
    client->setDelegate(nullptr);
    loader.last().reply(oneSong);
    EXPECT_EQ(completed, 0);
    EXPECT_FALSE(loader.last().isRunning());
    loader.refuses = true;
    client = std::make_unique<RVPlaylistDownloader>(services, QStringList{}, nullptr);
}

} // namespace
} // namespace zib
