// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts pages that a publisher could write into, publications that others could change, and clients that take
// more than their share; over the wire, as the program and browsers ask.
#include "catalogue/CatalogueService.h"
#include "records/KeyedArchive.h"
#include "records/RecordKeys.h"
#include "tests/catalogue/FakeDemoSongs.h"
#include "tests/catalogue/RawClient.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace zib {
namespace {

using namespace Qt::StringLiterals;

const QByteArray ann = "Ann_Lee-0123456789abcdef0123456789abcdef";
const QByteArray bob = "Bob-fedcba9876543210fedcba9876543210";
const QString hostile = u"\"><script>alert('x')</script>&amp;%1"_s;

QByteArray playlistOf(const QString& title, int songs = 1,
                      const QString& location = u"http://127.0.0.1:1/a.mp3"_s)
{
    QList<Record> tracks;
    for (int i = 0; i < songs; ++i)
        tracks.append(Record::make({{keys::Name, title},
                                    {keys::Artist, u"Band"_s},
                                    {keys::Duration, 3725},
                                    {keys::Location, location}}));
    return archivedData(Record::make({{keys::Name, title}, {keys::Tracks, tracks}}));
}

class PlaylistServiceTest : public testing::Test {
  protected:
    explicit PlaylistServiceTest(int perMinute = 0)
    {
        service_.emplace(demo_, *Database::open(folder_.filePath(u"index.sqlite"_s), SongIndex::schema()));
        service_->offerPlaylists(
            PlaylistService(PlaylistStore(*Database::open(folder_.filePath(u"playlists.sqlite"_s),
                                                          PlaylistStore::schema())),
                            PlaylistReading({})),
            perMinute);
        auto socket = ListeningSocket::open(u"127.0.0.1"_s, 0);
        port_ = socket->port();
        HttpServer::Limits limits;
        limits.bodySeconds = 1;
        limits.behindProxy = true;
        server_ = HttpServer::start(std::move(*socket), *service_, limits);
    }
    ~PlaylistServiceTest() override { server_.reset(); }

    RawReply request(const QByteArray& line, const QByteArray& headers, const QByteArray& body = {})
    {
        RawClient client(port_);
        client.send(line + " HTTP/1.1\r\nHost: localhost:80\r\n" + headers + "\r\n" + body);
        return client.reply();
    }
    RawReply get(const QByteArray& target) { return request("GET " + target, {}); }
    RawReply post(const QByteArray& body, const QByteArray& headers = {})
    {
        return request("POST /playlists/addplaylist.php",
                       "content-type: application/x-www-form-urlencoded\r\nContent-Length: " +
                           QByteArray::number(body.size()) + "\r\n" + headers,
                       body);
    }

    static QByteArray form(const QByteArray& user, const QString& name, const QByteArray& archive,
                           const QByteArray& id = {}, bool hidden = false)
    {
        return "user=" + user + "&name=" + name.toUtf8() + "&description=" + hostile.toUtf8() +
               "&hidden=" + (hidden ? "1" : "0") + "&data=" + archive.toBase64() +
               (id.isEmpty() ? "" : "&id=" + id) +
               "&tags=jazz,rock ^AMP; roll&description=" + hostile.toUtf8().replace("&", "^AMP;") + "^1;Band";
    }

    /// @return the id in an acknowledgement
    static QByteArray idIn(const RawReply& reply)
    {
        const auto words = reply.body.split(' ');
        return reply.status == 200 && words.size() == 3 && words[0] == "OK" ? words[1] : QByteArray();
    }

