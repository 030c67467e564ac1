// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts what brings a server down or lets one client starve the others: hostile bytes on the wire, half
// requests, idle crowds, slow readers, songs that are still being made.
#include "catalogue/CatalogueService.h"
#include "tests/catalogue/FakeDemoSongs.h"
#include "tests/catalogue/RawClient.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <deque>
#include <thread>

namespace zib {
namespace {

using namespace Qt::StringLiterals;

const QString songId(32, u'a');
const QString unmadeId(32, u'b');
const QByteArray host = "Host: localhost\r\n";

QByteArray songBytes()
{
    QByteArray bytes(3000000, Qt::Uninitialized);
    quint32 state = 1;
    for (auto& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = char(state >> 24);
    }
    return bytes;
}

class HttpServerTest : public testing::Test {
  protected:
    HttpServerTest()
    {
        demo_.addArtist(u"Amber Tide"_s, {u"ambient"_s}, 0.5,
                        {{songId, u"Made"_s, 60, u"mp3"_s, u"audio/mpeg"_s},
                         {unmadeId, u"Unmade"_s, 60, u"wav"_s, u"audio/wav"_s}});
        demo_.render(songId, song_);
        service_.emplace(demo_, *Database::open(folder_.filePath(u"index.sqlite"_s), SongIndex::schema()));
        auto socket = ListeningSocket::open(u"127.0.0.1"_s, 0);
        port_ = socket->port();
        HttpServer::Limits limits;
        limits.requestSeconds = 1;
        server_ = HttpServer::start(std::move(*socket), *service_, limits);
    }

    ~HttpServerTest() override
    {
        demo_.stop();
        server_.reset();
    }

    RawReply get(const QByteArray& target, const QByteArray& headers = {})
    {
        RawClient client(port_);
        client.send("GET " + target + " HTTP/1.1\r\n" + host + headers + "\r\n");
        return client.reply();
    }

    static QByteArray audio(const QString& id = songId) { return "/audio/" + id.toLatin1() + ".mp3"; }

