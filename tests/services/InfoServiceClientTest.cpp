// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a request that differs by one byte, an outcome told twice, never or in the wrong words, a client
// used after its end.
#include "platform/SettingsKeys.h"
#include "records/PropertyValue.h"
#include "services/RVAlbumInfoDownloader.h"
#include "services/RVArtistInfoDownloader.h"
#include "services/RVDataDownloader.h"
#include "services/RVLyricsDownloader.h"
#include "services/RVMusicBrainzDownloader.h"
#include "services/RVSongInfoDownloader.h"
#include "services/ServiceHosts.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeUrlLoader.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <functional>

namespace zib {
namespace {

/// What delegates are told and by whom.
struct Told {
    QStringList events;
    const WebServiceClient* who = nullptr;
    std::function<void()> onReport = [] {};

    void report(const WebServiceClient& request, const QString& event)
    {
        who = &request;
        onReport();
        events += event;
    }
};

template <class Request>
struct Listener : InfoServiceDelegate<Request> {
    explicit Listener(Told& told)
        : told_(told)
    {
    }
    void webServiceCompletedForRequest(Request& request) override
    {
        told_.report(request, QStringLiteral("completed"));
    }
    void webServiceFailedForRequest(Request& request, const ServiceError& error) override
    {
        told_.report(request, QStringLiteral("failed: ") + error.text);
    }

  private:
    Told& told_;
};

struct LyricsListener : LyricsServiceDelegate {
    explicit LyricsListener(Told& told)
        : told_(told)
    {
    }
    void lyricsServiceCompletedForRequest(RVLyricsDownloader& request) override
    {
        told_.report(request, QStringLiteral("completed"));
    }
    void lyricsServiceFailedForRequest(RVLyricsDownloader& request) override
    {
        told_.report(request, QStringLiteral("failed"));
    }

  private:
    Told& told_;
};

class InfoServiceClientTest : public testing::Test {
  protected:
    FakeUrlLoader loader;
    FakeUserDefaults defaults{*hostsAtBase(QStringLiteral("http://h"))};
    FakeClock clock;
    WebServices services{loader, defaults, clock};
    Told told;
    std::unique_ptr<WebServiceClient> client;

    Listener<RVArtistInfoDownloader> artist{told};
    Listener<RVAlbumInfoDownloader> album{told};
    Listener<RVSongInfoDownloader> song{told};
    Listener<RVDataDownloader> profile{told};
    Listener<RVMusicBrainzDownloader> release{told};
    LyricsListener lyrics{told};

    const QString name = QStringLiteral("Bj\u00f6rk & AC/DC");
    const Record track = Record::make({{keys::Artist, name},
                                       {keys::Album, QStringLiteral("a-b.c")},
                                       {keys::Name, QStringLiteral("d (100%)")},
                                       {keys::Mbid, QString()}});

    template <class Request, class Subject, class Delegate>
    std::function<void()> starts(const Subject& subject, Delegate& delegate)
    {
        return
            [this, subject, &delegate] { client = std::make_unique<Request>(services, subject, &delegate); };
    }

