// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a song shown with another's names or picture, a reply from hell taken at its word.
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
    int completed = 0;
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
        EXPECT_EQ(client->artist(), QStringLiteral("asked artist")) << "until the answer comes";
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
    EXPECT_EQ(told.completed, std::size(replies) + 1) << "none of them is a failure";
}

TEST_F(RVSongInfoDownloaderTest, LinksAreKnownByThePagesOfTheService)
{
    defaults.setValue(settings::MusicInfoSite, QStringLiteral("www.example/"));
    askAndHear("<wiki><content><![CDATA[<a href=\"https://www.example/music/Amber\">A</a>"
               "<a href=\"http://info.example/music/Amber\">B</a>]]></content></wiki>");
    EXPECT_EQ(client->wiki(), QStringLiteral("<a href=\"zib://search/artist/Amber\">A</a>B"));
}

} // namespace
} // namespace zib