    QTemporaryDir folder_;
    const QByteArray song_ = songBytes();
    FakeDemoSongs demo_{folder_.path()};
    std::optional<CatalogueService> service_;
    std::unique_ptr<HttpServer> server_;
    quint16 port_ = 0;
};

TEST_F(HttpServerTest, ServesById)
{
    const auto whole = get(audio());
    EXPECT_EQ(whole.status, 200);
    EXPECT_EQ(whole.body, song_);
    EXPECT_EQ(whole.header("Content-Type"), "audio/mpeg");
    EXPECT_EQ(whole.header("Accept-Ranges"), "bytes");
    EXPECT_FALSE(whole.header("ETag").isEmpty());
    EXPECT_EQ(get(audio(), "If-None-Match: " + whole.header("ETag") + "\r\n").status, 304);

    const auto end = get(audio(), "Range: bytes=2999990-3000000\r\n");
    EXPECT_EQ(end.status, 206);
    EXPECT_EQ(end.body, song_.last(10));
    EXPECT_EQ(end.header("Content-Range"), "bytes 2999990-2999999/3000000");
    const auto behind = get(audio(), "Range: bytes=3000000-\r\n");
    EXPECT_EQ(behind.status, 416);
    EXPECT_EQ(behind.header("Content-Range"), "bytes */3000000");

    const QList<std::pair<QByteArray, int>> cases{
        {"/", 200},
        {"/health", 200},
        {"/song/" + songId.toLatin1(), 200},
        {"/cover/" + songId.toLatin1(), 200},
        {"/api/v4/artist/top_hottt?api_key=K", 200},
        {"/api/v4/artist/top_hottt", 400},
        {"/api/v4/artist/", 404},
        {"/audio/" + songId.toLatin1(), 404},
        {"/audio/" + songId.toLatin1() + ".wav", 404},
        {"/audio/" + songId.toLatin1() + ".mp3/", 404},
        {"/audio/" + QByteArray(32, 'f') + ".mp3", 404},
        {"/audio/%2Fetc%2Fpasswd", 404},
        {"/audio/../../etc/passwd", 400},
        {"/song/'%20OR%201=1", 404},
    };
    for (const auto& [target, status] : cases)
        EXPECT_EQ(get(target).status, status) << target.constData();
}

TEST_F(HttpServerTest, KeepsConnectionsForTheNextRequest)
{
    RawClient client(port_);
    ASSERT_TRUE(client.send("HEAD " + audio() + " HTTP/1.1\r\n" + host + "\r\n"));
    const auto head = client.reply(false);
    EXPECT_EQ(head.status, 200);
    EXPECT_EQ(head.header("Content-Length"), "3000000");
    for (const char* range : {"0-9", "10-19", "20-29"}) {
        ASSERT_TRUE(
            client.send("GET " + audio() + " HTTP/1.1\r\n" + host + "Range: bytes=" + range + "\r\n\r\n"));
        EXPECT_EQ(client.reply().status, 206) << range;
    }
    ASSERT_TRUE(client.send("GET /health HTTP/1.1\r\n" + host + "Connection: close\r\n\r\n"));
    EXPECT_EQ(client.reply().body, "ok\n");
    EXPECT_TRUE(client.closes());
}

TEST_F(HttpServerTest, SurvivesHostileRequests)
{
    struct Case {
        const char* name;
        QByteArray bytes;
        QList<int> statuses; ///< 0: closed without a word
    };
    const QByteArray get = "GET /health HTTP/1.1\r\n";
    const QList<Case> cases{
        {"body", get + host + "Content-Length: 3\r\n\r\nabc", {413}},
        {"endless body",
         "PUT / HTTP/1.1\r\n" + host + "Content-Length: 99999999999\r\n\r\n" + QByteArray(9999, 'a'),
         {405}},
        {"strange encoding", get + host + "Transfer-Encoding: xchunked\r\n\r\n", {413, 400}},
        {"long target", "GET /" + QByteArray(20000, 'a') + " HTTP/1.1\r\n" + host + "\r\n", {414}},
        {"target without end", "GET /" + QByteArray(200000, 'a'), {414, 400, 431, 0}},
        {"large header", get + host + "X: " + QByteArray(100000, 'a') + "\r\n\r\n", {431, 413, 400, 0}},
        {"many headers", get + host + QByteArray("X: y\r\n").repeated(20000) + "\r\n", {431, 413, 400, 0}},
        {"NUL in a header", get + host + QByteArray("X: a\0b\r\n\r\n", 10), {200, 400, 0}},
        {"no HTTP", QByteArray(5000, '\0') + "\r\n\r\n", {400, 414, 431, 0}},
        {"another protocol", "\x16\x03\x01\x02\x00\x01\x00\x01\xfc\x03\x03\r\n\r\n", {400, 0}},
        {"old version", "GET /health HTTP/0.9\r\n\r\n", {400, 505, 0}},
    };
    for (const auto& [name, bytes, statuses] : cases) {
        RawClient client(port_);
        client.send(bytes); // may fail: the server need not read to the end
        const auto reply = client.reply();
        EXPECT_TRUE(statuses.contains(reply.status)) << name << ": " << reply.status;
        EXPECT_TRUE(client.closes()) << name;
        EXPECT_EQ(this->get("/health").status, 200) << "after: " << name;
    }
}

TEST_F(HttpServerTest, EndsRequestsThatNeverCome)
{
    RawClient silent(port_);
    RawClient half(port_);
    half.send("GET /health HTTP/1.1\r\nHos");
    RawClient dripping(port_);
    std::jthread drip([&dripping] {
        // Never idle for long, so that only a bound on the whole request ends it.
        while (dripping.send("X"))
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
    });
    EXPECT_TRUE(silent.closes());
    EXPECT_TRUE(half.closes());
    EXPECT_TRUE(dripping.closes());
}

TEST_F(HttpServerTest, AnswersTwoHundredRangesAtOnceAmongIdleAndSlowClients)
{
    std::deque<RawClient> idle;
    for (int i = 0; i < 100; ++i)
        idle.emplace_back(port_);
    std::deque<RawClient> slow; // ask for all and read nothing
    for (int i = 0; i < 30; ++i) {
        slow.emplace_back(port_);
        ASSERT_TRUE(slow.back().send("GET " + audio() + " HTTP/1.1\r\n" + host + "\r\n"));
    }
    constexpr int size = 100000;
    std::deque<RawClient> clients;
    const auto offset = [](int i) { return i * 14500; };
    for (int i = 0; i < 200; ++i) {
        clients.emplace_back(port_);
        ASSERT_TRUE(clients.back().isConnected()) << i;
        ASSERT_TRUE(clients.back().send("GET " + audio() + " HTTP/1.1\r\n" + host +
                                        "Range: bytes=" + QByteArray::number(offset(i)) + '-' +
                                        QByteArray::number(offset(i) + size - 1) + "\r\n\r\n"));
    }
    for (int i = 0; i < 200; ++i) {
        const auto reply = clients[size_t(i)].reply();
        EXPECT_EQ(reply.status, 206) << i;
        EXPECT_TRUE(reply.body == song_.mid(offset(i), size)) << i;
    }
    EXPECT_EQ(get("/api/v4/artist/top_hottt?api_key=K").status, 200);
    for (auto& client : slow)
        EXPECT_TRUE(client.reply().body == song_);
}

TEST_F(HttpServerTest, WaitsForAnUnmadeSongWithoutHoldingOthersUp)
{
    const QByteArray request = "GET /audio/" + unmadeId.toLatin1() + ".wav HTTP/1.1\r\n" + host + "\r\n";
    const int before = demo_.waitsBegun();
    std::deque<RawClient> waiting;
    for (int i = 0; i < 50; ++i) {
        waiting.emplace_back(port_);
        ASSERT_TRUE(waiting.back().send(request));
    }
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(get("/api/v4/artist/search?api_key=K&name=amber+tide&fuzzy_match=true").status, 200);
        EXPECT_EQ(get(audio(), "Range: bytes=0-9\r\n").status, 206);
    }
    demo_.render(unmadeId, "made at last");
    for (auto& client : waiting)
        EXPECT_EQ(client.reply().body, "made at last");
    EXPECT_LE(demo_.waitsBegun() - before, 20 + 50); // one for each range above; the waiting ones share
}

TEST_F(HttpServerTest, StopsWhileSongsAreWaitedFor)
{
    RawClient waiting(port_);
    ASSERT_TRUE(waiting.send("GET /audio/" + unmadeId.toLatin1() + ".wav HTTP/1.1\r\n" + host + "\r\n"));
    const int before = demo_.waitsBegun();
    while (demo_.waitsBegun() == before)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    RawClient open(port_);
    ASSERT_TRUE(open.send("GET /health HTTP/1.1\r\n" + host + "\r\n"));
    EXPECT_EQ(open.reply().status, 200);

    server_->quiesce();
    EXPECT_TRUE(open.send("GET /health HTTP/1.1\r\n" + host + "\r\n"));
    EXPECT_EQ(open.reply().status, 503);
    demo_.stop();
    EXPECT_EQ(waiting.reply().status, 503);
    server_.reset();
    EXPECT_FALSE(RawClient(port_).isConnected());
}

} // namespace
} // namespace zib
