// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: bytes lost or taken from an error page, progress told too often, an end told twice or never, and a
// downloader used after its delegate has let go of it.
#include "services/RVFileDownloader.h"
#include "platform/SettingsKeys.h"
#include "records/PropertyValue.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeUrlLoader.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

#include <functional>

namespace zib {
namespace {

class RVFileDownloaderTest : public testing::Test, public RVFileDownloaderDelegate {
  protected:
    RVFileDownloaderTest()
    {
        // The count goes on from test to test; this brings it to its beginning.
        start();
        while (progress.isEmpty())
            loader.last().send("x");
        progress.clear();
        lengths.clear();
    }

    void start() { client = std::make_unique<RVFileDownloader>(services, track, this); }
    static void send(FakeUrlExchange& exchange, int pieces)
    {
        for (int piece = 0; piece < pieces; ++piece)
            exchange.send("12345");
    }

    void downloadGotExpectedContentLength(RVFileDownloader& download) override
    {
        lengths += download.expectedContentLength();
    }
    void downloadReceivedContentLength(RVFileDownloader& download) override
    {
        progress += download.contentLength();
        if (onProgress)
            onProgress();
    }
    void downloadCompletedForRequest(RVFileDownloader& request) override
    {
        completed += request.receivedData();
        client.reset();
    }
    void downloadFailedForRequest(RVFileDownloader& request, const ServiceError& withError) override
    {
        EXPECT_TRUE(request.fileDict().isSame(track));
        errors += withError.text;
        client.reset();
    }

    FakeUrlLoader loader;
    FakeUserDefaults defaults;
    FakeClock clock;
    WebServices services{loader, defaults, clock};
    Record track = Record::make({{keys::Location, QStringLiteral("http://h/My%20Song.mp3")}});
    std::unique_ptr<RVFileDownloader> client;
    QList<qint64> lengths;
    QList<qint64> progress;
    QList<QByteArray> completed;
    QStringList errors;
    std::function<void()> onProgress;
};

TEST_F(RVFileDownloaderTest, FetchesTheFile)
{
    start();
    EXPECT_EQ(client->uid(), -1);
    EXPECT_EQ(client->expectedContentLength(), -1);
    const UrlRequest request = loader.last().request;
    EXPECT_EQ(request.url, "http://h/My%20Song.mp3");
    EXPECT_TRUE(request.returnCacheDataElseLoad);
    EXPECT_EQ(request.timeout, std::chrono::seconds(10));
    loader.last().respond({200, 7, {}});
    loader.last().send("not this");
    loader.last().respond({200, 6'000'000'000, {}}); // after a redirect
    loader.last().send(QByteArray("ab\0c", 4));
    loader.last().send("de");
    EXPECT_EQ(client->contentLength(), 6);
    loader.last().finish();
    EXPECT_EQ(lengths, (QList<qint64>{7, 6'000'000'000}));
    EXPECT_EQ(completed, QList<QByteArray>{QByteArray("ab\0cde", 6)});
    EXPECT_EQ(errors, QStringList());
}

TEST_F(RVFileDownloaderTest, ProgressIsToldOfEvery201stPieceOfAllDownloads)
{
    const auto exchange = [this] { return loader.exchanges.back(); };
    start();
    const auto first = exchange();
    send(*first, 150);
    RVFileDownloader other(services, track, this);
    const auto second = exchange();
    send(*second, 50);
    EXPECT_EQ(progress, QList<qint64>());
    send(*second, 1); // the 201st
    EXPECT_EQ(progress, QList<qint64>{51 * 5});
    send(*first, 200);
    EXPECT_EQ(progress.size(), 1);
    send(*first, 1);
    EXPECT_EQ(progress.last(), 351 * 5);
}

TEST_F(RVFileDownloaderTest, CanBeDroppedAtAProgressReport)
{
    start();
    onProgress = [this] { client.reset(); };
    send(loader.last(), 300);
    EXPECT_EQ(progress.size(), 1);
    EXPECT_TRUE(loader.last().isCancelled());
}

TEST_F(RVFileDownloaderTest, FailuresAreToldOnce)
{
    start();
    loader.last().send("half");
    loader.last().fail(QStringLiteral("The server closed the connection early."));
    for (const int status : {404, 500}) {
        start();
        loader.last().respond({status, 9, {}});
        loader.last().send("<html>No</html>");
        loader.last().finish();
    }
    loader.refuses = true;
    start();
    EXPECT_EQ(errors, (QStringList{QStringLiteral("The server closed the connection early."),
                                   QStringLiteral("The server answered with error 404."),
                                   QStringLiteral("The server answered with error 500."),
                                   QStringLiteral("Could not establish a connection")}));
    EXPECT_EQ(completed, QList<QByteArray>());
    EXPECT_EQ(lengths, QList<qint64>());
}

} // namespace
} // namespace zib
