// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts a player that takes the wrong source for a song, answers for a back end that is gone, or leaves one
// running behind the next.
#include "playback/RVPlayer.h"

#include "StreamerFixture.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeMovies.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

namespace zib {
namespace {

class RecordingController : public RVPlayerDelegate {
  public:
    void updateProgress() override
    {
        ++updates;
        if (onUpdate)
            onUpdate();
    }
    void playbackStateChanged(AudioStreamer& streamer) override
    {
        states.append(streamer.state());
        if (onState)
            onState(streamer);
    }
    void movieDidEnd(Movie& movie) override
    {
        ended.append(&movie);
        if (onEnd)
            onEnd();
    }
    AudioStreamerDelegate* dataManager() override { return &library; }

    int updates = 0;
    QList<AudioStreamer::State> states;
    QList<Movie*> ended;
    RecordingDelegate library;
    std::function<void()> onUpdate;
    std::function<void(AudioStreamer&)> onState;
    std::function<void()> onEnd;
};

class RVPlayerTest : public StreamerFixture {
  protected:
    RVPlayerTest()
    {
        EXPECT_TRUE(folder.isValid());
        defaults.setValue(settings::MusicFolder, folder.path());
        defaults.setValue(settings::SoundLevel, 0.5);
        web.onOpen = [](FakeHttpExchange& exchange) {
            exchange.respond({{"Content-Length", "1000000"}});
            exchange.send(FakeAudioFile::packets(packetsToPlay, packetBytes));
        };
    }

    QString makeFile(const QString& path)
    {
        const QString whole = folder.filePath(path);
        EXPECT_TRUE(QDir().mkpath(QFileInfo(whole).path()));
        QFile file(whole);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return whole;
    }
    static Record song(const QString& location, const QString& name = QStringLiteral("My Song"))
    {
        return Record::make(
            {{keys::Name, name}, {keys::Artist, QStringLiteral("AC/DC")}, {keys::Location, location}});
    }
    void playMovie()
    {
        player.playTrack(song(QUrl::fromLocalFile(makeFile(QStringLiteral("here.mp3"))).toString()));
        ASSERT_NE(player.qtMovie(), nullptr);
    }
    void playStream()
    {
        player.playTrack(song(QStringLiteral("http://music.example/a.mp3")));
        ASSERT_NE(player.streamer(), nullptr);
        ASSERT_TRUE(eventually([this] { return player.isPlaying(); }));
    }

