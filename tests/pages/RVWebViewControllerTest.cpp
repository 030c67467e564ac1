// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a page about another song than the one that plays, a gear that never stops, a page that acts without
// the user's click.
#include "pages/RVWebViewController.h"

#include "platform/SettingsKeys.h"
#include "records/PropertyValue.h"
#include "services/ServiceHosts.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeUrlLoader.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/fakes/FakeWebView.h"

#include <QSet>

#include <gtest/gtest.h>

namespace zib {
namespace {

enum Request { Profile, Artist, Album, Release, Lyrics };

const QByteArray replies[] = {
    R"(<response><status><code>0</code><message>Success</message></status><artist>
       <familiarity>0.71</familiarity><hotttnesss>0.42</hotttnesss>
       <images><image><url>http://p.example/1.jpg</url></image></images>
       <terms><name>jazz</name></terms><terms><name>calm</name></terms></artist></response>)",
    R"(<lfm><artist><name>Amber</name><similar>
       <artist><name>Near</name><image>s</image><image>m</image><image>l</image></artist>
       <artist><name>Far</name><image>s</image><image>m</image><image>l</image></artist></similar>
       <bio><content><![CDATA[She <b>sings</b> <a href="http://info.example/music/Two">with Two</a> and
<a href="http://info.example/tag/jazz">jazz</a>.
]]></content></bio></artist></lfm>)",
    R"(<lfm><album><name>Album</name><wiki><content><![CDATA[With
<a href="http://info.example/music/Two">Two</a>, <a href="http://info.example/tag/jazz">jazz</a>.
]]></content></wiki></album></lfm>)",
    R"(<metadata><release type="Album Official"><release-event-list>
       <event date="2001" country="DE"><label><name>First Label</name></label></event>
       <event date="2002"/></release-event-list>
       <track-list><track><title>One</title><duration>65000</duration></track></track-list></release></metadata>)",
    R"(<GetLyricResult><LyricArtist>Amber</LyricArtist><LyricSong>Song</LyricSong>
       <Lyric>La&#10;la&#10;</Lyric></GetLyricResult>)"};

class RVWebViewControllerTest : public testing::Test, public RVWebViewControllerDelegate {
  protected:
    RVWebViewControllerTest()
    {
        defaults.registerDefaults(*hostsAtBase(QStringLiteral("http://info.example")));
        defaults.registerDefaults({{settings::VideoSite, QStringLiteral("https://video.example")}});
        controller.setDelegate(this);
    }

    void beginSearchForArtists(const QStringList& artists) override
    {
        done += QStringLiteral("artists ") + artists.join(u'|');
    }
    void beginSearchForTags(const QStringList& tags) override
    {
        done += QStringLiteral("tags ") + tags.join(u'|');
    }
    void openSharedPlaylist(const QString& identifier) override
    {
        done += QStringLiteral("playlist ") + identifier;
    }
    void setUrlField(const QString& text) override { done += QStringLiteral("field ") + text; }

    /// What the main controller does when it knows the song that plays.
    void announce(const QString& artist = QStringLiteral("Amber"))
    {
        controller.resetParameters();
        controller.setArtist(artist);
        controller.setAlbum(QStringLiteral("Album"));
        controller.setTrack(QStringLiteral("Song"));
        controller.loadDataForTrack(song);
    }
    FakeUrlExchange& request(Request which, int round = 0)
    {
        return *loader.exchanges[std::size_t(round) * 5 + which];
    }
    void reply(Request which, int round = 0) { request(which, round).reply(replies[which]); }
    void announceAndHear()
    {
        announce();
        for (const Request each : {Profile, Artist, Album, Release, Lyrics})
            reply(each);
    }
    /// Which page the view shows.
    std::string shown() const
    {
        const QString& html = view.pages.constLast().html;
        for (const auto& pages : {songPages, feedPages})
            for (const Page page : pages)
                if (html.contains(selectedMenuCell(page)))
                    return pageName(page).data();
        if (html.contains(QLatin1String("<form name=\"search\"")))
            return "start";
        if (html.contains(QLatin1String("<div id=\"error\">")))
            return "error";
        return html.isEmpty() ? "nothing" : "busy";
    }
    bool pageHas(const char* text) const
    {
        return view.pages.constLast().html.contains(QString::fromUtf8(text));
    }

