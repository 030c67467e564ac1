// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a search that asks for something else than was typed, results filed at the wrong place, a start that
// has forgotten.
#include "tests/controller/ControllerFixture.h"

namespace zib {
namespace {

QByteArray replyOf(const QStringList& songs)
{
    QByteArray audio;
    for (const QString& name : songs)
        audio += QStringLiteral(
                     "<audio><url>http://music.example/%1.mp3</url><title>%1</title><length>100</length>"
                     "<id>%2</id></audio>")
                     .arg(name, name.repeated(16).left(16))
                     .toUtf8();
    return "<?xml version=\"1.0\" "
           "encoding=\"UTF-8\"?><response><status><message>Success</message></status><artists><artist>"
           "<name>Somebody</name><audio>" +
           audio + "</audio></artist></artists></response>";
}

class SearchFlowTest : public ControllerFixture {
  protected:
    void search(const QString& text) { controller->search().performSearchAction(text); }
    void searchAndFind(const QString& text, const QStringList& songs)
    {
        search(text);
        urlLoader.last().reply(replyOf(songs));
    }
    QStringList searchNames() const
    {
        QStringList names;
        for (const Record& search : library->searches())
            names.append(search.string(keys::Name));
        return names;
    }
    QStringList shownNames() const
    {
        QStringList names;
        for (const Record& track : library->items())
            names.append(track.string(keys::Name));
        return names;
    }
};

TEST_F(SearchFlowTest, AsksByTheChosenType)
{
    struct Case {
        int type;
        const char* text;
        const char* title;
        int kind;
    };
    for (const Case& c : {Case{0, "Amber, Coast", "Amber, Coast", RVPlaylistDownloader::Artist},
                          Case{2, "Amber", "Amber", RVPlaylistDownloader::SimilarArtists},
                          Case{1, "jazz, mellow", "jazz, mellow", RVPlaylistDownloader::Tags},
                          Case{1, "jazz,mellow", "jazz,mellow", RVPlaylistDownloader::Tags},
                          Case{1, "a, b, c, d, e, f", "a, b, c, d, e", RVPlaylistDownloader::Tags}}) {
        SCOPED_TRACE(c.text);
        controller->search().radioTypeSelected(c.type);
        EXPECT_EQ(window.placeholder, c.type == 1 ? QStringLiteral("Tag(s)") : QStringLiteral("Artist"));
        EXPECT_EQ(window.searchType, c.type);
        search(QString::fromLatin1(c.text));
        EXPECT_TRUE(window.loaderAnimating);
        urlLoader.last().reply(replyOf({QStringLiteral("x")}));
        EXPECT_FALSE(window.loaderAnimating);
        EXPECT_EQ(library->searches().first().string(keys::Name), QString::fromLatin1(c.title));
        EXPECT_EQ(library->searches().first().integer(keys::Kind), c.kind);
    }
    // Only a comma with a space parts tags: one tag asks otherwise than two.
    search(QStringLiteral("jazz,mellow"));
    const QByteArray together = urlLoader.last().request.url;
    search(QStringLiteral("jazz, mellow"));
    EXPECT_NE(urlLoader.last().request.url, together);
}

TEST_F(SearchFlowTest, AnEmptyTextAsksNothing)
{
    search(QString());
    EXPECT_TRUE(urlLoader.exchanges.empty());
    EXPECT_FALSE(window.loaderAnimating);
}

TEST_F(SearchFlowTest, SearchPlayNextAndHearToTheLastSong)
{
    searchAndFind(QStringLiteral("Somebody"),
                  {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    EXPECT_EQ(shownNames(), (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    EXPECT_EQ(library->currentSourceType(), SourceType::RecentSearches);
    play(1);
    ASSERT_TRUE(eventually([&] { return window.streamingMark; }));
    EXPECT_EQ(window.tickerText, QStringLiteral("Somebody - b"));
    queue().nextTrack();
    EXPECT_EQ(window.tickerText, QStringLiteral("Somebody - c"));
    EXPECT_FALSE(window.streamingMark);
    ASSERT_TRUE(eventually([&] { return window.streamingMark; }));
    queue().nextTrack();
    EXPECT_FALSE(queue().snapshot());
    EXPECT_FALSE(window.playing);
}

TEST_F(SearchFlowTest, ASongThatIsKeptIsFoundWithItsHeartItsFileAndItsPlays)
{
    searchAndFind(QStringLiteral("one"), {QStringLiteral("a"), QStringLiteral("b")});
    controller->loving().addFavorite(0);
    Record kept = library->library().find(QStringLiteral("aaaaaaaaaaaaaaaa"));
    kept.set(keys::Downloaded, true);
    kept.set(keys::PlayCount, 3);
    clock.advance(std::chrono::seconds(1));
    searchAndFind(QStringLiteral("two"), {QStringLiteral("b"), QStringLiteral("a")});
    EXPECT_FALSE(library->items()[0].boolean(keys::Favorite));
    const Record found = library->items()[1];
    EXPECT_TRUE(found.boolean(keys::Favorite) && found.boolean(keys::Downloaded));
    EXPECT_EQ(found.integer(keys::PlayCount), 3);
    EXPECT_EQ(found.string(keys::Album), QString()) << "the rest is as it was sent";
}

TEST_F(SearchFlowTest, ASongOfASearchPlaysOnFromThatSearchWhenANewOneComes)
{
    searchAndFind(QStringLiteral("old"), {QStringLiteral("a"), QStringLiteral("b")});
    clock.advance(std::chrono::seconds(1));
    play(0);
    const qint64 playingSearch = queue().nowplayingPlaylistUID();
    searchAndFind(QStringLiteral("new"), {QStringLiteral("c")});
    EXPECT_EQ(queue().nowplayingPlaylistIndex(), 1);
    EXPECT_EQ(library->searches()[queue().nowplayingPlaylistIndex()].integer(keys::Id), playingSearch);
    EXPECT_EQ(shownNames(), QStringList{QStringLiteral("c")});
    queue().nextTrack();
    EXPECT_EQ(queue().nowplayingTrack().string(keys::Name), QStringLiteral("b"));
}

TEST_F(SearchFlowTest, ASearchThatANewerOneHasOvertakenIsFiledAllTheSame)
{
    search(QStringLiteral("slow"));
    FakeUrlExchange& slow = urlLoader.last();
    searchAndFind(QStringLiteral("quick"), {QStringLiteral("q")});
    EXPECT_TRUE(slow.isRunning());
    slow.reply(replyOf({QStringLiteral("s")}));
    EXPECT_EQ(searchNames(), (QStringList{QStringLiteral("slow"), QStringLiteral("quick")}));
}

TEST_F(SearchFlowTest, AFailureIsAnAlertAndChangesNothing)
{
    const auto expectAlert = [this] {
        EXPECT_FALSE(window.loaderAnimating);
        ASSERT_EQ(alerts.shown.size(), 1);
        EXPECT_EQ(alerts.shown[0].style, Alert::Style::Warning);
        EXPECT_FALSE(alerts.shown[0].messageText.isEmpty());
        EXPECT_EQ(alerts.shown[0].buttons, QStringList{QStringLiteral("OK")});
        EXPECT_EQ(desktop.calls, (QStringList{QStringLiteral("bringToFront"), QStringLiteral("beep")}));
        EXPECT_TRUE(library->searches().isEmpty());
        alerts.shown.clear();
        desktop.calls.clear();
    };
    search(QStringLiteral("nobody"));
    urlLoader.last().reply(
        "<response><status><message>Success</message></status><artists></artists></response>");
    expectAlert();
    search(QStringLiteral("Amber"));
    urlLoader.last().fail(QStringLiteral("The line is dead"));
    expectAlert();
    urlLoader.refuses = true; // fails before the search is even made
    search(QStringLiteral("Amber"));
    expectAlert();
    urlLoader.refuses = false;
    searchAndFind(QStringLiteral("Amber"), {QStringLiteral("x")});
    EXPECT_EQ(searchNames(), QStringList{QStringLiteral("Amber")});
}

TEST_F(SearchFlowTest, TheNextStartStillHasTheSearchesAndWhatWasLoved)
{
    controller->search().radioTypeSelected(1);
    searchAndFind(QStringLiteral("older"), {QStringLiteral("x")});
    clock.advance(std::chrono::seconds(1));
    searchAndFind(QStringLiteral("newer"), {QStringLiteral("a"), QStringLiteral("b")});
    play(1);
    controller->loving().addFavorite(1);
    quit();
    window = FakeMainWindow();
    start();
    EXPECT_EQ(window.searchType, 1);
    EXPECT_EQ(window.placeholder, QStringLiteral("Tag(s)"));
    EXPECT_EQ(window.tickerHeader, QStringLiteral("Powered by"));
    EXPECT_EQ(window.shownView, MainView::NowPlaying);
    controller->showSearch(0);
    EXPECT_EQ(shownNames(), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_TRUE(library->items()[1].boolean(keys::Favorite));
    EXPECT_FALSE(library->items()[0].boolean(keys::Favorite));
    controller->showLibrary(FilterType::Favorites);
    EXPECT_EQ(shownNames(), QStringList{QStringLiteral("b")});
}

} // namespace
} // namespace zib