    QTemporaryDir folder;
    FakeMovies movies;
    FakeDesktop desktop;
    RecordingController controller;
    RVPlayer player{&controller, ports, movies, desktop};
};

TEST_F(RVPlayerTest, PlaysAFileAtTheUsersVolume)
{
    const QString path = makeFile(QStringLiteral("My Files/50% #1 für?.mp3"));
    player.playTrack(song(QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded())));
    EXPECT_EQ(movies.opened, QStringList{path});
    EXPECT_EQ(movies.current->volume(), 0.5F);
    EXPECT_TRUE(player.isPlaying());
    EXPECT_TRUE(player.hasMedia());
    EXPECT_FALSE(player.isStreaming());
    EXPECT_EQ(requests(), 0U);
    EXPECT_TRUE(eventually([this] { return controller.updates >= 2; }));
}

TEST_F(RVPlayerTest, PrefersADownloadedCopy)
{
    struct Case {
        const char* name;
        const char* location;
        const char* file;
        bool found;
    };
    const Case cases[] = {
        {"My Song", "http://music.example/x.mp3", "AC-DC/Album/My Song.mp3", true},
        {"MY song", "http://music.example/x.mp3", "AC-DC/my SONG.MP3", true},
        {"My Song", "http://music.example/x.MP3", "AC-DC/a/b/c/My Song.mp3", true},
        {"My Song", "http://music.example/stream", "AC-DC/My Song.mp3", true},
        {"Song", "http://music.example/x.mp3", "AC-DC/My Song.mp3", true}, // the end of the path counts
        {"My Song", "http://music.example/x.ogg", "AC-DC/My Song.mp3", false},
        {"My Song", "http://music.example/x.mp3", "Other/My Song.mp3", false},
        {"My Song", "http://music.example/x.mp3", "AC-DC/My Song 2.mp3", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        QDir(folder.filePath(QStringLiteral("AC-DC"))).removeRecursively();
        movies.opened.clear();
        const QString path = makeFile(QLatin1String(c.file));
        player.playTrack(song(QLatin1String(c.location), QLatin1String(c.name)));
        EXPECT_EQ(player.isStreaming(), !c.found);
        EXPECT_EQ(movies.opened, c.found ? QStringList{path} : QStringList{});
    }
}

TEST_F(RVPlayerTest, NothingPlaysWithoutAMusicFolder)
{
    playMovie();
    defaults.setValue(settings::MusicFolder, QString());
    const LogCapture log;
    player.playTrack(song(QStringLiteral("http://music.example/a.mp3")));
    EXPECT_EQ(log.count(QStringLiteral("Nil dirpath for My Song!?")), 1);
    EXPECT_FALSE(player.hasMedia());
    EXPECT_EQ(player.progressUpdateTimer(), nullptr);
}

TEST_F(RVPlayerTest, AMissingFileIsToldThenShown)
{
    track = song(QStringLiteral("file:///nowhere/a%20b.mp3"));
    alerts.whileShown = [&](const Alert&) {
        EXPECT_EQ(controller.library.notFound.size(), 1);
        EXPECT_EQ(desktop.calls, (QStringList{QStringLiteral("bringToFront"), QStringLiteral("beep")}));
    };
    player.playTrack(track);
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(alerts.shown.first().style, Alert::Style::Warning);
    EXPECT_EQ(alerts.shown.first().messageText, QStringLiteral("File not found"));
    EXPECT_EQ(alerts.shown.first().informativeText,
              QStringLiteral("The file at path /nowhere/a b.mp3 could not be located."));
    EXPECT_EQ(alerts.shown.first().buttons, QStringList{QStringLiteral("OK")});
    EXPECT_TRUE(controller.library.notFound.first().isSame(track));
    EXPECT_FALSE(player.hasMedia());
    EXPECT_EQ(player.progressUpdateTimer(), nullptr);
}

TEST_F(RVPlayerTest, AFileThatCannotBePlayedShowsWhy)
{
    const QString path = makeFile(QStringLiteral("bad.mp3"));
    movies.errors.insert(path, QStringLiteral("It is no music."));
    player.playTrack(song(QUrl::fromLocalFile(path).toString()));
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(alerts.shown.first().messageText, QStringLiteral("It is no music."));
    EXPECT_EQ(desktop.calls.size(), 2);
    EXPECT_TRUE(controller.library.notFound.isEmpty());
    EXPECT_FALSE(player.hasMedia());
    EXPECT_EQ(player.progressUpdateTimer(), nullptr);
}

TEST_F(RVPlayerTest, StreamsAndTellsOfEveryChangeButTheFirst)
{
    playStream();
    EXPECT_TRUE(player.isStreaming());
    EXPECT_TRUE(player.hasMedia());
    ASSERT_TRUE(eventually([this] { return controller.states.contains(State::Playing); }));
    EXPECT_FALSE(controller.states.contains(State::StartingFileThread));
    player.setVolume(0.25F);
    EXPECT_EQ(output()->volume(), 0.25F);
    player.playPause();
    EXPECT_TRUE(player.streamer()->isPaused());
    EXPECT_FALSE(player.isPlaying());
    player.playPause();
    EXPECT_TRUE(player.isPlaying());
    EXPECT_TRUE(eventually([this] { return controller.updates > 0; }));

    controller.states.clear();
    player.stop();
    QCoreApplication::processEvents();
    EXPECT_TRUE(controller.states.isEmpty()) << "nobody is told of a stop";
    EXPECT_FALSE(player.hasMedia());
    EXPECT_EQ(player.progressUpdateTimer(), nullptr);
    EXPECT_TRUE(output()->isDisposed());
}

TEST_F(RVPlayerTest, OneSongReplacesTheOther)
{
    playMovie();
    playStream();
    EXPECT_EQ(movies.current, nullptr);
    const auto first = output();
    playStream();
    EXPECT_TRUE(first->isDisposed());
    playMovie();
    EXPECT_EQ(player.streamer(), nullptr);
    EXPECT_EQ(web.runLoopsAlive(), 0);
}

TEST_F(RVPlayerTest, AMovieIsPausedResumedAndRestarted)
{
    playMovie();
    player.playPause();
    EXPECT_EQ(movies.current->rate(), 0.0F);
    EXPECT_FALSE(player.isPlaying());
    EXPECT_TRUE(player.hasMedia());
    player.playPause();
    EXPECT_EQ(movies.current->rate(), 1.0F);
    movies.current->setCurrentTime({3000, 60});
    player.playPause();
    player.backTrack();
    EXPECT_EQ(player.currentTime(), 0);
    EXPECT_TRUE(player.isPlaying());
    player.setVolume(0.75F);
    EXPECT_EQ(movies.current->volume(), 0.75F);
}

TEST_F(RVPlayerTest, BackTrackSeeksAStreamToItsBeginning)
{
    files.file.seekAnswer = {kAudioOk, 0, false};
    playStream();
    player.backTrack();
    EXPECT_TRUE(eventually([this] { return requests() == 2; }));
    EXPECT_TRUE(eventually([this] { return player.isPlaying(); }));
}

TEST_F(RVPlayerTest, CountsAMovieInWholeSeconds)
{
    movies.duration = {5999, 60}; // 99.98 s
    playMovie();
    movies.current->setCurrentTime({1999, 1000});
    EXPECT_EQ(player.duration(), 99);
    EXPECT_EQ(player.currentTime(), 1);
    EXPECT_EQ(player.remainingTime(), 98);
}

TEST_F(RVPlayerTest, SeeksAMovieByPercentOnlyWhileItPlays)
{
    movies.duration = {5999, 60};
    playMovie();
    player.seekToTime(50);
    const MovieTime time = movies.current->currentTime();
    EXPECT_DOUBLE_EQ(static_cast<double>(time.value) / time.scale, 49.5) << "of whole seconds";
    player.playPause();
    player.seekToTime(0);
    EXPECT_EQ(player.currentTime(), 49);
}

TEST_F(RVPlayerTest, SeeksAStreamByPercentOnlyWhileItPlays)
{
    files.file.seekAnswer = {kAudioOk, 0, true};
    playStream();
    player.playPause();
    player.seekToTime(50);
    player.playPause();
    output()->playBuffer();
    player.seekToTime(25.00001);
    ASSERT_TRUE(eventually([this] { return requests() == 2; }));
    EXPECT_EQ(exchange().requestHeader("Range"), "bytes=250000-1000000");
}

TEST_F(RVPlayerTest, AStreamOfUnknownLengthIsNotSought)
{
    web.onOpen = [](FakeHttpExchange& exchange) {
        exchange.send(FakeAudioFile::packets(packetsToPlay, packetBytes));
    };
    playStream();
    player.seekToTime(50);
    exchange().send(FakeAudioFile::packets(packetsPerBuffer, packetBytes));
    ASSERT_TRUE(eventually([this] { return output()->queuedBuffers() == 16; }));
    EXPECT_EQ(requests(), 1U);
    EXPECT_EQ(player.duration(), 0);
}

TEST_F(RVPlayerTest, CountsAStreamInWholeSeconds)
{
    web.onOpen = nullptr;
    player.playTrack(song(QStringLiteral("http://music.example/a.mp3")));
    EXPECT_EQ(player.remainingTime(), -1) << "nothing has come yet";
    ASSERT_TRUE(eventually([this] { return requests() == 1; }));
    respondAndSend(FakeAudioFile::packets(packetsToPlay, packetBytes));
    ASSERT_TRUE(eventually([this] { return player.isPlaying(); }));
    ASSERT_TRUE(allRead());
    output()->setFramesHeard(44100 * 2.75);
    EXPECT_EQ(player.duration(), 26); // 26.12
    EXPECT_EQ(player.currentTime(), 2);
    EXPECT_EQ(player.remainingTime(), 23); // 26 - 2.75
}

TEST_F(RVPlayerTest, AnswersWithoutASong)
{
    player.playPause();
    player.backTrack();
    player.seekToTime(50);
    player.setVolume(1);
    player.stop();
    EXPECT_FALSE(player.isPlaying());
    EXPECT_FALSE(player.hasMedia());
    EXPECT_EQ(player.currentTime(), 0);
    EXPECT_EQ(player.duration(), 0);
    EXPECT_EQ(player.remainingTime(), -1);
}

TEST_F(RVPlayerTest, AMovieWithoutDurationStopsThePlayerFromWithinItsTimer)
{
    movies.duration = {0, 60};
    playMovie();
    const LogCapture log;
    controller.onUpdate = [this] { EXPECT_EQ(player.remainingTime(), 0); };
    ASSERT_TRUE(eventually([this] { return !player.hasMedia(); }));
    EXPECT_EQ(log.count(QStringLiteral("div by zero crash ahead! cancelling...")), 1);
    EXPECT_EQ(player.progressUpdateTimer(), nullptr);
}

TEST_F(RVPlayerTest, TheNextSongMayBeginFromWithinAnEnd)
{
    playMovie();
    controller.onEnd = [this] { playStream(); };
    movies.current->reachEnd();
    EXPECT_EQ(controller.ended.size(), 1);
    EXPECT_TRUE(player.isStreaming());

    controller.onState = [this](AudioStreamer& ended) {
        if (ended.isIdle())
            playMovie();
    };
    exchange().fail();
    ASSERT_TRUE(eventually([this] { return player.qtMovie() != nullptr; }));
    EXPECT_EQ(web.runLoopsAlive(), 0);
}

} // namespace
} // namespace zib
