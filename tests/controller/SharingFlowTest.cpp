// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a playlist that is published without its songs, under another name or twice, what is private going
// with it, and a published one that comes to nothing or brings what it must not.
#include "records/KeyedArchive.h"
#include "services/utilities/Base64.h"
#include "tests/controller/ControllerFixture.h"

#include <QRegularExpression>

namespace zib {
namespace {

class SharingFlowTest : public ControllerFixture {
  protected:
    SharingFlowTest()
    {
        defaults.setValue(settings::PlaylistHost, QStringLiteral("lists.example"));
        library->setUserName(QStringLiteral("Ann-1"));
        desktop.calls.clear();
    }

    /// A playlist called "Mine" of those songs, which is shown.
    Record showPlaylist(const QList<Record>& songs)
    {
        controller->sources().addPlaylist(QStringLiteral("Mine"), songs);
        return library->currentPlaylist();
    }
    static QList<Record> webSongs(int count)
    {
        QList<Record> songs;
        for (int n = 1; n <= count; ++n)
            songs.append(webSong(n));
        return songs;
    }
    void share(int tag = ShareWindowController::Plain) { controller->sharing().sharePlaylistAction(tag); }
    /// The user changes the form so before they agree.
    void fillIn(const QString& title, const QString& description, const QString& tagstring)
    {
        shareWindow.answer = [=](const ShareForm& form) {
            return ShareForm{title, description, tagstring, form.userName};
        };
    }
    bool isUploading() const { return !urlLoader.exchanges.empty() && urlLoader.last().isRunning(); }
    /// The value of a field of the form that was sent last; null when it is not there.
    QByteArray sent(const QByteArray& field) const
    {
        for (const QByteArray& pair : urlLoader.last().request.body->bytes.split('&'))
            if (pair.startsWith(field + '='))
                return pair.mid(field.size() + 1);
        return {};
    }
    Record sentPlaylist() const
    {
        const auto value = unarchivedValue(QByteArray::fromBase64(sent("data")));
        return value ? *value->get<Record>() : Record();
    }
    /// The messages shown since the last call.
    QStringList messages()
    {
        QStringList result;
        for (const Alert& alert : std::exchange(alerts.shown, {}))
            result.append(alert.messageText);
        return result;
    }
};

TEST_F(SharingFlowTest, OnlyPlaylistsOfOneToFiftySongsAreShared)
{
    const std::tuple<std::function<void()>, QString> cases[] = {
        {[&] { controller->showLibrary(FilterType::All); },
         QStringLiteral("You can only share regular playlists.")},
        {[&] { showAsSearch(webSongs(2)); }, QStringLiteral("You can only share regular playlists.")},
        {[&] { showPlaylist({}); }, QStringLiteral("A shared playlist must contain at least 1 song")},
        {[&] { showPlaylist(webSongs(51)); },
         QStringLiteral("A shared playlist cannot contain more than 50 songs")},
    };
    for (const auto& [show, message] : cases) {
        show();
        desktop.calls.clear();
        share();
        EXPECT_EQ(messages(), QStringList{message});
        EXPECT_EQ(desktop.calls, (QStringList{QStringLiteral("bringToFront"), QStringLiteral("beep")}));
    }
    EXPECT_TRUE(shareWindow.shown.isEmpty());
    showPlaylist(webSongs(50));
    share();
    EXPECT_EQ(messages(), QStringList());
    EXPECT_TRUE(isUploading());
    EXPECT_EQ(sentPlaylist().records(keys::Tracks).size(), 50);
}

TEST_F(SharingFlowTest, APlaylistIsPublishedAndItsLinkPassedOn)
{
    const Record playlist = showPlaylist({webSong(1, {{keys::Favorite, true}, {keys::PlayCount, 9}}),
                                          webSong(2, {{keys::PlayDate, QDateTime::currentDateTimeUtc()}})});
    fillIn(QStringLiteral("Ours"), QStringLiteral("slow songs"), QStringLiteral("a,b,c,d,e,f,g"));
    share();
    ASSERT_EQ(shareWindow.shown.size(), 1);
    EXPECT_EQ(shareWindow.shown[0].title, QStringLiteral("Mine"));
    EXPECT_FALSE(shareWindow.shown[0].userName) << "it is known";
    EXPECT_TRUE(busyPanel.isOpen);
    EXPECT_EQ(sent("user"), "Ann-1");
    EXPECT_EQ(sent("name"), "Ours");
    EXPECT_EQ(sent("hidden"), "0");
    EXPECT_EQ(sent("description"), "slow songs");
    EXPECT_EQ(sent("tags"), "a,b,c,d,e");
    EXPECT_TRUE(sent("id").isNull());
    EXPECT_EQ(sentPlaylist().records(keys::Tracks), (QList<Record>{webSong(1), webSong(2)}));
    EXPECT_TRUE(library->library().find(webSong(1).string(keys::Id)).boolean(keys::Favorite));
    EXPECT_EQ(playlist.string(keys::SharedName), QStringLiteral("Ours"));
    EXPECT_EQ(playlist.string(keys::Tags), QStringLiteral("a,b,c,d,e"));

    share(); // one at a time
    EXPECT_EQ(shareWindow.shown.size(), 1);
    controller->showLibrary(FilterType::All); // the identifier goes to what was shared
    desktop.calls.clear();
    alerts.answers = {{.button = 2}};
    urlLoader.last().reply("OK 4711 ours-by-ann\n");
    EXPECT_FALSE(busyPanel.isOpen);
    EXPECT_EQ(playlist.integer(keys::ShareId), 4711);
    const QString link = QStringLiteral("http://lists.example/playlists/4711/ours-by-ann");
    EXPECT_EQ(clipboard.texts, QStringList{link});
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(alerts.shown[0].messageText, QStringLiteral("Zib!"));
    EXPECT_EQ(
        alerts.shown[0].informativeText,
        QStringLiteral("You just shared a playlist. The public link to this playlist is:\n\n%1\n\nThe link "
                       "has been copied to the clipboard.")
            .arg(link));
    EXPECT_EQ(alerts.shown[0].buttons.join(QLatin1Char('|')),
              QStringLiteral("Share on Twitter|Share on Facebook|Close"));
    EXPECT_EQ(desktop.calls, QStringList{QStringLiteral("bringToFront")});

    shareWindow.answer = [](const ShareForm& form) { return form; };
    controller->showPlaylist(0);
    share();
    EXPECT_EQ(shareWindow.shown[1].title, QStringLiteral("Mine")) << "it opens with the playlist's own name";
    EXPECT_EQ(shareWindow.shown[1].description, QStringLiteral("slow songs"));
    EXPECT_EQ(shareWindow.shown[1].tags, QStringLiteral("a,b,c,d,e"));
    EXPECT_EQ(sent("id"), "4711");
    EXPECT_EQ(sent("name"), "Mine");
}

TEST_F(SharingFlowTest, TheLinkGoesWhereItWasAskedFor)
{
    defaults.setValue(settings::PlaylistSite, QStringLiteral("zib.example/at/"));
    showPlaylist(webSongs(1));
    const QString link = QStringLiteral("http://zib.example/at/playlists/7/mine");
    const QString facebook = QStringLiteral("https://www.facebook.com/share.php?u=") + link;
    const QString twitter = QStringLiteral("https://twitter.com/home?status=") + link;
    const std::tuple<int, int, QString, int> cases[] = {
        {ShareWindowController::Facebook, 0, facebook, 0}, {ShareWindowController::Twitter, 0, twitter, 0},
        {ShareWindowController::Plain, 0, twitter, 1},     {ShareWindowController::Plain, 1, facebook, 1},
        {ShareWindowController::Plain, 2, QString(), 1},
    };
    for (const auto& [tag, button, page, copied] : cases) {
        desktop.opened.clear();
        clipboard.texts.clear();
        alerts.answers = {{.button = button}};
        share(tag);
        urlLoader.last().reply("OK 7 mine");
        EXPECT_EQ(desktop.opened.isEmpty() ? QString() : desktop.opened[0].toString(), page);
        EXPECT_EQ(clipboard.texts.size(), copied);
        alerts.answers.clear();
    }
}

TEST_F(SharingFlowTest, SongsThatOthersCannotPlayAreLeftOutOnceTheUserAgrees)
{
    const Record playlist =
        showPlaylist({localSong(1), webSong(2), webSong(3, {{keys::BrokenLink, true}}), webSong(4)});
    alerts.answers = {{.button = 1}};
    share();
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(
        alerts.shown[0].informativeText,
        QStringLiteral("The selected playlist contains one or more songs that cannot be played remotely. "
                       "These songs will be removed from your shared playlist. Do you want to continue?"));
    EXPECT_EQ(alerts.shown[0].buttons, (QStringList{QStringLiteral("Continue"), QStringLiteral("Cancel")}));
    EXPECT_EQ(messages(), QStringList{QStringLiteral("Warning")});
    EXPECT_FALSE(isUploading());
    EXPECT_FALSE(playlist.contains(keys::Description)) << "a share that was cancelled changes nothing";
    share();
    EXPECT_EQ(sentPlaylist().records(keys::Tracks), (QList<Record>{webSong(2), webSong(4)}));
    urlLoader.last().reply("OK 1 x");
    messages();

    showPlaylist({localSong(1)});
    share();
    EXPECT_EQ(messages(), (QStringList{QStringLiteral("Warning"),
                                       QStringLiteral("No streamable songs in this playlist")}));
    EXPECT_FALSE(isUploading());
    shareWindow.answer = [](const ShareForm&) { return std::nullopt; };
    share();
    EXPECT_EQ(messages(), QStringList()) << "the window was cancelled";
}

TEST_F(SharingFlowTest, TheFirstShareAsksForAName)
{
    library->setUserName({});
    showPlaylist(webSongs(1));
    share();
    EXPECT_EQ(shareWindow.shown[0].userName, QStringLiteral("Ann Other"));
    const QString name = library->userName();
    const QRegularExpression form(QStringLiteral("^Ann_Other-[0-9a-f]{32}$"));
    EXPECT_TRUE(form.match(name).hasMatch()) << qUtf8Printable(name);
    EXPECT_EQ(sent("user"), name.toUtf8());
    urlLoader.last().reply("OK 1 x");
    share();
    EXPECT_FALSE(shareWindow.shown[1].userName);
    EXPECT_EQ(sent("user"), name.toUtf8());
}

TEST_F(SharingFlowTest, FailuresAreToldAndLeaveTheIdentifierAlone)
{
    const Record playlist = showPlaylist(webSongs(1));
    share();
    urlLoader.last().reply("OK 7 x");
    messages();
    const std::pair<std::function<void()>, QString> cases[] = {
        {[&] { urlLoader.last().fail(QStringLiteral("cut")); },
         QStringLiteral("Could not connect to server")},
        {[&] { urlLoader.last().reply("Too many songs"); }, QStringLiteral("Too many songs")},
        {[&] { urlLoader.last().reply("OK"); }, QStringLiteral("The server's answer was not understood.")},
    };
    for (const auto& [fail, message] : cases) {
        share();
        EXPECT_TRUE(busyPanel.isOpen);
        fail();
        EXPECT_FALSE(busyPanel.isOpen);
        EXPECT_EQ(messages(), QStringList{message});
        EXPECT_EQ(playlist.integer(keys::ShareId), 7);
    }
    urlLoader.refuses = true;
    share();
    EXPECT_FALSE(busyPanel.isOpen);
    EXPECT_EQ(messages(), QStringList{QStringLiteral("Could not connect to server")});
    urlLoader.refuses = false;
    share();
    EXPECT_TRUE(isUploading()) << "the next one goes out";
}

TEST_F(SharingFlowTest, APublishedPlaylistIsOpenedAndItsSongsAdded)
{
    const QList<Record> songs{webSong(1), webSong(2)};
    library->library().insert(webSong(1).string(keys::Id), webSong(1, {{keys::Favorite, true}}));
    QByteArray reply = base64Encoding(
        archivedData(Record::make({{keys::Name, QStringLiteral("Theirs")}, {keys::Tracks, songs}})));
    urlLoader.onLoad = [&](const UrlRequest&) { return UrlReply{{}, reply}; };
    showPlaylist(webSongs(1));
    controller->openSharedPlaylist(QStringLiteral("4711"));
    ASSERT_EQ(urlLoader.loaded.size(), 1U);
    EXPECT_EQ(urlLoader.loaded[0].url, "http://lists.example/playlists/getplaylist.php?id=4711");
    ASSERT_EQ(library->playlists().size(), 2);
    EXPECT_EQ(library->playlists()[1].string(keys::Name), QStringLiteral("Theirs"));
    EXPECT_EQ(library->currentName(), QStringLiteral("Theirs"));
    EXPECT_EQ(library->items().size(), 2);
    EXPECT_TRUE(library->items()[0].boolean(keys::Favorite)) << "a song of the library stays what it is";
    EXPECT_EQ(controller->sources().tree().selectedPaths(),
              QList<NodePath>{NodePath({int(SourceType::Playlists), 1})});
    EXPECT_EQ(messages(), QStringList());

    reply = "No such playlist";
    controller->openSharedPlaylist(QStringLiteral("1"));
    urlLoader.onLoad = [](const UrlRequest&) { return tl::unexpected(QStringLiteral("The server is out.")); };
    controller->openSharedPlaylist(QStringLiteral("1"));
    EXPECT_EQ(messages(), (QStringList{QStringLiteral("This shared playlist could not be opened."),
                                       QStringLiteral("The server is out.")}));
    EXPECT_EQ(library->playlists().size(), 2);
}

} // namespace
} // namespace zib
