// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for what a song on the network can do to a player: bytes lost, repeated or unbounded, an end that
// comes early or never, a wait without limit.
#include "platform/desktop/CurlReadStreams.h"
#include "tests/desktop/StreamReader.h"
#include "tests/fakes/FakeHttpReadStreams.h"
#include "tests/support/TestHttpServer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zib {
namespace {

using test::get;
using Reader = test::StreamReader;
using Event = HttpReadStream::Event;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

QByteArray song(qsizetype bytes)
{
    QByteArray song(bytes, Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes; ++i)
        song[i] = static_cast<char>(i * 131 + i / 251);
    return song;
}

/// A web that serves one song, real or faked.
class Web {
  public:
    virtual ~Web() = default;
    virtual HttpReadStreams& streams() = 0;
    virtual QByteArray serve(const QByteArray& song, bool fails) = 0;
};

class RealWeb : public Web {
  public:
    explicit RealWeb(bool honoursRanges)
        : honoursRanges_(honoursRanges)
    {
    }
    HttpReadStreams& streams() override { return streams_; }
    QByteArray serve(const QByteArray& song, bool fails) override
    {
        TestReply reply{.body = song, .headers = {{"X-Mood", "calm"}}, .honoursRanges = honoursRanges_};
        if (fails)
            reply.announcedLength = song.size() + 1;
        return server_.serve("/song.mp3", reply);
    }

  private:
    const bool honoursRanges_;
    TestHttpServer server_;
    CurlReadStreams streams_;
};

class FakedWeb : public Web {
  public:
    HttpReadStreams& streams() override { return streams_; }
    QByteArray serve(const QByteArray& song, bool fails) override
    {
        streams_.onOpen = [song, fails](FakeHttpExchange& exchange) {
            exchange.respond({{"Content-Length", QByteArray::number(song.size())}, {"X-Mood", "calm"}});
            exchange.sendAsked(song);
            fails ? exchange.fail() : exchange.end();
        };
        return "http://fake/song.mp3";
    }

  private:
    FakeHttpReadStreams streams_;
};

struct Side {
    const char* name;
    std::unique_ptr<Web> (*make)();

