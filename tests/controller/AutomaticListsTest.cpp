// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a list that cannot be opened although its songs are there, or can although they are not; lists asked
// for twice; a failure that nobody asked to hear of; rows that stand for another search than they say.
#include "tests/controller/ControllerFixture.h"
#include "tests/controller/FakeSourceListing.h"

namespace zib {
namespace {

QByteArray replyOf(const QStringList& ids)
{
    QByteArray audio;
    for (const QString& id : ids)
        audio += "<audio><url>http://music.example/x.mp3</url><title>t</title><id>" +
                 id.repeated(16).left(16).toUtf8() + "</id></audio>";
    return "<response><status><message>Success</message></status><artists><artist><name>A</name><audio>" +
           audio + "</audio></artist></artists></response>";
}

/// The search flow over a source list of the test's own.
class AutomaticListsTest : public ControllerFixture {
  protected:
    AutomaticListsTest() { context.connectedToInternet = false; }

    bool can(SourceType list) const { return sources.enabled.contains(list); }
    FakeUrlExchange& asked(int n) { return *urlLoader.exchanges.at(std::size_t(n)); }
    std::size_t requests() const { return urlLoader.exchanges.size(); }
    void love(const QString& artist, int n)
    {
        const Record song = webSong(n, {{keys::Artist, artist}, {keys::Favorite, true}});
        library->library().insert(song.string(keys::Id), song);
    }

    Notices notices{defaults, alerts, desktop};
    SongDownloads downloads{*library, {urlLoader, defaults, clock}, defaults, alerts};
    ControllerContext context{.dataManager = *library,
                              .downloads = downloads,
                              .defaults = defaults,
                              .window = window,
                              .notices = notices,
                              .pages = controller->webController(),
                              .undo = controller->undo()};
    FakeSourceListing sources;
    SearchFlow flow{context, controller->playback(), sources, {urlLoader, defaults, clock}};
};

TEST_F(AutomaticListsTest, AreFilledWhenTheMachineComesOnline)
{
    love(QStringLiteral("Amber Tide"), 1);
    flow.connectedToInternetNotification();
    EXPECT_TRUE(window.connected);
    ASSERT_EQ(requests(), 2U);
    EXPECT_TRUE(asked(0).request.url.startsWith("http://search.example/api/v4/artist/top_hottt?"));
    EXPECT_TRUE(asked(1).request.url.contains("artist/similar") &&
                asked(1).request.url.contains("&name=Amber+Tide%5E1.00"))
        << asked(1).request.url.constData();
    EXPECT_FALSE(can(SourceType::TopHot) || can(SourceType::Recommended)) << "before their songs are there";
    EXPECT_TRUE(window.loaderAnimating);

    sources.told.clear();
    asked(1).reply(replyOf({QStringLiteral("r")}));
    EXPECT_TRUE(can(SourceType::Recommended) && !can(SourceType::TopHot));
    asked(0).reply(replyOf({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("a")}));
    EXPECT_TRUE(can(SourceType::TopHot));
    EXPECT_EQ(sources.told, (QStringList{QStringLiteral("reload 2"), QStringLiteral("reload 1")}));
    EXPECT_FALSE(window.loaderAnimating);
    EXPECT_EQ(library->tophot().size(), 2);
    EXPECT_TRUE(library->tophot().contains(QStringLiteral("aaaaaaaaaaaaaaaa")));
    EXPECT_EQ(library->recommended().size(), 1);
    EXPECT_TRUE(library->searches().isEmpty()) << "they are no searches";

    library->setSource(SourceType::TopHot);
    EXPECT_EQ(library->items().size(), 2);
}

TEST_F(AutomaticListsTest, RecommendedIsEmptyWithoutLovedSongsAndLeavesTheLoaderTurning)
{
    flow.connectedToInternetNotification();
    EXPECT_EQ(requests(), 1U);
    EXPECT_TRUE(can(SourceType::Recommended));
    EXPECT_TRUE(library->recommended().isEmpty());
    EXPECT_TRUE(window.loaderAnimating);
    asked(0).reply(replyOf({QStringLiteral("a")}));
    EXPECT_FALSE(window.loaderAnimating);
}

TEST_F(AutomaticListsTest, AreLoadedOncePerTimeOnline)
{
    flow.connectedToInternetNotification();
    flow.connectedToInternetNotification(); // while the first answer is still awaited
    EXPECT_EQ(requests(), 1U);
    asked(0).reply(replyOf({QStringLiteral("a")}));
    flow.connectedToInternetNotification();
    EXPECT_EQ(requests(), 1U);

    sources.told.clear();
    flow.disconnectedFromInternetNotification();
    EXPECT_FALSE(window.connected);
    EXPECT_FALSE(can(SourceType::TopHot) || can(SourceType::Recommended));
    EXPECT_EQ(sources.told, QStringList{QStringLiteral("reload")});
    flow.connectedToInternetNotification();
    EXPECT_EQ(requests(), 2U);
    flow.disconnectedFromInternetNotification();
    asked(1).reply(replyOf({QStringLiteral("b")}));
    EXPECT_FALSE(can(SourceType::TopHot)) << "what comes late cannot be played";
}

TEST_F(AutomaticListsTest, ThatCannotBeHadAreNoAlertAndAreAskedForAgain)
{
    love(QStringLiteral("Amber Tide"), 1);
    flow.connectedToInternetNotification();
    asked(0).fail(QStringLiteral("The line is dead"));
    asked(1).reply("<response><status><message>Success</message></status></response>");
    EXPECT_TRUE(alerts.shown.isEmpty());
    EXPECT_FALSE(window.loaderAnimating);
    EXPECT_FALSE(can(SourceType::TopHot) || can(SourceType::Recommended));
    flow.connectedToInternetNotification();
    EXPECT_EQ(requests(), 4U);
}

TEST_F(AutomaticListsTest, TheViewOfTheSongNowPlayingFollowsTheConnection)
{
    const auto changes = [this] { return sources.told.count(QStringLiteral("change view")); };
    flow.disconnectedFromInternetNotification();
    EXPECT_EQ(changes(), 0) << "songs are shown";
    sources.category = int(SourceType::NowPlaying);
    flow.disconnectedFromInternetNotification();
    EXPECT_EQ(changes(), 1);
    flow.connectedToInternetNotification();
    EXPECT_EQ(changes(), 2);
}

TEST_F(AutomaticListsTest, TheRowsOfSearchesFollowThem)
{
    struct Case {
        int type;
        const char* row;
    };
    context.connectedToInternet = true;
    for (const Case& c :
         {Case{0, "insert 4/0 x artist"}, Case{1, "insert 4/0 x tag"}, Case{2, "insert 4/0 x artistradio"},
          Case{0, "insert 4/0 x artist"}, Case{0, "insert 4/0 x artist"}}) {
        flow.radioTypeSelected(c.type);
        sources.told.clear();
        flow.performSearchAction(QStringLiteral("x"));
        urlLoader.last().reply(replyOf({QStringLiteral("a")}));
        EXPECT_EQ(sources.told, QStringList{QString::fromLatin1(c.row)});
    }
    sources.told.clear();
    flow.performSearchAction(QStringLiteral("sixth"));
    urlLoader.last().reply(replyOf({QStringLiteral("a")}));
    EXPECT_EQ(sources.told,
              (QStringList{QStringLiteral("remove 4/4"), QStringLiteral("insert 4/0 sixth artist")}));
}

} // namespace
} // namespace zib