    FakeUserDefaults defaults;
    FakeWebView view;
    FakeUrlLoader loader;
    FakeClock clock;
    FakeDesktop desktop;
    RVWebViewController controller{view, WebServices{loader, defaults, clock}, defaults, desktop,
                                   QStringLiteral("file:///pages/")};
    const Record song = Record::make({{keys::Name, QStringLiteral("Song")}});
    QStringList done; ///< what the delegate was asked for, in order
};

TEST_F(RVWebViewControllerTest, FiveRequestsFourRepliesOnePage)
{
    announce();
    EXPECT_EQ(shown(), "busy");
    EXPECT_TRUE(view.isBusyGearShown());
    EXPECT_TRUE(view.pages.constFirst().html.isEmpty()) << "the page before is cleared";
    const char* const addresses[] = {"/artist/profile?", "method=artist.getinfo", "method=album.getinfo",
                                     "/ws/1/release/?", "/SearchLyricDirect?"};
    ASSERT_EQ(loader.exchanges.size(), std::size(addresses));
    for (std::size_t i = 0; i < std::size(addresses); ++i)
        EXPECT_TRUE(loader.exchanges[i]->request.url.contains(addresses[i])) << addresses[i];

    for (const Request each : {Release, Lyrics, Artist, Album}) {
        reply(each);
        EXPECT_EQ(shown(), "busy") << each;
    }
    EXPECT_EQ(controller.replyCount(), 3);
    EXPECT_FALSE(controller.dataLoaded());
    reply(Profile);
    EXPECT_EQ(shown(), "artist");
    EXPECT_FALSE(view.isBusyGearShown());
    EXPECT_TRUE(pageHas("animate: true"));
    EXPECT_TRUE(controller.dataLoaded());

    const auto shownBefore = view.pages.size();
    controller.loadDataForTrack(song);
    EXPECT_EQ(view.pages.size(), shownBefore) << "all is there already";
    EXPECT_EQ(loader.exchanges.size(), 5U);
}

TEST_F(RVWebViewControllerTest, KeepsWhatTheServicesTell)
{
    announceAndHear();
    EXPECT_EQ(controller.bio().toStdString(),
              "She sings<a href=\"zib://search/artist/Two\">with Two</a> and<br>"
              "<a href=\"zib://search/tag/jazz\">jazz</a>.");
    EXPECT_EQ(controller.album_wiki().toStdString(),
              "With<br><a href=\"zib://search/artist/Two\">Two</a>, jazz.");
    EXPECT_EQ(controller.lyrics().toStdString(), "La<br>la");
    EXPECT_EQ(controller.familiarity().toStdString(), "0.71");
    EXPECT_EQ(controller.hotness().toStdString(), "0.42");
    EXPECT_EQ(controller.images().join(u'|').toStdString(), "http://p.example/1.jpg");
    EXPECT_EQ(controller.tags().join(u'|').toStdString(), "jazz|calm");
    EXPECT_EQ(controller.similar().size(), 2);
    EXPECT_EQ(controller.tracklist().size(), 1);
    EXPECT_EQ((controller.label() + u'|' + controller.date() + u'|' + controller.type()).toStdString(),
              "First Label|2001|Album Official");

    controller.setTrack_tags({QStringLiteral("kept")});
    controller.setArtwork(QStringLiteral("kept"));
    controller.resetParameters();
    EXPECT_EQ((controller.label() + u'|' + controller.date() + u'|' + controller.type()).toStdString(),
              "Unknown|Unknown|Unknown");
    EXPECT_EQ((controller.artist() + controller.bio() + controller.lyrics() + controller.album_wiki())
                  .toStdString(),
              "");
    EXPECT_TRUE(controller.tags().isEmpty() && controller.images().isEmpty() &&
                controller.tracklist().isEmpty());
    EXPECT_FALSE(controller.dataLoaded());
    EXPECT_EQ(controller.artwork() + controller.track_tags().join(u' '), QStringLiteral("keptkept"));
}

TEST_F(RVWebViewControllerTest, LyricsShowAtTheNextRendering)
{
    announce();
    for (const Request each : {Profile, Artist, Album, Release})
        reply(each);
    view.navigate(QStringLiteral("zib://current/track"));
    EXPECT_TRUE(pageHas("Sorry!"));
    reply(Lyrics);
    EXPECT_TRUE(pageHas("Sorry!"));
    view.navigate(QStringLiteral("zib://current/track"));
    EXPECT_TRUE(pageHas("La<br>la"));
}

