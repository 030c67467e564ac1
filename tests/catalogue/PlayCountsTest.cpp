// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts hotness that does not follow what people play: plays counted twice, or not at all, that never fade,
// or are forgotten with the program.
#include "catalogue/CatalogueService.h"
#include "tests/catalogue/FakeDemoSongs.h"
#include "tests/catalogue/RawClient.h"
#include "tests/catalogue/WavFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <pugixml.hpp>

#include <atomic>
#include <thread>

namespace zib {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 second = 1000;
constexpr qint64 week = qint64(7) * 24 * 3600 * second;

/// A request for a song, and how long after the one before.
struct Step {
    char song = 0; ///< the letter of a demo song; 'o' for the user's own
    const char* method = "GET";
    QByteArray headers = {};
    qint64 later = 60 * second;
};

class PlayCountsTest : public testing::Test {
  protected:
    PlayCountsTest()
    {
        const auto track = [](char letter) {
            return DemoTrack{QString(32, QLatin1Char(letter)), QString(QLatin1Char(letter)), 61, u"mp3"_s,
                             u"audio/mpeg"_s};
        };
        demo_.addArtist(u"Amber"_s, {u"folk"_s, u"jazz"_s}, 0.6, {track('a'), track('b')});
        demo_.addArtist(u"Cove"_s, {u"folk"_s, u"jazz"_s}, 0.5, {track('c')});
        demo_.addArtist(u"Dune"_s, {u"folk"_s, u"rock"_s}, 0.4, {track('d')});
        for (const char letter : {'a', 'b', 'c', 'd'})
            demo_.render(QString(32, QLatin1Char(letter)), "0123456789");
        QDir(folder_.path()).mkpath(u"Own"_s);
        QFile own(folder_.filePath(u"Own/Song.wav"_s));
        EXPECT_TRUE(own.open(QIODevice::WriteOnly) && own.write(wavFile(1)) > 0);
        own.close();
        start();
    }
    ~PlayCountsTest() override { stop(); }

