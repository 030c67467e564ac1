// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a request that differs by one byte, a song shown with another's names or picture, a reply from hell
// taken at its word.
#include "services/RVSongInfoDownloader.h"

#include "platform/SettingsKeys.h"
#include "records/PropertyValue.h"
#include "services/XmlReply.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeUrlLoader.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

struct Told : InfoServiceDelegate<RVSongInfoDownloader> {
    void webServiceCompletedForRequest(RVSongInfoDownloader& request) override
    {
        ++completed;
        who = &request;
    }
    void webServiceFailedForRequest(RVSongInfoDownloader& request, const ServiceError& error) override
    {
        errors += error.text;
        who = &request;
    }
    int completed = 0;
    QStringList errors;
    const RVSongInfoDownloader* who = nullptr;
};

class RVSongInfoDownloaderTest : public testing::Test {
  protected:
    FakeUrlLoader loader;
    FakeUserDefaults defaults{{{settings::MusicInfoHost, QStringLiteral("info.example")}}};
    FakeClock clock;
    Told told;
    std::unique_ptr<RVSongInfoDownloader> client;

    void ask(const Record& track)
    {
        client = std::make_unique<RVSongInfoDownloader>(WebServices{loader, defaults, clock}, track, &told);
    }
    void askAndHear(const QByteArray& track)
    {
        ask(Record::make({{keys::Artist, QStringLiteral("asked artist")},
                          {keys::Album, QStringLiteral("asked album")},
                          {keys::Name, QStringLiteral("asked name")}}));
        loader.last().reply(track.isEmpty() ? track
                                            : "<lfm status=\"ok\"><track>" + track + "</track></lfm>");
    }
    /// What the client knows, a field a line.
    std::string known() const
    {
        return QStringList{client->artist(), client->album(),          client->name(),
                           client->mbid(),   client->artwork(),        client->artworkLarge(),
                           client->wiki(),   client->tags().join(u'/')}
            .join(u'|')
            .toStdString();
    }
};

TEST_F(RVSongInfoDownloaderTest, AsksForArtistAndName)
{
    ask(Record::make({{keys::Artist, QStringLiteral("Bj\u00f6rk & AC/DC")},
                      {keys::Name, QStringLiteral("a-b.c (100%)")}}));
    EXPECT_EQ(loader.last().request.url.toStdString(),
              "http://info.example/2.0/?method=track.getinfo&api_key=0f1e2d3c4b5a69788796a5b4c3d2e1f0"
              "&artist=Bj%C3%B6rk%20%26%20AC/DC&track=a%2Db%2Ec%20%28100%25%29&autocorrect=1");
    EXPECT_EQ(loader.last().request.timeout, std::chrono::seconds(10));
    EXPECT_TRUE(loader.last().request.returnCacheDataElseLoad);
    EXPECT_EQ(client->artist(), QStringLiteral("Bj\u00f6rk & AC/DC")) << "until the answer comes";
}

TEST_F(RVSongInfoDownloaderTest, TakesWhatTheReplyHas)
{
    const std::string none = ":/zib/no-cover-big.png";
    struct Case {
        QByteArray track;
        std::string known;
    };
    const Case cases[] = {
        {"<name>Song</name><artist><name>A &amp; B</name></artist>"
         "<album><title>Album</title><mbid>m-1</mbid><image size=\"small\">s</image>"
         "<image size=\"medium\">m</image><image size=\"large\">l</image><image>x</image></album>"
         "<toptags><tag><name>jazz</name></tag><tag><url>u</url></tag><tag><name>calm</name></tag></toptags>"
         "<wiki><content>One\nTwo\n</content></wiki>",
         "A & B|Album|Song|m-1|m|l|One<br>Two|jazz/calm"},
        {"", "asked artist|asked album|asked name|||" + none + "||"},
        {"<name/><artist><name/></artist>", "|asked album||||" + none + "||"},
        {"<album><image>s</image></album>", "asked artist|asked album|asked name|||" + none + "||"},
        {"<album><image>s</image><image>m</image></album>",
         "asked artist|asked album|asked name||m|" + none + "||"},
        {"<album><image>s</image><image/><image>l</image></album>",
         "asked artist|asked album|asked name||l|l||"},
        {"<album><image>s</image><image/><image/></album>", "asked artist|asked album|asked name||s|s||"},
        {"<album><image/><image/></album>", "asked artist|asked album|asked name|||" + none + "||"},
        {"<wiki><content/></wiki>", "asked artist|asked album|asked name|||" + none + "||"},
        {"<wiki><content><![CDATA[By <a href=\"http://info.example/music/Amber\">Amber</a>, "
         "<a href=\"http://info.example/tag/jazz\">jazz</a>; "
         "<a href=\"http://elsewhere.example/music/Amber\">see</a>.\n]]></content></wiki>",
         "asked artist|asked album|asked name|||" + none +
             "|By <a href=\"zib://search/artist/Amber\">Amber</a>, "
             "<a href=\"zib://search/tag/jazz\">jazz</a>; see.|"},
    };
    int completed = 0;
    for (const Case& entry : cases) {
        askAndHear(entry.track);
        EXPECT_EQ(known(), entry.known) << entry.track.toStdString();
        EXPECT_EQ(told.completed, ++completed);
        EXPECT_EQ(told.who, client.get());
    }
}

TEST_F(RVSongInfoDownloaderTest, AReplyThatSaysNothingLeavesWhatWasAskedAndFillsTheRest)
{
    const QByteArray replies[] = {"",
                                  "no xml",
                                  "\xff\xfe<",
                                  "<lfm status=\"failed\"><error code=\"6\">Track not found</error></lfm>",
                                  "<lfm><track><name>cut",
                                  QByteArray("<a>").repeated(1'000'000),
                                  "<track><name>elsewhere</name></track>"};
    for (const QByteArray& reply : replies) {
        ask(Record::make({{keys::Name, QStringLiteral("asked")}, {keys::Artist, QString()}}));
        loader.last().reply(reply, 404);
        EXPECT_EQ(known(), "|Unknown Album|asked|||:/zib/no-cover-big.png||") << reply.left(40).toStdString();
    }
    ask(Record::make({}));
    loader.last().reply("");
    EXPECT_EQ(known(), "Unknown Artist|Unknown Album|Unknown Song|||:/zib/no-cover-big.png||");
    EXPECT_TRUE(told.errors.isEmpty());
}

TEST_F(RVSongInfoDownloaderTest, LinksAreKnownByThePagesOfTheService)
{
    defaults.setValue(settings::MusicInfoSite, QStringLiteral("www.example/"));
    askAndHear("<wiki><content><![CDATA[<a href=\"https://www.example/music/Amber\">A</a>"
               "<a href=\"http://info.example/music/Amber\">B</a>]]></content></wiki>");
    EXPECT_EQ(client->wiki(), QStringLiteral("<a href=\"zib://search/artist/Amber\">A</a>B"));
}

TEST_F(RVSongInfoDownloaderTest, SaysWhyThereIsNoReply)
{
    ask(Record::make({}));
    loader.last().fail(QStringLiteral("The line is dead"));
    loader.refuses = true;
    ask(Record::make({}));
    loader.refuses = false;
    defaults.setValue(settings::MusicInfoHost, QString());
    ask(Record::make({}));
    EXPECT_EQ(told.errors,
              (QStringList{QStringLiteral("The line is dead"), QStringLiteral("Connection failed"),
                           QStringLiteral("Connection failed")}));
    EXPECT_EQ(told.completed, 0);
}

} // namespace
} // namespace zib
