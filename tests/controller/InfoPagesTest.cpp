// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: pages about another song than the one that plays, and links that lead nowhere.
#include "tests/controller/ControllerFixture.h"

namespace zib {
namespace {

class InfoPagesTest : public ControllerFixture {
  protected:
    InfoPagesTest()
    {
        for (const QString& host : {settings::MusicInfoHost, settings::ReleaseHost, settings::LyricsHost})
            defaults.setValue(host, QStringLiteral("info.example"));
    }

    QString page() const { return window.pages.pages.last().html; }
    /// The information about the song that was asked for last is there.
    void answer(const char* artist)
    {
        urlLoader.last().reply(
            QByteArray("<lfm><track><name>Song</name><artist><name>") + artist +
            "</name></artist><toptags><tag><name>calm</name></tag></toptags></track></lfm>");
    }
    QList<QByteArray> requestsFrom(std::size_t first) const
    {
        QList<QByteArray> paths;
        for (std::size_t n = first; n < urlLoader.exchanges.size(); ++n)
            paths.append(urlLoader.exchanges[n]->request.url);
        return paths;
    }
};

TEST_F(InfoPagesTest, FollowTheSongThatPlays)
{
    EXPECT_TRUE(page().contains(QLatin1String("What artist do you want to play next?")));
    showAsSearch({webSong(1), webSong(2, {{keys::Artist, QStringLiteral("Other")}})});
    play(0);
    controller->sources().select({int(SourceType::NowPlaying)});
    EXPECT_TRUE(window.pages.isBusyGearShown()) << "while the song's names are asked for";
    const std::size_t asked = urlLoader.exchanges.size();
    answer("The Artist");
    const QList<QByteArray> requests = requestsFrom(asked);
    ASSERT_EQ(requests.size(), 5);
    EXPECT_TRUE(requests[0].contains("/api/v4/artist/profile") && requests[0].contains("&name=The%20Artist"))
        << requests[0].constData();
    for (const auto& exchange : urlLoader.exchanges)
        exchange->reply("<response><status><message>Success</message></status><artist/></response>");
    EXPECT_FALSE(window.pages.isBusyGearShown());
    EXPECT_TRUE(page().contains(QLatin1String("<b>Song</b> by ")));
    EXPECT_TRUE(page().contains(QLatin1String("The Artist")));

    const auto shown = window.pages.pages.size();
    queue().stop();
    EXPECT_EQ(window.pages.pages.size(), shown) << "a page that is read stays";
    controller->showLibrary(FilterType::All);
    queue().stop();
    EXPECT_TRUE(page().contains(QLatin1String("What artist do you want to play next?")));
}

TEST_F(InfoPagesTest, SayThatTheMachineIsOffline)
{
    controller->disconnectedFromInternetNotification();
    EXPECT_TRUE(
        page().contains(QStringLiteral("This computer’s Internet connection appears to be offline.")));
    comeOnline();
    EXPECT_TRUE(page().contains(QLatin1String("What artist do you want to play next?")));
}

TEST_F(InfoPagesTest, LinksSearchAndSayWhereTheyLead)
{
    window.pages.moveMouseOver(QStringLiteral("zib://search/tag/calm%20sea"));
    EXPECT_EQ(window.urlField, QStringLiteral("Search for songs tagged calm sea"));
    EXPECT_FALSE(window.pages.navigate(QStringLiteral("zib://search/tag/calm%20sea")));
    EXPECT_TRUE(urlLoader.last().request.url.contains("description=calm"));
    controller->webController().handleURLString(QStringLiteral("zib://search/artist/Amber+Tide"));
    EXPECT_TRUE(urlLoader.last().request.url.contains("name=Amber"));
    window.pages.navigate(QStringLiteral("zib://search/artist/"), NavigationType::FormSubmitted,
                          "Artist=two+words");
    EXPECT_TRUE(urlLoader.last().request.url.contains("name=two+words"))
        << urlLoader.last().request.url.constData();
}

} // namespace
} // namespace zib