    void start()
    {
        service_.emplace(demo_, *Database::open(location(), SongIndex::schema()), CoverProcess({}),
                         [this] { return now_.load(); });
        auto socket = ListeningSocket::open(u"127.0.0.1"_s, 0);
        port_ = socket->port();
        HttpServer::Limits limits;
        limits.behindProxy = true;
        server_ = HttpServer::start(std::move(*socket), *service_, limits);
        service_->keepIndexed(
            {QFile::encodeName(folder_.filePath(u"Own"_s))},
            [](const std::stop_token&) { return std::make_unique<TagFileReader>(); }, std::chrono::hours(1));
        for (int i = 0; i < 6000 && service_->index().songCount() == 0; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    void stop()
    {
        server_.reset();
        service_.reset();
    }
    [[nodiscard]] QString location() const { return folder_.filePath(u"index.sqlite"_s); }

    RawReply request(const QByteArray& line, const QByteArray& headers = {})
    {
        RawClient client(port_);
        client.send(line + " HTTP/1.1\r\nHost: localhost\r\n" + headers + "\r\n");
        return client.reply(!line.startsWith("HEAD"));
    }

    void take(const QList<Step>& steps)
    {
        for (const auto& [song, method, headers, later] : steps) {
            now_ += later;
            const QByteArray name =
                song == 'o'
                    ? SongIndex::songId(QFile::encodeName(folder_.filePath(u"Own/Song.wav"_s))).toLatin1() +
                          ".wav"
                    : QByteArray(32, song) + ".mp3";
            EXPECT_NE(request(method + QByteArray(" /audio/") + name, headers).status, 404);
        }
    }
    void play(char song, int times)
    {
        for (int i = 0; i < times; ++i)
            take({{song}});
    }

    /// The artists in that reply, the first first.
    QStringList names(const QByteArray& question)
    {
        const auto reply = request("GET /api/v4/artist/" + question + "&api_key=K");
        pugi::xml_document document;
        EXPECT_TRUE(document.load_buffer(reply.body.constData(), size_t(reply.body.size())));
        QStringList names;
        for (const auto& name : document.select_nodes("//artist/name"))
            names.append(QString::fromUtf8(name.node().child_value()));
        return names;
    }
    double hotness(const QByteArray& artist)
    {
        const auto reply = request("GET /api/v4/artist/search?api_key=K&bucket=hotttnesss&name=" + artist);
        pugi::xml_document document;
        EXPECT_TRUE(document.load_buffer(reply.body.constData(), size_t(reply.body.size())));
        return document.select_node("//hotttnesss").node().text().as_double(-1);
    }

    QTemporaryDir folder_;
    FakeDemoSongs demo_{folder_.path()};
    std::atomic<qint64> now_{1764032400000};
    std::optional<CatalogueService> service_;
    std::unique_ptr<HttpServer> server_;
    quint16 port_ = 0;
};

TEST_F(PlayCountsTest, CountsSongsThatBegin)
{
    struct Case {
        const char* what;
        QList<Step> steps;
        QHash<QString, int> plays;
    };
    const QByteArray other = "X-Forwarded-For: 192.0.2.7\r\n";
    const QList<Case> cases{
        {"whole", {{'c'}}, {{u"cove"_s, 1}}},
        {"from the beginning", {{'c', "GET", "Range: bytes=0-\r\n"}}, {{u"cove"_s, 1}}},
        {"own", {{'o'}}, {{u"unknown artist"_s, 1}}},
        {"two songs of an artist", {{'a'}, {'b', "GET", {}, 1}}, {{u"amber"_s, 2}}},
        {"later part", {{'c', "GET", "Range: bytes=5-\r\n"}}, {}},
        {"behind the end", {{'c', "GET", "Range: bytes=10-\r\n"}}, {}},
        {"head only", {{'c', "HEAD"}, {'o', "HEAD"}}, {}},
        {"had already", {{'c', "GET", "If-None-Match: *\r\n"}}, {}},
        {"again at once", {{'c'}, {'c', "GET", {}, 30 * second - 1}}, {{u"cove"_s, 1}}},
        {"again later", {{'c'}, {'c', "GET", {}, 30 * second}}, {{u"cove"_s, 2}}},
        {"another client", {{'c'}, {'c', "GET", other, 1}}, {{u"cove"_s, 2}}},
        {"another in between",
         {{'c'}, {'a', "GET", {}, 1}, {'c', "GET", {}, 1}},
         {{u"cove"_s, 1}, {u"amber"_s, 1}}},
        {"clock put back", {{'c'}, {'c', "GET", {}, -week}}, {{u"cove"_s, 2}}},
    };
    for (const auto& [what, steps, expected] : cases) {
        take(steps);
        stop(); // what was played is in the database then
        QSqlQuery query(Database::open(location(), SongIndex::schema())->connection());
        QHash<QString, int> plays;
        EXPECT_TRUE(query.exec(u"SELECT artist_key, plays FROM plays"_s));
        while (query.next())
            plays.insert(query.value(0).toString(), qRound(query.value(1).toDouble()));
        EXPECT_EQ(plays, expected) << what;
        EXPECT_TRUE(query.exec(u"DELETE FROM plays"_s));
        start();
    }
}

TEST_F(PlayCountsTest, PlaysDecideWhoIsHotNow)
{
    const QStringList before{u"Amber"_s, u"Cove"_s, u"Dune"_s, u"Unknown Artist"_s};
    EXPECT_EQ(names("top_hottt?"), before);
    EXPECT_EQ(names("similar?name=Dune"), (QStringList{u"Amber"_s, u"Cove"_s}));
    EXPECT_NEAR(hotness("Amber"), 0.6, 1e-6);

    play('c', 4);
    EXPECT_EQ(names("similar?name=Dune"), (QStringList{u"Cove"_s, u"Amber"_s}));
    EXPECT_EQ(names("similar?name=Amber"), (QStringList{u"Cove"_s, u"Dune"_s})); // tags come before plays
    play('d', 8);
    EXPECT_EQ(names("similar?name=Amber"), (QStringList{u"Cove"_s, u"Dune"_s}));
    play('o', 20);
    const QStringList played{u"Unknown Artist"_s, u"Dune"_s, u"Cove"_s, u"Amber"_s};
    EXPECT_EQ(names("top_hottt?"), played);
    EXPECT_EQ(names("search?description=folk&sort=hotttnesss-desc"), played.mid(1));
    const double most = hotness("unknown+artist");
    EXPECT_GT(most, 0.5);
    EXPECT_LT(most, 1);
    EXPECT_GT(hotness("Amber"), 0);
    stop();
    start();
    EXPECT_EQ(names("top_hottt?"), played);
    EXPECT_NEAR(hotness("unknown+artist"), most, 1e-3);

    // What is played now counts more than what was played more often weeks ago.
    now_ += 6 * week;
    play('a', 5);
    EXPECT_EQ(names("top_hottt?").first(), u"Amber"_s);
    now_ += 52 * week;
    EXPECT_EQ(names("top_hottt?"), before);
    EXPECT_NEAR(hotness("Amber"), 0.6, 1e-3);
}

} // namespace
} // namespace zib