TEST_F(RVWebViewControllerTest, AFailureShowsWhyAndEndsTheSong)
{
    for (const Request each : {Profile, Artist, Album, Release}) {
        loader.exchanges.clear();
        announce();
        request(each).fail(QStringLiteral("The line is dead"));
        EXPECT_EQ(shown(), "error");
        EXPECT_TRUE(pageHas("The line is dead"));
        EXPECT_FALSE(view.isBusyGearShown());
        EXPECT_EQ(controller.artist(), QString());
        for (const auto& exchange : loader.exchanges)
            EXPECT_FALSE(exchange->isRunning());
    }
    loader.exchanges.clear();
    loader.refuses = true;
    const auto shownBefore = view.pages.size();
    announce();
    EXPECT_TRUE(pageHas("Connection failed"));
    EXPECT_EQ(view.pages.size(), shownBefore + 3) << "cleared, busy and one error";
}

TEST_F(RVWebViewControllerTest, MissingLyricsAreNoFailure)
{
    announce();
    request(Lyrics).fail(QStringLiteral("The line is dead"));
    EXPECT_EQ(shown(), "busy");
    for (const Request each : {Profile, Artist, Album, Release})
        reply(each);
    EXPECT_EQ(shown(), "artist");
}

TEST_F(RVWebViewControllerTest, RepliesAboutTheSongBeforeAreNotCounted)
{
    announce();
    reply(Artist);
    reply(Album);
    announce(QStringLiteral("Other"));
    for (const Request each : {Profile, Artist, Release})
        reply(each, 1);
    for (const Request each : {Profile, Release, Lyrics})
        EXPECT_TRUE(request(each, 0).isCancelled());
    EXPECT_EQ(controller.replyCount(), 3);
    reply(Album, 1);
    EXPECT_EQ(shown(), "artist");
    EXPECT_TRUE(pageHas("Other"));
}

TEST_F(RVWebViewControllerTest, NoSongAndASongOfNobody)
{
    announce();
    controller.loadDataForTrack({});
    EXPECT_EQ(shown(), "start");
    EXPECT_FALSE(view.isBusyGearShown());
    EXPECT_EQ(controller.artist(), QString());
    loader.exchanges.clear();
    announce({});
    EXPECT_EQ(shown(), "busy");
    EXPECT_TRUE(loader.exchanges.empty());
}

TEST_F(RVWebViewControllerTest, ThePageThatIsShownComesWithTheData)
{
    const std::pair<int, const char*> cases[] = {{0, "artist"},  {1, "album"},  {2, "track"}, {3, "busy"},
                                                 {4, "images"},  {5, "videos"}, {6, "blogs"}, {7, "news"},
                                                 {8, "reviews"}, {99, "artist"}};
    for (const auto& [number, page] : cases) {
        loader.exchanges.clear();
        announce();
        EXPECT_EQ(controller.currentPage(), 0) << "a new song begins with its artist";
        defaults.setValue(settings::SelectedNowPlayingPage, number);
        view.loadHtml("<html>", {}, {});
        for (const Request each : {Profile, Artist, Album, Release})
            reply(each);
        EXPECT_EQ(shown(), page) << number;
        EXPECT_EQ(view.isBusyGearShown(), number == 3) << number;
    }
}

TEST_F(RVWebViewControllerTest, LinksLeadToPages)
{
    announceAndHear();
    controller.setImages(QStringList(12, QStringLiteral("i")));
    controller.setBio(QString(2000, u'b'));
    struct Case {
        const char* address;
        const char* page;
        int number;
        const char* text;
    };
    const Case cases[] = {
        {"zib://current/artist", "artist", 0, "Read more..."},
        {"zib://current/artist/more", "artist", 0, "Read less..."},
        {"zib://current/artist/less", "artist", 0, "animate: false"},
        {"zib://current/album", "album", 1, "First Label"},
        {"zib://current/track", "track", 2, "La<br>la"},
        {"zib://current/images", "images", 4, "Showing 1 - 5 of 12"},
        {"zib://current/images", "images", 4, "Showing 1 - 5 of 12"},
        {"zib://current/images/more", "images", 4, "Showing 1 - 10 of 12"},
        {"zib://current/images/more", "images", 4, "Showing 1 - 12 of 12"},
        {"zib://current/videos", "videos", 5, "Videos for Amber"},
        {"zib://current/blogs", "blogs", 6, "Blogs for Amber"},
        {"zib://current/news", "news", 7, "News for Amber"},
        {"zib://current/reviews", "reviews", 8, "Reviews for Amber"},
    };
    QSet<QByteArray> marks;
    for (const Case& entry : cases) {
        const auto shownBefore = view.pages.size();
        EXPECT_FALSE(view.navigate(QString::fromUtf8(entry.address)));
        EXPECT_EQ(view.pages.size(), shownBefore + 1);
        EXPECT_EQ(shown(), entry.page) << entry.address;
        EXPECT_EQ(controller.currentPage(), entry.number) << entry.address;
        EXPECT_TRUE(pageHas(entry.text)) << entry.address;
        const FakeWebView::Shown& page = view.pages.constLast();
        EXPECT_EQ(page.baseUrl, QStringLiteral("file:///pages/"));
        EXPECT_GE(page.scriptMark.size(), 32);
        EXPECT_TRUE(page.html.contains(QStringLiteral("nonce=\"%1\"").arg(QLatin1String(page.scriptMark))));
        marks.insert(page.scriptMark);
    }
    EXPECT_EQ(marks.size(), qsizetype(std::size(cases)));
}