    QTemporaryDir folder_;
    FakeDemoSongs demo_{folder_.path()};
    std::optional<CatalogueService> service_;
    std::unique_ptr<HttpServer> server_;
    quint16 port_ = 0;
};

TEST_F(PlaylistServiceTest, PublishesAndGivesBack)
{
    const auto archive = playlistOf(u"Song + More"_s);
    const auto reply = post(form(ann, u"Rock & Roll"_s, archive));
    const auto id = idIn(reply);
    ASSERT_FALSE(id.isEmpty()) << reply.body.constData();
    EXPECT_TRUE(reply.body.endsWith(" rock-roll"));
    EXPECT_EQ(QByteArray::fromBase64(get("/playlists/getplaylist.php?id=" + id).body), archive);
    EXPECT_EQ(get("/playlists/getplaylist.php?id=0").status, 404);
    EXPECT_EQ(get("/playlists/getplaylist.php").status, 404);

    EXPECT_EQ(get("/playlists/" + id + "/rock-roll").status, 200);
    EXPECT_EQ(get("/playlists/" + id).header("Location"), "/playlists/" + id + "/rock-roll");
    EXPECT_EQ(get("/playlists").header("Location"), "/playlists/");
    for (const char* nowhere :
         {"/playlists/1", "/playlists/x", "/playlists/-1/x", "/playlists/99999999999/x"})
        EXPECT_EQ(get(nowhere).status, 404) << nowhere;

    EXPECT_EQ(post(form(bob, u"Mine now"_s, archive, id)).status, 403);
    EXPECT_EQ(post(form(ann, u"Renamed"_s, archive, "1")).status, 403);
    EXPECT_EQ(get("/playlists/" + id + "/rock-roll").status, 200);
    EXPECT_EQ(idIn(post(form(ann, u"Renamed"_s, archive, id))), id);
    EXPECT_EQ(get("/playlists/" + id + "/rock-roll").header("Location"), "/playlists/" + id + "/renamed");

    const auto hidden = idIn(post(form(ann, u"Secret"_s, archive, {}, true)));
    EXPECT_EQ(get("/playlists/" + hidden + "/secret").status, 200);
    const auto list = get("/playlists/?tag=rock+%26+roll").body;
    EXPECT_TRUE(list.contains(">Renamed<") && !list.contains("ecret"));
    EXPECT_TRUE(get("/metrics").body.contains("zib_playlists_published_total 3\n"));
}

TEST_F(PlaylistServiceTest, ListsWhatAnotherServiceChanges)
{
    PlaylistStore other(*Database::open(folder_.filePath(u"playlists.sqlite"_s), PlaylistStore::schema()));
    PlaylistForm change{.user = QString::fromLatin1(ann),
                        .name = u"Amber"_s,
                        .description = {},
                        .artists = {},
                        .tags = {u"jazz"_s}};
    const auto listed = [this](const QByteArray& name) {
        for (const char* query : {"", "?tag=jazz", "?q=a"})
            if (!get(QByteArray("/playlists/") + query).body.contains(name))
                return false;
        return true;
    };
    EXPECT_FALSE(listed("Amber"));
    change.id = other.publish(change, {}, 1).value_or(0);
    EXPECT_TRUE(listed("Amber"));
    change.name = u"Azure"_s;
    EXPECT_TRUE(other.publish(change, {}, 2));
    EXPECT_TRUE(listed("Azure"));
    EXPECT_FALSE(idIn(post(form(ann, u"Aqua"_s, playlistOf(u"T"_s)))).isEmpty());
    EXPECT_TRUE(listed("Aqua") && listed("Azure"));
    change.hidden = true;
    EXPECT_TRUE(other.publish(change, {}, 3));
    EXPECT_FALSE(get("/playlists/").body.contains("Azure"));
}

TEST_F(PlaylistServiceTest, EscapesWhatPublishersWrite)
{
    const auto id = idIn(post(form(ann, hostile, playlistOf(hostile, 1, u"http://h/\"><script>"_s))));
    ASSERT_FALSE(id.isEmpty());
    const auto page = get("/playlists/" + id + "/script-alert-x-script-amp-1");
    EXPECT_EQ(page.status, 200);
    for (const auto& body : {page.body, get("/playlists/").body,
                             get("/playlists/?q=%22%3E%3Cscript%3Ealert&tag=%22%3E%3Cscript%3Ealert").body}) {
        EXPECT_FALSE(body.contains("<script>")) << body.constData();
        EXPECT_TRUE(body.contains("&lt;script&gt;alert"));
    }
    EXPECT_TRUE(page.body.contains("<h1 dir=\"auto\">" + hostile.toHtmlEscaped().toUtf8() + "</h1>"));
    EXPECT_TRUE(page.body.contains(">1:02:05</time>"));
    const auto policy = page.header("Content-Security-Policy");
    EXPECT_TRUE(policy.contains("default-src 'none'") && !policy.contains("unsafe"));

    for (const char* location :
         {"javascript:alert(1)", "file:///etc/passwd", "data:audio/mpeg,x", "//h/x", "http:///x"}) {
        const auto other = idIn(post(form(ann, u"N"_s, playlistOf(u"T"_s, 1, QLatin1String(location)))));
        EXPECT_TRUE(get("/playlists/" + other + "/n").body.contains("Cannot be played here")) << location;
    }
}

TEST_F(PlaylistServiceTest, RefusesWhatIsNoPlaylist)
{
    EXPECT_EQ(idIn(post(form(ann, u"N"_s, playlistOf(u"T"_s, 50)))).isEmpty(), false);
    const QList<std::pair<const char*, QByteArray>> cases{
        {"no form", "hello"},
        {"no archive", form(ann, u"N"_s, "bplist00 nothing")},
        {"no songs", form(ann, u"N"_s, playlistOf(u"T"_s, 0))},
        {"51 songs", form(ann, u"N"_s, playlistOf(u"T"_s, 51))},
    };
    for (const auto& [name, body] : cases) {
        const auto reply = post(body);
        EXPECT_EQ(reply.status, 400) << name;
        EXPECT_TRUE(reply.body.size() > 20 && !reply.body.startsWith("OK")) << name;
    }
    EXPECT_EQ(post("x", "Origin: http://evil.example\r\n").status, 403);
    EXPECT_EQ(request("POST /playlists/", "Content-Length: 1\r\n", "x").status, 405);
    EXPECT_EQ(request("POST /playlists/addplaylist.php", "Content-Length: 1048577\r\n").status, 413);
    EXPECT_EQ(get("/playlists/addplaylist.php").status, 405);
    RawClient dripping(port_);
    dripping.send(
        "POST /playlists/addplaylist.php HTTP/1.1\r\nHost: localhost\r\nContent-Length: 100000\r\n\r\nuser=");
    EXPECT_TRUE(dripping.closes());
    EXPECT_FALSE(get("/playlists/").body.contains("1 song,"));
}

class LimitedPlaylistServiceTest : public PlaylistServiceTest {
  protected:
    LimitedPlaylistServiceTest()
        : PlaylistServiceTest(45)
    {
    }
};

TEST_F(LimitedPlaylistServiceTest, StopsOneAddressAndNotOthers)
{
    const auto body = form(ann, u"N"_s, playlistOf(u"T"_s));
    const QByteArray client = "X-Forwarded-For: 10.0.0.1, 192.0.2.7\r\n";
    EXPECT_EQ(post(body, client).status, 200);
    EXPECT_EQ(post(body, client).status, 200);
    const auto refused = post(body, client);
    EXPECT_EQ(refused.status, 429);
    EXPECT_GT(refused.header("Retry-After").toInt(), 0);
    EXPECT_EQ(post(body, "X-Forwarded-For: 192.0.2.8\r\n").status, 200);
    EXPECT_EQ(request("GET /playlists/", client).status, 200); // reading is cheaper
    EXPECT_EQ(request("GET /metrics", client).status, 404);
    // All addresses of one IPv6 network are one.
    EXPECT_EQ(post(body, "X-Forwarded-For: 2001:db8::1\r\n").status, 200);
    EXPECT_EQ(post(body, "X-Forwarded-For: 2001:db8::2\r\n").status, 200);
    EXPECT_EQ(post(body, "X-Forwarded-For: 2001:db8::3\r\n").status, 429);
    EXPECT_EQ(get("/health").status, 200);
}

} // namespace
} // namespace zib
