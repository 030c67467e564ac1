// SPDX-License-Identifier: GPL-3.0-or-later
// What web-service clients rely on of any loader, the real one and the fake: events in order, never at once,
// none after the end and none once it is cancelled.
#include "platform/desktop/CurlUrlLoader.h"
#include "tests/desktop/UrlRecorder.h"
#include "tests/fakes/FakeUrlLoader.h"
#include "tests/support/TestHttpServer.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zib {
namespace {

using testing::IsEmpty;
using Recorder = UrlRecorder;
using Told = Recorder::Told;

/// A web with one page, real or faked.
class Web {
  public:
    virtual ~Web() = default;
    virtual std::unique_ptr<UrlConnection>
    start(const QByteArray& body, int status, const UrlRequest& options, UrlConnectionDelegate& delegate) = 0;
    virtual std::unique_ptr<UrlConnection> startFailing(UrlConnectionDelegate& delegate) = 0;
    virtual std::unique_ptr<UrlConnection> startImpossible(UrlConnectionDelegate& delegate) = 0;
};

class RealWeb : public Web {
  public:
    std::unique_ptr<UrlConnection> start(const QByteArray& body, int status, const UrlRequest& options,
                                         UrlConnectionDelegate& delegate) override
    {
        UrlRequest request = options;
        const QByteArray path = "/page" + QByteArray::number(++pages_); // the cache knows none of them
        request.url = server_.serve(path, {.body = body, .status = status});
        return loader_.start(request, delegate);
    }
    std::unique_ptr<UrlConnection> startFailing(UrlConnectionDelegate& delegate) override
    {
        return loader_.start(get(server_.serve("/bad", {.body = "half", .announcedLength = 8})), delegate);
    }
    std::unique_ptr<UrlConnection> startImpossible(UrlConnectionDelegate& delegate) override
    {
        return loader_.start(get("nowhere"), delegate);
    }

  private:
    TestHttpServer server_;
    QTemporaryDir folder_;
    CurlUrlLoader loader_{folder_.path()};
    int pages_ = 0;
};

class FakedWeb : public Web {
  public:
    std::unique_ptr<UrlConnection> start(const QByteArray& body, int status, const UrlRequest& options,
                                         UrlConnectionDelegate& delegate) override
    {
        auto connection = loader_.start(options, delegate);
        QTimer::singleShot(0, &timers_, [exchange = loader_.exchanges.back(), body, status] {
            exchange->reply(body, status);
        });
        return connection;
    }
    std::unique_ptr<UrlConnection> startFailing(UrlConnectionDelegate& delegate) override
    {
        auto connection = loader_.start(get("http://fake/"), delegate);
        QTimer::singleShot(0, &timers_, [exchange = loader_.exchanges.back()] {
            exchange->respond();
            exchange->send("half");
            exchange->fail(QStringLiteral("The reply was cut off"));
        });
        return connection;
    }
    std::unique_ptr<UrlConnection> startImpossible(UrlConnectionDelegate& delegate) override
    {
        loader_.refuses = true;
        return loader_.start(get("nowhere"), delegate);
    }

  private:
    QObject timers_;
    FakeUrlLoader loader_;
};

template <typename Kind>
std::unique_ptr<Web> make()
{
    return std::make_unique<Kind>();
}

class UrlConnectionContract : public testing::TestWithParam<std::unique_ptr<Web> (*)()> {
  protected:
    std::unique_ptr<Web> web = GetParam()();
    Recorder recorder;
};
INSTANTIATE_TEST_SUITE_P(RealAndFake, UrlConnectionContract, testing::Values(&make<RealWeb>, &make<FakedWeb>),
                         [](const auto& kind) { return kind.index == 0 ? "Real" : "Fake"; });

TEST_P(UrlConnectionContract, TellsResponseThenDataThenTheEndAndNeverAtOnce)
{
    for (const int status : {200, 404, 500}) {
        SCOPED_TRACE(status);
        Recorder each;
        each.connection = web->start("a page", status, {}, each);
        ASSERT_TRUE(each.connection);
        EXPECT_THAT(each.told, IsEmpty()) << "from within start()";
        each.wait();
        EXPECT_EQ(each.told, (std::vector{Told::Response, Told::Data, Told::Finish}));
        EXPECT_EQ(each.response.status, status);
        EXPECT_EQ(each.response.expectedContentLength, 6);
        EXPECT_EQ(each.body, "a page");
    }
}

TEST_P(UrlConnectionContract, AFailureIsTheLastEvent)
{
    recorder.connection = web->startFailing(recorder);
    recorder.wait();
    settle();
    EXPECT_EQ(recorder.told.back(), Told::Failure);
    EXPECT_EQ(std::count(recorder.told.begin(), recorder.told.end(), Told::Finish), 0);
    EXPECT_FALSE(recorder.failure.isEmpty());
}

TEST_P(UrlConnectionContract, ALongerBodyThanAllowedFails)
{
    UrlRequest request;
    request.maximumBytes = 1000;
    recorder.connection = web->start(QByteArray(1001, 'x'), 200, request, recorder);
    recorder.wait();
    EXPECT_EQ(recorder.told.back(), Told::Failure);
    EXPECT_LE(recorder.body.size(), 1000);
}

TEST_P(UrlConnectionContract, DestroyingItCancels)
{
    for (const Told event : {Told::Response, Told::Data, Told::Finish}) {
        Recorder each;
        each.cancelsAt = event;
        each.connection = web->start("a page", 200, {}, each);
        each.wait();
        settle();
        EXPECT_EQ(each.told.back(), event);
    }
    recorder.connection = web->start("a page", 200, {}, recorder);
    recorder.connection.reset();
    settle();
    EXPECT_THAT(recorder.told, IsEmpty());
}

TEST_P(UrlConnectionContract, WhatCantBeRequestedIsNoConnection)
{
    EXPECT_EQ(web->startImpossible(recorder), nullptr);
    settle();
    EXPECT_THAT(recorder.told, IsEmpty());
}

} // namespace
} // namespace zib