TEST_F(RVWebViewControllerTest, LinksAskTheMainController)
{
    announceAndHear();
    controller.setTrack_tags({QStringLiteral("t1"), QStringLiteral("t2")});
    const std::pair<const char*, const char*> cases[] = {
        {"zib://search/tag/a%20b", "tags a b"},
        {"zib://search/artist/similar", "artists Amber|Near|Far"},
        {"zib://search/artist/alltags", "tags jazz|calm"},
        {"zib://search/artist/Two+Words", "artists Two Words"},
        {"zib://search/song/alltags", "tags t1|t2"},
        {"zib://open/playlist/x-1", "playlist x-1"},
        {"zib://search/nobody", ""},
    };
    const auto shownBefore = view.pages.size();
    for (const auto& [address, asked] : cases) {
        done.clear();
        controller.handleURLString(QString::fromUtf8(address));
        EXPECT_EQ(done.join(u'\n').toStdString(), asked) << address;
    }
    EXPECT_EQ(view.pages.size(), shownBefore);
    controller.setDelegate(nullptr);
    controller.handleURLString(QStringLiteral("zib://search/tag/x"));
}

TEST_F(RVWebViewControllerTest, OnlyTheUserGoesAnywhere)
{
    struct Case {
        const char* address;
        NavigationType type;
        bool loads;
        const char* done; ///< by the main controller or, in brackets, the browser
    };
    constexpr auto click = NavigationType::LinkClicked;
    constexpr auto form = NavigationType::FormSubmitted;
    constexpr auto other = NavigationType::Other;
    const Case cases[] = {
        {"file:///pages/x.html", click, true, ""},
        {"file:///pages/x.html", other, true, ""},
        {"https://video.example/embed/1", other, true, ""},
        {"https://video.example/embed/1", click, true, ""},
        {"https://video.example.evil.example/", other, false, ""},
        {"https://video.example.evil.example/", click, false, "(https://video.example.evil.example/)"},
        {"https://video.example", click, false, "(https://video.example)"},
        {"http://blog.example/a%2Fb%20c?x=%26#y", click, false, "(http://blog.example/a%2Fb%20c?x=%26#y)"},
        {"http://blog.example/", form, false, "(http://blog.example/)"},
        {"http://blog.example/", other, false, ""},
        {"smb://host/share", click, false, ""},
        {"zib://search/tag/x", click, false, "tags x"},
        {"zib://search/tag/x", other, false, ""},
        {"zib://open/playlist/x", other, false, ""},
        {"zib://search/artist/", form, false, "artists two words"},
    };
    for (const Case& entry : cases) {
        done.clear();
        desktop.opened.clear();
        EXPECT_EQ(view.navigate(QString::fromUtf8(entry.address), entry.type, "Artist=two+words"),
                  entry.loads)
            << entry.address;
        for (const QUrl& url : desktop.opened)
            done += u'(' + QString::fromLatin1(url.toEncoded()) + u')';
        EXPECT_EQ(done.join(u'\n').toStdString(), entry.done) << entry.address;
    }
}

TEST_F(RVWebViewControllerTest, TellsWhatTheMouseIsOver)
{
    const QString link = QStringLiteral("http://x.example/");
    view.moveMouseOver(link);
    defaults.setValue(settings::SelectedNowPlayingPage, 4);
    view.moveMouseOver(link);
    view.moveMouseOver(QStringLiteral("zib://current/album"));
    view.moveMouseOver({});
    EXPECT_EQ(done.join(u'\n').toStdString(), "field http://x.example/\nfield Click to enlarge\nfield ");
}

} // namespace
} // namespace zib