    friend void PrintTo(const Side& side, std::ostream* out) { *out << side.name; }
};
constexpr Side kSides[] = {
    {"Real", []() -> std::unique_ptr<Web> { return std::make_unique<RealWeb>(true); }},
    {"RealWithoutRanges", []() -> std::unique_ptr<Web> { return std::make_unique<RealWeb>(false); }},
    {"Fake", []() -> std::unique_ptr<Web> { return std::make_unique<FakedWeb>(); }},
};
class HttpReadStreamContract : public testing::TestWithParam<Side> {
  protected:
    std::unique_ptr<Web> web = GetParam().make();
    Reader reader{web->streams()};
};
INSTANTIATE_TEST_SUITE_P(All, HttpReadStreamContract, testing::ValuesIn(kSides),
                         [](const auto& side) { return std::string(side.param.name); });

TEST_P(HttpReadStreamContract, GivesEveryByteThenOneEnd)
{
    for (const qsizetype bytes : {0, 1, 2048, 300'000}) {
        SCOPED_TRACE(bytes);
        Reader each(web->streams());
        ASSERT_TRUE(each.open(get(web->serve(song(bytes), false))));
        each.run();
        EXPECT_EQ(each.last, Event::EndEncountered);
        EXPECT_EQ(each.received, song(bytes));
        EXPECT_EQ(each.stream->responseHeaders().value("X-Mood"), "calm");
        // An ended stream stays scheduled, in silence, until it is closed.
        EXPECT_TRUE(each.loop->runFor(milliseconds(1)));
        EXPECT_EQ(each.lastEvents, 1);
        each.stream->close();
        each.stream->close();
        EXPECT_FALSE(each.loop->runFor(milliseconds(1)));
    }
}

TEST_P(HttpReadStreamContract, BytesBeforeARangeAreLeftOutWhetherTheServerHonoursItOrNot)
{
    for (const qsizetype from : {1, 40'000, 299'999}) {
        SCOPED_TRACE(from);
        Reader each(web->streams());
        const QByteArray range = "bytes=" + QByteArray::number(from) + "-300000";
        ASSERT_TRUE(each.open(get(web->serve(song(300'000), false), {{"Range", range}})));
        each.run();
        EXPECT_EQ(each.last, Event::EndEncountered);
        EXPECT_EQ(each.received, song(300'000).mid(from));
    }
}

TEST_P(HttpReadStreamContract, FailureIsAnErrorAndNoEnd)
{
    ASSERT_TRUE(reader.open(get(web->serve(song(1000), true))));
    reader.run();
    EXPECT_EQ(reader.last, Event::ErrorOccurred);
    EXPECT_TRUE(reader.loop->runFor(milliseconds(1)));
    EXPECT_EQ(reader.lastEvents, 1);
}

TEST_P(HttpReadStreamContract, CloseFromWithinAnEventEndsTheEvents)
{
    reader.closesAtBytes = true;
    ASSERT_TRUE(reader.open(get(web->serve(song(10'000), false))));
    reader.run();
    EXPECT_FALSE(reader.last.has_value());
    EXPECT_TRUE(reader.received.isEmpty());
    EXPECT_FALSE(reader.loop->runFor(milliseconds(1)));
}

TEST_P(HttpReadStreamContract, BytesAreToldOfOnceUntilTheyAreRead)
{
    reader.reads = false;
    int told = 0;
    ASSERT_TRUE(reader.open(get(web->serve(song(3000), false))));
    reader.stream->setClient([&told](HttpReadStream&, Event) { ++told; });
    while (told == 0)
        ASSERT_TRUE(reader.loop->runFor(milliseconds(50)));
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(reader.loop->runFor(milliseconds(2)));
    EXPECT_EQ(told, 1);
}

TEST_P(HttpReadStreamContract, WakeEndsTheNextRun)
{
    EXPECT_FALSE(reader.loop->runFor(std::chrono::minutes(10))) << "nothing is scheduled";
    reader.reads = false;
    ASSERT_TRUE(reader.open(get(web->serve(song(10), false))));
    while (!reader.stream->hasBytesAvailable())
        ASSERT_TRUE(reader.loop->runFor(milliseconds(50)));
    reader.loop->runFor(milliseconds(1));
    reader.loop->wake();
    EXPECT_TRUE(reader.loop->runFor(std::chrono::minutes(10))); // the test's own limit is shorter
}

/// The real streams against a server of ill will.
class CurlReadStreamTest : public testing::Test {
  protected:
    /// Plays the reply through a reader and returns how it ended.
    std::optional<Event> play(const TestReply& reply)
    {
        EXPECT_TRUE(reader.open(get(server.serve("/song", reply))));
        reader.run();
        return reader.last;
    }

    TestHttpServer server;
    // Impatient, so that the tests need not wait; those that must not time out say so by a server that
    // answers.
    CurlReadStreams streams{milliseconds(400)};
    Reader reader{streams};
};

TEST_F(CurlReadStreamTest, FaultsOfServersEndAsTheyShould)
{
    struct Case {
        const char* name;
        TestReply reply;
        Event end;
        qsizetype received;
    };
    const QByteArray body = song(50'000);
    const Case cases[] = {
        {"no length", {.body = body, .announcedLength = TestReply::kNoLength}, Event::EndEncountered, 50'000},
        {"a length too small", {.body = body, .announcedLength = 100}, Event::EndEncountered, 100},
        {"a length too large", {.body = body, .announcedLength = 50'001}, Event::ErrorOccurred, 50'000},
        {"closed half-way", {.body = body, .closeAt = 25'000}, Event::ErrorOccurred, 25'000},
        {"not found, with a page", {.body = body, .status = 404}, Event::ErrorOccurred, 0},
        {"server error", {.body = body, .status = 503}, Event::ErrorOccurred, 0},
        {"no HTTP at all", {.rawHead = song(3000)}, Event::ErrorOccurred, 0},
        {"closed without a word", {.rawHead = ""}, Event::ErrorOccurred, 0},
        {"redirects to itself", TestReply::redirect("/song"), Event::ErrorOccurred, 0},
        {"redirects to a file", TestReply::redirect("file:///etc/hostname"), Event::ErrorOccurred, 0},
        {"never answers", {.neverAnswers = true}, Event::ErrorOccurred, 0},
        {"stalls for good", {.body = body, .stallAt = 9000}, Event::ErrorOccurred, 9000},
        {"encodes unasked",
         {.body = body, .headers = {{"Content-Encoding", "gzip"}}},
         Event::EndEncountered,
         50'000},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        Reader each(streams);
        ASSERT_TRUE(each.open(get(server.serve("/song", one.reply))));
        each.run();
        EXPECT_EQ(each.last, one.end);
        EXPECT_EQ(each.received, body.first(one.received));
    }
}

TEST_F(CurlReadStreamTest, EndlessHeadersAreNotGathered)
{
    EXPECT_EQ(
        play({.rawHead = "HTTP/1.1 200 OK\r\n" + QByteArray("X-Filler: y\r\n").repeated(60'000) + "\r\n"}),
        Event::ErrorOccurred);
}

TEST_F(CurlReadStreamTest, FollowsAChainOfRedirectsAndTellsTheLastHeaders)
{
    server.serve("/a", TestReply::redirect(server.url("/b")));
    server.serve("/b", TestReply::redirect("c"));
    server.serve("/c", {.body = "found", .headers = {{"X-Place", "c"}}});
    ASSERT_TRUE(reader.open(get(server.url("/a"))));
    reader.run();
    EXPECT_EQ(reader.received, "found");
    EXPECT_EQ(reader.stream->responseHeaders().value("X-Place"), "c");
    EXPECT_FALSE(reader.stream->responseHeaders().contains("Location"));
}

TEST_F(CurlReadStreamTest, ARangeSurvivesRedirectsAndAnAnswerThatBeginsEarlier)
{
    server.serve("/a", TestReply::redirect(server.url("/b")));
    server.serve("/b", {.body = song(50'000), .honoursRanges = true});
    server.serve("/early", {.body = song(50'000).mid(1024),
                            .status = 206,
                            .headers = {{"content-range", "bytes 1024-49999/50000"}}});
    server.serve("/odd", {.body = song(5000).mid(2000), .status = 206, .headers = {{"Content-Range", "x"}}});
    const struct {
        const char* path;
        QByteArray received;
    } cases[] = {
        {"/a", song(50'000).mid(2000)}, {"/early", song(50'000).mid(2000)}, {"/odd", song(5000).mid(2000)}};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.path);
        Reader each(streams);
        ASSERT_TRUE(each.open(get(server.url(one.path), {{"Range", "bytes=2000-50000"}})));
        each.run();
        EXPECT_EQ(each.last, Event::EndEncountered);
        EXPECT_EQ(each.received, one.received);
        EXPECT_EQ(server.requests().back().header("Range"), "bytes=2000-50000");
    }
}

TEST_F(CurlReadStreamTest, AddressAndHeadersGoOutByteForByte)
{
    const QByteArray target = "/a/../b/./%2D%7e%41/'()?q=%20+&r=a/../b";
    server.serve(target, {.body = song(1000), .honoursRanges = true});
    ASSERT_TRUE(reader.open(get(server.url(target), {{"Range", "bytes=400-1000"}})));
    reader.run();
    EXPECT_EQ(reader.received, song(1000).mid(400));
    ASSERT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(server.requests()[0].target, target);
    EXPECT_EQ(server.requests()[0].header("Range"), "bytes=400-1000");
    EXPECT_THAT(server.requests()[0].header("User-Agent").toStdString(),
                testing::MatchesRegex("Zib/[0-9.]+"));
    EXPECT_TRUE(server.requests()[0].header("Accept-Encoding").isNull());
}

TEST_F(CurlReadStreamTest, AddressesThatAreNoneBeginNothing)
{
    for (const char* url :
         {"", "song.mp3", "ftp://127.0.0.1/x", "file:///etc/hostname", "http://", "http://a b/"})
        EXPECT_FALSE(reader.open(get(url))) << url;
}

TEST_F(CurlReadStreamTest, AReaderThatStopsReadingStopsTheServer)
{
    constexpr qsizetype kBytes = 32 * 1024 * 1024;
    const QByteArray body = song(kBytes);
    reader.reads = false;
    ASSERT_TRUE(reader.open(get(server.serve("/song", {.body = body}))));
    // Until nothing moves any more: what is on the way fills the kernel's buffers and ours, and no more. That
    // also takes longer than the patience, which such a wait must not use up.
    qint64 sent = -1;
    for (int quiet = 0; quiet < 30; quiet = sent == server.bytesSent() ? quiet + 1 : 0) {
        sent = server.bytesSent();
        ASSERT_TRUE(reader.loop->runFor(milliseconds(20)));
    }
    EXPECT_LT(sent, kBytes / 2);
    EXPECT_FALSE(reader.last.has_value());

    reader.reads = true;
    reader.take(Event::HasBytesAvailable);
    reader.run();
    EXPECT_EQ(reader.last, Event::EndEncountered);
    EXPECT_TRUE(reader.received == body);
}

TEST_F(CurlReadStreamTest, TimeOutsideTheLoopIsNotTheServersFault)
{
    ASSERT_TRUE(reader.open(get(server.serve("/song", {.body = song(500'000)}))));
    while (reader.received.isEmpty())
        ASSERT_TRUE(reader.loop->runFor(milliseconds(50)));
    std::this_thread::sleep_for(milliseconds(900)); // as while all sound buffers are full
    reader.run();
    EXPECT_EQ(reader.last, Event::EndEncountered);
    EXPECT_EQ(reader.received, song(500'000));
}

TEST_F(CurlReadStreamTest, TwoStreamsOfOneLoopDoNotDisturbEachOther)
{
    const QByteArray url = server.serve("/song", {.body = song(400'000), .pieceBytes = 50'000});
    ASSERT_TRUE(reader.open(get(url)));
    auto idle = streams.makeReadStream(get(url));
    ASSERT_TRUE(idle->open());
    idle->scheduleOn(*reader.loop);
    reader.run();
    EXPECT_EQ(reader.received, song(400'000));
    QByteArray second;
    std::array<char, 4096> piece{};
    const auto limit = steady_clock::now() + std::chrono::minutes(1);
    while (second.size() < 400'000 && steady_clock::now() < limit) {
        reader.loop->runFor(milliseconds(20));
        while (const qint64 count = idle->read(piece.data(), piece.size()))
            second.append(piece.data(), count);
    }
    EXPECT_EQ(second, song(400'000));
}

} // namespace
} // namespace zib