    struct Case {
        std::function<void()> start;
        const char* url;
        bool takesCached;
        const char* completes; ///< a reply that does
        const char* failedLine;
        QStringList failures{QStringLiteral("failed: The line is dead"),
                             QStringLiteral("failed: Connection failed")};
    };
    std::vector<Case> cases()
    {
        const char* const plain = "Connection failed! The line is dead";
        return {
            {starts<RVArtistInfoDownloader>(name, artist),
             "http://h/2.0/?method=artist.getinfo&api_key=0f1e2d3c4b5a69788796a5b4c3d2e1f0"
             "&artist=Bj%C3%B6rk%20%26%20AC/DC&autocorrect=1",
             true, "", plain},
            {starts<RVAlbumInfoDownloader>(track, album),
             "http://h/2.0/?method=album.getinfo&api_key=0f1e2d3c4b5a69788796a5b4c3d2e1f0"
             "&artist=Bj%C3%B6rk%20%26%20AC/DC&album=a%2Db%2Ec",
             true, "", plain},
            {starts<RVSongInfoDownloader>(track, song),
             "http://h/2.0/?method=track.getinfo&api_key=0f1e2d3c4b5a69788796a5b4c3d2e1f0"
             "&artist=Bj%C3%B6rk%20%26%20AC/DC&track=d%20%28100%25%29&autocorrect=1",
             true, "", plain},
            {starts<RVDataDownloader>(name, profile),
             "http://h/api/v4/artist/profile?&format=xml&api_key=QZ7KX2MB9TNV4WLRE"
             "&name=Bj%C3%B6rk%20%26%20AC/DC&bucket=blogs&bucket=images&bucket=news&bucket=reviews"
             "&bucket=video&bucket=familiarity&bucket=hotttnesss&bucket=terms&bucket=urls",
             true, "<response><status><message>Success</message></status><artist/></response>",
             "Connection failed! Error - The line is dead Bj\u00f6rk & AC/DC"},
            {starts<RVMusicBrainzDownloader>(track, release),
             "http://h/ws/1/release/?type=xml&inc=tracks+release-events+labels"
             "&artist=Bj%C3%B6rk%20%26%20AC%2FDC&title=a-b.c",
             true, "", plain},
            {starts<RVMusicBrainzDownloader>(Record::make({{keys::Mbid, QStringLiteral("m-1")}}), release),
             "http://h/ws/1/release/m-1?type=xml&inc=tracks+release-events+labels", true, "", plain},
            {starts<RVLyricsDownloader>(track, lyrics),
             "http://h/apiv1.asmx/SearchLyricDirect?artist=Bj%C3%B6rk%20%26%20AC/DC"
             "&song=d%20%28100%25%29",
             false,
             "<GetLyricResult><LyricArtist>Bj\u00f6rk &amp; AC/DC</LyricArtist>"
             "<LyricSong>d (100%)</LyricSong></GetLyricResult>",
             "Connection failed! Error - The line is dead "
             "http://h/apiv1.asmx/SearchLyricDirect?artist=Bj%C3%B6rk%20%26%20AC/DC"
             "&song=d%20%28100%25%29",
             {QStringLiteral("failed"), QStringLiteral("failed")}},
        };
    }
};

TEST_F(InfoServiceClientTest, AsksAndTellsTheAnswerOnce)
{
    for (const Case& entry : cases()) {
        entry.start();
        const UrlRequest& request = loader.last().request;
        EXPECT_EQ(request.url.toStdString(), entry.url);
        EXPECT_EQ(request.returnCacheDataElseLoad, entry.takesCached) << entry.url;
        EXPECT_EQ(request.timeout, std::chrono::seconds(10));
        EXPECT_TRUE(told.events.isEmpty());
        loader.last().respond();
        loader.last().send("of the page that leads elsewhere");
        loader.last().reply(entry.completes);
        EXPECT_EQ(told.events, QStringList(QStringLiteral("completed"))) << entry.url;
        EXPECT_EQ(told.who, client.get());
        told.events.clear();
    }
}

TEST_F(InfoServiceClientTest, SaysAndLogsWhyThereIsNoReply)
{
    for (const Case& entry : cases()) {
        const LogCapture log;
        entry.start();
        loader.last().fail(QStringLiteral("The line is dead"));
        EXPECT_EQ(log.lines(), QStringList(QString::fromUtf8(entry.failedLine)));
        EXPECT_EQ(told.who, client.get());
        loader.refuses = true;
        client.reset();
        told.onReport = [this] { EXPECT_EQ(client, nullptr) << "from within its constructor"; };
        entry.start();
        told.onReport = [] {};
        loader.refuses = false;
        EXPECT_EQ(told.events, entry.failures);
        told.events.clear();
    }
}

TEST_F(InfoServiceClientTest, ItsOwnerMayDestroyItFromWithinTheReportAndBefore)
{
    told.onReport = [this] { client.reset(); };
    for (const Case& entry : cases()) {
        entry.start();
        loader.last().reply(entry.completes);
        EXPECT_EQ(client, nullptr);
        entry.start();
        loader.last().fail(QStringLiteral("gone"));
        EXPECT_EQ(client, nullptr);
        entry.start();
        client.reset();
        EXPECT_TRUE(loader.last().isCancelled());
        EXPECT_EQ(told.events.size(), 2);
        told.events.clear();
    }
}

} // namespace
} // namespace zib
