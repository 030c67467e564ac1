// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a song downloaded unasked, a button that says something else than what is the case, a downloaded
// song that is fetched from the web again.
#include "tests/controller/ControllerFixture.h"

namespace zib {
namespace {

class DownloadActionsTest : public ControllerFixture {
  protected:
    DownloadActions& downloading() { return controller->downloading(); }
    /// What a click on the button does.
    void click()
    {
        window.downloaded = !window.downloaded;
        downloading().downloadCurrentSong(window.downloaded);
    }
    [[nodiscard]] QString button() const
    {
        return QString(window.downloaded ? QStringLiteral("on") : QStringLiteral("off")) +
               QString(window.downloadEnabled ? QString() : QStringLiteral(" disabled"));
    }
};

TEST_F(DownloadActionsTest, TheSongNowPlayingIsDownloadedAndThenPlaysFromDiskWithoutTheWeb)
{
    showAsSearch({webSong(1), webSong(2)});
    EXPECT_EQ(button(), QStringLiteral("off disabled"));
    play(0);
    EXPECT_EQ(button(), QStringLiteral("off"));

    alerts.answers = {{1, false}};
    click();
    EXPECT_EQ(button(), QStringLiteral("off")) << "cancelled";
    EXPECT_TRUE(urlLoader.exchanges.empty());
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_TRUE(alerts.shown[0].informativeText.startsWith(
        QStringLiteral("You are about to download a song. Please make sure")));

    click();
    ASSERT_EQ(urlLoader.exchanges.size(), 1U);
    EXPECT_EQ(button(), QStringLiteral("on"));
    click(); // to off: a song cannot be un-downloaded
    EXPECT_EQ(button(), QStringLiteral("on"));
    EXPECT_EQ(urlLoader.exchanges.size(), 1U);
    play(1);
    EXPECT_EQ(button(), QStringLiteral("off"));
    play(0);
    EXPECT_EQ(button(), QStringLiteral("on")) << "still under way";

    urlLoader.last().reply("song");
    EXPECT_EQ(button(), QStringLiteral("on disabled"));
    EXPECT_EQ(status(), QStringLiteral("Exported to disk"));

    queue().stop();
    controller->disconnectedFromInternetNotification();
    const auto streams = http.exchanges().size();
    play(0);
    EXPECT_EQ(playing(), 1);
    EXPECT_EQ(movies.opened.value(0), folder.filePath(QStringLiteral("Music/Artist/Album/Song 1.mp3")));
    EXPECT_EQ(http.exchanges().size(), streams);
    EXPECT_EQ(button(), QStringLiteral("on disabled"));
}

TEST_F(DownloadActionsTest, AFailedDownloadCanBeTriedAgain)
{
    showAsSearch({webSong(1)});
    play(0);
    click();
    urlLoader.last().fail(QStringLiteral("The server went away."));
    EXPECT_EQ(button(), QStringLiteral("off"));
    click();
    EXPECT_EQ(urlLoader.exchanges.size(), 2U);
}

TEST_F(DownloadActionsTest, ARowsButtonAsksAndStopsWithoutAsking)
{
    showAsSearch({webSong(1), webSong(2)});
    alerts.answers = {{1, false}};
    downloading().downloadSong(1);
    EXPECT_TRUE(urlLoader.exchanges.empty());
    defaults.setValue(settings::SupressDialogDownload, true);
    downloading().downloadSong(1);
    ASSERT_EQ(urlLoader.exchanges.size(), 1U);
    EXPECT_EQ(urlLoader.last().request.url, "http://music.example/2.mp3");
    defaults.setValue(settings::SupressDialogDownload, false);
    downloading().downloadSong(1);
    EXPECT_TRUE(library->items()[1].boolean(keys::Abort));
    downloading().downloadSong(7);
    EXPECT_EQ(alerts.shown.size(), 1);
}

} // namespace
} // namespace zib
