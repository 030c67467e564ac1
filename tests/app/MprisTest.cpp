// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: remote controls that do not find the program, are told what is not the case or nothing at all, or do
// something else than the window's buttons. The clients are other programs than ours, over another library
// than ours.
#include "app/Mpris.h"
#include "tests/controller/ControllerFixture.h"
#include "tests/desktop/PrivateBus.h"

#include <QCoreApplication>
#include <QProcess>

namespace zib {
namespace {

class MprisTest : public ControllerFixture {
  protected:
    MprisTest()
    {
        showAsSearch({localSong(1, {{keys::Genre, QStringLiteral("Soul")},
                                    {keys::Position, 7},
                                    {keys::PlayCount, 3},
                                    {keys::Favorite, true}}),
                      localSong(2), localSong(3, {{keys::BrokenLink, true}})});
        mpris_ = std::make_unique<Mpris>(Mpris::Program{controller->playback(), defaults, *library,
                                                        [this] { asked_ += QLatin1Char('R'); },
                                                        [this] { asked_ += QLatin1Char('Q'); },
                                                        [this](const QString& uri) { asked_ += uri; }},
                                         bus_.address());
        monitor_.start(QStringLiteral("dbus-monitor"),
                       {QStringLiteral("--address"), bus_.address(),
                        QStringLiteral("type='signal',path='/org/mpris/MediaPlayer2'")});
        EXPECT_TRUE(eventually([this] { return read(monitor_).contains("NameAcquired"); }));
        EXPECT_TRUE(eventually([this] { return run({QStringLiteral("status")}) == "Stopped\n"; }));
    }
    ~MprisTest() override
    {
        monitor_.kill();
        monitor_.waitForFinished();
    }

    /// What a remote control says that is asked so; the program runs meanwhile.
    QByteArray run(const QStringList& arguments)
    {
        QProcess control;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus_.address());
        control.setProcessEnvironment(environment);
        control.start(QStringLiteral("playerctl"), QStringList(QStringLiteral("--player=zib")) + arguments);
        EXPECT_TRUE(eventually([&control] { return control.state() == QProcess::NotRunning; }));
        return control.readAllStandardOutput();
    }
    /// The answer to a method of the interface, with the types of what it holds.
    QByteArray call(const QString& method, const QStringList& arguments = {})
    {
        QProcess client;
        client.start(QStringLiteral("dbus-send"),
                     QStringList{QStringLiteral("--bus=") + bus_.address(), QStringLiteral("--print-reply"),
                                 QStringLiteral("--dest=") + Mpris::name, Mpris::path, method} +
                         arguments);
        EXPECT_TRUE(eventually([&client] { return client.state() == QProcess::NotRunning; }));
        return client.readAllStandardOutput().simplified();
    }
    QByteArray properties(const char* interface)
    {
        return call(QStringLiteral("org.freedesktop.DBus.Properties.GetAll"),
                    {QStringLiteral("string:") + QLatin1String(interface)});
    }
    static QByteArray entry(const char* name, const char* value)
    {
        return QByteArray("string \"") + name + "\" variant " + value;
    }
    /// The signals since the last time; complete, since they are delivered in order and this one is the last.
    QByteArray told()
    {
        QCoreApplication::processEvents();
        const QByteArray end = QByteArray::number(++ends_) + "000000";
        Q_EMIT queue().seeked(ends_);
        EXPECT_TRUE(eventually([&] { return (heard_ + read(monitor_)).contains("int64 " + end); }));
        return std::exchange(heard_, {}).simplified();
    }
    const QByteArray& read(QProcess& process) { return heard_ += process.readAllStandardOutput(); }

