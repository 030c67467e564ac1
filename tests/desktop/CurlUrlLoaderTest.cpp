// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for web requests that never end, grow without bound, or are answered by the wrong reply of the cache.
#include "platform/desktop/CurlUrlLoader.h"
#include "tests/desktop/UrlRecorder.h"
#include "tests/support/TestHttpServer.h"

#include <QDir>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zib {
namespace {

using std::chrono::milliseconds;
using testing::IsEmpty;
using Recorder = UrlRecorder;
using Told = Recorder::Told;

class CurlUrlLoaderTest : public testing::Test {
  protected:
    /// Asks and waits for the end.
    std::unique_ptr<Recorder> load(const UrlRequest& request)
    {
        auto recorder = std::make_unique<Recorder>();
        recorder->connection = loader->start(request, *recorder);
        recorder->wait();
        recorder->connection.reset();
        return recorder;
    }
    std::unique_ptr<Recorder> load(const QByteArray& path, const TestReply& reply)
    {
        return load(get(server.serve(path, reply)));
    }
    [[nodiscard]] QStringList cachedFiles() const { return QDir(folder.path()).entryList(QDir::Files); }

    TestHttpServer server;
    QTemporaryDir folder;
    std::unique_ptr<CurlUrlLoader> loader = std::make_unique<CurlUrlLoader>(folder.path(), 80'000);
};

TEST_F(CurlUrlLoaderTest, FaultsOfServersFail)
{
    struct Case {
        const char* name;
        TestReply reply;
    };
    const Case cases[] = {
        {"never answers", {.neverAnswers = true}},
        {"stalls", {.body = QByteArray(100, 'x'), .stallAt = 50}},
        {"closed half-way", {.body = QByteArray(100, 'x'), .closeAt = 50}},
        {"redirects to itself", TestReply::redirect("/page")},
        {"redirects to a file", TestReply::redirect("file:///etc/hostname")},
        {"no HTTP", {.rawHead = "hello\r\n\r\n"}},
        {"a length that lies low",
         {.body = QByteArray(90'000, 'x'), .announcedLength = TestReply::kNoLength}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        UrlRequest request = get(server.serve("/page", one.reply));
        request.timeout = milliseconds(300);
        request.maximumBytes = 60'000;
        const auto recorder = load(request);
        ASSERT_TRUE(recorder->ended());
        EXPECT_EQ(recorder->told.back(), Told::Failure);
        EXPECT_FALSE(recorder->failure.isEmpty());
    }
    EXPECT_THAT(cachedFiles(), IsEmpty());
}

TEST_F(CurlUrlLoaderTest, SlowIsNotSilent)
{
    UrlRequest request = get(server.serve(
        "/page", {.body = QByteArray(10, 'x'), .pieceBytes = 1, .piecePause = milliseconds(200)}));
    request.timeout = milliseconds(1500); // less than the whole reply takes
    EXPECT_EQ(load(request)->body, QByteArray(10, 'x'));
}

TEST_F(CurlUrlLoaderTest, TheAddressGoesOutAsItStands)
{
    const QByteArray target = "/a/../%2D%7e?name=%C3%A9+b&x=a%2Fb";
    load(target, {.body = "x", .headers = {{"X-Mood", "Calm"}}});
    EXPECT_EQ(server.requests().back().target, target);
}

TEST_F(CurlUrlLoaderTest, TheCacheAnswersFirstAndAcrossRuns)
{
    const TestHeaders headers{{"X-Mood", "Calm"}};
    const auto first = load("/page", {.body = "old", .headers = headers});
    loader = std::make_unique<CurlUrlLoader>(folder.path(), 80'000);
    const auto second = load("/page", {.body = "new"});
    EXPECT_EQ(second->body, "old");
    EXPECT_EQ(second->told, first->told);
    EXPECT_EQ(second->response.status, 200);
    EXPECT_EQ(second->response.headers, first->response.headers);
    EXPECT_THAT(second->response.headers,
                testing::Contains(std::pair<QByteArray, QByteArray>("x-mood", "Calm")));
    EXPECT_EQ(server.requests().size(), 1U);

    UrlRequest fresh = get(server.url("/page"));
    fresh.returnCacheDataElseLoad = false;
    EXPECT_EQ(load(fresh)->body, "new");
    EXPECT_EQ(load(get(fresh.url))->body, "new") << "the newer reply is the one that stays";
    EXPECT_EQ(server.requests().size(), 2U);
}

TEST_F(CurlUrlLoaderTest, OnlyGoodRepliesAreKept)
{
    load("/missing", {.body = "x", .status = 404});
    load("/private", {.body = "x", .headers = {{"cache-control", "private, No-Store"}}});
    load("/cut", {.body = "x", .announcedLength = 2});
    load("/huge", {.body = QByteArray(20'000, 'x')});
    EXPECT_THAT(cachedFiles(), IsEmpty());
}

TEST_F(CurlUrlLoaderTest, WhatTheServerNoLongerLetsUsKeepIsForgotten)
{
    load("/page", {.body = "old"});
    UrlRequest fresh = get(server.serve("/page", {.body = "x", .headers = {{"Cache-Control", "no-store"}}}));
    fresh.returnCacheDataElseLoad = false;
    load(fresh);
    EXPECT_THAT(cachedFiles(), IsEmpty());
}

TEST_F(CurlUrlLoaderTest, DamagedEntriesWereNeverThere)
{
    for (const int damage : {0, 1, 2}) {
        SCOPED_TRACE(damage);
        load("/page", {.body = "old"});
        ASSERT_EQ(cachedFiles().size(), 1);
        QFile file(folder.filePath(cachedFiles().first()));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        if (damage == 0)
            file.resize(0);
        else if (damage == 1)
            file.resize(file.size() - 1);
        else
            file.write("XXXX");
        file.close();
        EXPECT_EQ(load("/page", {.body = "new"})->body, "new");
        EXPECT_EQ(load("/page", {.body = "newer"})->body, "new") << "kept again";
        QDir(folder.path()).remove(cachedFiles().first());
    }
}

TEST_F(CurlUrlLoaderTest, TheRepliesUsedLongestAgoLeave)
{
    const QByteArray body(9000, 'x');
    for (const char* path : {"/0", "/1", "/2", "/3", "/4", "/5", "/6", "/7"})
        load(path, {.body = body});
    load("/0", {}); // used again
    load("/8", {.body = body});
    qint64 bytes = 0;
    for (const QFileInfo& file : QDir(folder.path()).entryInfoList(QDir::Files))
        bytes += file.size();
    EXPECT_LE(bytes, 80'000);
    const auto asked = server.requests().size();
    load(get(server.url("/0")));
    load(get(server.url("/8")));
    EXPECT_EQ(server.requests().size(), asked) << "both were kept";
    load(get(server.url("/1")));
    EXPECT_EQ(server.requests().size(), asked + 1) << "the oldest was not";
}

TEST_F(CurlUrlLoaderTest, ABodyGoesOutByteForByteAndPastTheCache)
{
    const QByteArray body = QByteArray("a=1&b=\0%+ \xC3\xA9", 12).repeated(20'000);
    load("/form", {.body = "page"});
    UrlRequest post = get(server.serve("/form", {.body = "OK"}));
    post.body = UrlRequestBody{"application/x-www-form-urlencoded", body};
    EXPECT_EQ(load(post)->body, "OK");
    const TestRequest sent = server.requests().back();
    EXPECT_EQ(sent.method, "POST");
    EXPECT_EQ(sent.header("Content-Type"), "application/x-www-form-urlencoded");
    EXPECT_TRUE(sent.body == body);
    EXPECT_EQ(load(get(post.url))->body, "page") << "the cached page stays";
}

TEST_F(CurlUrlLoaderTest, LoadingWaitsForTheWholeReplyAndNoLonger)
{
    const UrlRequest request =
        get(server.serve("/slow", {.body = "whole", .pieceBytes = 1, .piecePause = milliseconds(20)}));
    const auto loaded = loader->load(request);
    ASSERT_TRUE(loaded) << loaded.error().toStdString();
    EXPECT_EQ(loaded->body, "whole");
    EXPECT_EQ(loaded->response.status, 200);
    EXPECT_EQ(loader->load(request)->body, "whole");
    EXPECT_EQ(server.requests().size(), 1U) << "the cache answers the second time";
    EXPECT_EQ(loader->load(get(server.serve("/missing", {.body = "no", .status = 404})))->response.status,
              404);

    const TestReply endless{.body = QByteArray(1000, 'x'), .pieceBytes = 1, .piecePause = milliseconds(50)};
    for (const auto& [path, reply] : {std::pair("/mute", TestReply{.neverAnswers = true}),
                                      std::pair("/endless", endless), // though it never stands still
                                      std::pair("/large", TestReply{.body = QByteArray(2000, 'x')})}) {
        UrlRequest failing = get(server.serve(path, reply));
        failing.timeout = milliseconds(400);
        failing.maximumBytes = 1000;
        const auto failed = loader->load(failing);
        ASSERT_FALSE(failed) << path;
        EXPECT_FALSE(failed.error().isEmpty());
    }
    EXPECT_FALSE(loader->load(get("nowhere")));
    EXPECT_FALSE(loader->load(get("http://127.0.0.1:1/")));
}

TEST_F(CurlUrlLoaderTest, AConnectionMayOutliveItsLoader)
{
    Recorder recorder;
    recorder.connection = loader->start(get(server.serve("/page", {.body = "late"})), recorder);
    loader.reset();
    recorder.wait();
    EXPECT_EQ(recorder.body, "late");
}

TEST_F(CurlUrlLoaderTest, ManyAtOnceDoNotMix)
{
    std::vector<std::unique_ptr<Recorder>> recorders;
    for (int i = 0; i < 30; ++i) {
        const QByteArray number = QByteArray::number(i);
        recorders.push_back(std::make_unique<Recorder>());
        recorders.back()->connection = loader->start(
            get(server.serve("/" + number, {.body = number.repeated(5000)})), *recorders.back());
    }
    for (int i = 0; i < 30; ++i) {
        recorders[static_cast<std::size_t>(i)]->wait();
        EXPECT_EQ(recorders[static_cast<std::size_t>(i)]->body, QByteArray::number(i).repeated(5000));
    }
}

TEST_F(CurlUrlLoaderTest, ADelegateMayRunAnEventLoopOfItsOwn)
{
    struct Modal : Recorder {
        void didReceiveResponse(const UrlResponse& received) override
        {
            settle(milliseconds(200)); // as an alert does, while the rest arrives
            EXPECT_THAT(told, IsEmpty());
            Recorder::didReceiveResponse(received);
        }
    } modal;
    modal.connection = loader->start(
        get(server.serve("/page",
                         {.body = QByteArray(300, 'x'), .pieceBytes = 100, .piecePause = milliseconds(20)})),
        modal);
    modal.wait();
    EXPECT_EQ(modal.told, (std::vector{Told::Response, Told::Data, Told::Finish}));
    EXPECT_EQ(modal.body, QByteArray(300, 'x'));
}

} // namespace
} // namespace zib