    PrivateBus bus_;
    QString asked_;
    std::unique_ptr<Mpris> mpris_;
    QProcess monitor_;
    QByteArray heard_;
    int ends_ = 900;
};

TEST_F(MprisTest, TellsWhatItIsAndDoesWhatItIsAsked)
{
    const QByteArray root = properties("org.mpris.MediaPlayer2");
    for (const QByteArray& expected :
         {entry("Identity", "string \"Zib\""), entry("DesktopEntry", "string \"zib\""),
          entry("CanQuit", "boolean true"), entry("CanRaise", "boolean true"),
          entry("HasTrackList", "boolean false"),
          entry("SupportedUriSchemes", "array [ string \"file\" string \"zib\" ]")})
        EXPECT_TRUE(root.contains(expected)) << root.toStdString();
    EXPECT_FALSE(root.contains("ullscreen")) << root.toStdString();
    call(QStringLiteral("org.mpris.MediaPlayer2.Raise"));
    run({QStringLiteral("open"), QStringLiteral("zib://search/tag/jazz")});
    call(QStringLiteral("org.mpris.MediaPlayer2.Quit"));
    EXPECT_EQ(asked_, QStringLiteral("Rzib://search/tag/jazzQ"));
}

TEST_F(MprisTest, TellsOfTheSongThatPlays)
{
    defaults.setValue(settings::MusicInfoHost, QStringLiteral("info.example"));
    run({QStringLiteral("play")});
    told();
    urlLoader.last().reply(
        "<lfm><track><album><image/><image>http://covers.example/1</image></album></track></lfm>");
    EXPECT_TRUE(told().contains("mpris:artUrl"));
    const QByteArray song = properties("org.mpris.MediaPlayer2.Player");
    for (const QByteArray& expected : {entry("PlaybackStatus", "string \"Playing\""),
                                       entry("Rate", "double 1"),
                                       entry("MinimumRate", "double 1"),
                                       entry("MaximumRate", "double 1"),
                                       entry("Volume", "double 1"),
                                       entry("Position", "int64 0"),
                                       entry("CanGoNext", "boolean true"),
                                       entry("CanGoPrevious", "boolean true"),
                                       entry("CanPlay", "boolean true"),
                                       entry("CanPause", "boolean true"),
                                       entry("CanSeek", "boolean true"),
                                       entry("CanControl", "boolean true"),
                                       entry("mpris:trackid", "object path \"/zib/song/id0000000000000001\""),
                                       entry("mpris:length", "int64 100000000"),
                                       entry("xesam:title", "string \"Song 1\""),
                                       entry("xesam:artist", "array [ string \"Artist\" ]"),
                                       entry("xesam:album", "string \"Album\""),
                                       entry("xesam:genre", "array [ string \"Soul\" ]"),
                                       entry("xesam:trackNumber", "int32 7"),
                                       entry("xesam:useCount", "int32 3"),
                                       entry("xesam:userRating", "double 1"),
                                       entry("mpris:artUrl", "string \"http://covers.example/1\""),
                                       entry("xesam:url", "string \"file://")})
        EXPECT_TRUE(song.contains(expected)) << expected.toStdString() << "\n" << song.toStdString();
    for (const char* absent : {"LoopStatus", "Shuffle"})
        EXPECT_FALSE(song.contains(absent)) << absent;
}

TEST_F(MprisTest, DoesWhatTheButtonsDo)
{
    run({QStringLiteral("pause")});
    EXPECT_FALSE(window.playing);
    run({QStringLiteral("play-pause")});
    EXPECT_TRUE(window.playing);
    run({QStringLiteral("play")});
    EXPECT_TRUE(window.playing);
    run({QStringLiteral("pause")});
    run({QStringLiteral("pause")});
    EXPECT_FALSE(window.playing);
    run({QStringLiteral("play-pause")});
    run({QStringLiteral("next")});
    EXPECT_EQ(playing(), 2);
    run({QStringLiteral("next")}); // what follows cannot be played
    EXPECT_EQ(playing(), 2);
    run({QStringLiteral("position"), QStringLiteral("20")});
    EXPECT_EQ(player->currentTime(), 20);
    run({QStringLiteral("position"), QStringLiteral("5-")});
    EXPECT_EQ(player->currentTime(), 15);
    run({QStringLiteral("position"), QStringLiteral("60-")});
    EXPECT_EQ(player->currentTime(), 0);
    const auto setPosition = [this](const char* track, const char* microseconds) {
        call(QStringLiteral("org.mpris.MediaPlayer2.Player.SetPosition"),
             {QStringLiteral("objpath:") + QLatin1String(track),
              QStringLiteral("int64:") + QLatin1String(microseconds)});
        return player->currentTime();
    };
    EXPECT_EQ(setPosition("/zib/song/id0000000000000002", "30000000"), 30);
    EXPECT_EQ(setPosition("/zib/song/id0000000000000001", "40000000"), 30);
    EXPECT_EQ(setPosition("/zib/song/id0000000000000002", "100000001"), 30);
    EXPECT_EQ(setPosition("/zib/song/id0000000000000002", "-1"), 30);
    run({QStringLiteral("previous")});
    EXPECT_EQ(player->currentTime(), 0);
    run({QStringLiteral("previous")});
    EXPECT_EQ(playing(), 1);

    for (const auto& [wanted, level] : {std::pair("0.5", 0.5), std::pair("7", 1.0), std::pair("0", 0.0)}) {
        run({QStringLiteral("volume"), QLatin1String(wanted)});
        EXPECT_EQ(defaults.real(settings::SoundLevel), level); // which the window shows
        EXPECT_EQ(movies.current->volume(), float(level));
    }
    run({QStringLiteral("stop")});
    EXPECT_FALSE(queue().snapshot());
}

TEST_F(MprisTest, DoesWhatLaterStartsAskFor)
{
    const auto ask = [this](Transport transport) {
        mpris_->apply(transport);
        QCoreApplication::processEvents();
    };
    ask(Transport::None);
    ask(Transport::Next); // of nothing
    EXPECT_FALSE(window.playing);
    ask(Transport::PlayPause);
    EXPECT_TRUE(window.playing);
    ask(Transport::Next);
    EXPECT_EQ(playing(), 2);
    ask(Transport::Previous);
    EXPECT_EQ(playing(), 1);
    ask(Transport::PlayPause);
    EXPECT_FALSE(window.playing);
}

TEST_F(MprisTest, TellsOfChangesAndOfThemAlone)
{
    EXPECT_FALSE(told().contains("PropertiesChanged"));
    play(0);
    QByteArray changes = told();
    EXPECT_EQ(changes.count("member=PropertiesChanged"), 1);
    for (const char* name :
         {"PlaybackStatus", "Metadata", "CanGoNext", "CanGoPrevious", "CanPause", "CanSeek"})
        EXPECT_TRUE(changes.contains(QByteArray("string \"") + name)) << changes.toStdString();
    for (const char* name : {"Position\"", "Volume", "CanPlay", "Rate", "CanControl"})
        EXPECT_FALSE(changes.contains(QByteArray("string \"") + name)) << changes.toStdString();

    hear(30);
    queue().updateProgress();
    EXPECT_FALSE(told().contains("PropertiesChanged"));
    queue().pause();
    changes = told();
    EXPECT_TRUE(changes.contains(entry("PlaybackStatus", "string \"Paused\"")));
    EXPECT_TRUE(changes.contains(entry("CanSeek", "boolean false")));
    EXPECT_FALSE(changes.contains("Metadata"));
    queue().soundLevel().volumeDown();
    EXPECT_TRUE(told().contains("Volume"));

    queue().playPause();
    queue().scanTrack(50);
    EXPECT_TRUE(told().contains("int64 50000000"));
    controller->loving().addCurrentFavorite(false);
    changes = told();
    EXPECT_TRUE(changes.contains(entry("xesam:userRating", "double 0")));
    EXPECT_FALSE(changes.contains("PlaybackStatus"));
    showAsSearch({});
    queue().stop();
    changes = told();
    EXPECT_TRUE(changes.contains(entry("PlaybackStatus", "string \"Stopped\"")));
    EXPECT_TRUE(changes.contains(entry("CanPlay", "boolean false")));
    EXPECT_TRUE(changes.contains("string \"Metadata\" variant array [ ]")) << changes.toStdString();
}

TEST_F(MprisTest, ASongOnItsWayIsPausedOnceItPlays)
{
    http.onOpen = [](FakeHttpExchange&) {};
    showAsSearch({webSong(4)});
    play(0);
    EXPECT_EQ(run({QStringLiteral("status")}), "Playing\n");
    run({QStringLiteral("pause")});
    EXPECT_TRUE(eventually([this] { return !http.exchanges().empty(); }));
    FakeHttpReadStreams::serve(*http.exchanges().back(), FakeAudioFile::packets(200, 1000));
    EXPECT_TRUE(eventually([this] { return queue().state() == PlaybackQueue::State::Paused; }));
    EXPECT_EQ(run({QStringLiteral("status")}), "Paused\n");
}

} // namespace
} // namespace zib

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
