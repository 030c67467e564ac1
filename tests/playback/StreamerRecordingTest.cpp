// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts recordings of songs that were not heard whole, damaged ones, and ones that land outside the music
// folder.
#include "StreamerFixture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace zib {
namespace {

class StreamerRecordingTest : public StreamerFixture {
  protected:
    StreamerRecordingTest()
    {
        EXPECT_TRUE(folder.isValid());
        defaults.setValue(settings::MusicFolder, folder.filePath(QStringLiteral("music")));
        defaults.setValue(settings::RecordAudioStreams, true);
        files.file.dataOffset = 10;
        song = QByteArray(10, 'h') + FakeAudioFile::packets(6, packetBytes);
    }
    void begin()
    {
        startRequest();
        respondAndSend(song);
        exchange().end();
        ASSERT_TRUE(reaches(State::Stopping));
    }
    void playToTheEnd()
    {
        begin();
        output()->playAll();
        ASSERT_TRUE(reaches(State::Initialized));
    }
    [[nodiscard]] QByteArray
    recorded(const QString& path = QStringLiteral("music/Artist/Album/Song.mp3")) const
    {
        QFile file(folder.filePath(path));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
    QByteArray song;
};

TEST_F(StreamerRecordingTest, ASongThatWasHeardWholeIsWrittenAsItWasServed)
{
    playToTheEnd();
    EXPECT_EQ(recorded(), song);
    EXPECT_TRUE(eventually([this] { return delegate.exported.size() == 1; }));
    EXPECT_TRUE(delegate.exported.first().isSame(track));
}

TEST_F(StreamerRecordingTest, TheLibraryHearsOfItAlsoWhenTheStreamerIsGone)
{
    begin();
    const auto outputThread = output();
    outputThread->playAll();
    while (!streamer->isIdle()) // without running events
        QThread::msleep(1);
    streamer.reset();
    EXPECT_TRUE(eventually([this] { return delegate.exported.size() == 1; }));
}

TEST_F(StreamerRecordingTest, OnlyWhenTheUserAskedForIt)
{
    defaults.setValue(settings::RecordAudioStreams, false);
    playToTheEnd();
    EXPECT_FALSE(QFileInfo::exists(folder.filePath(QStringLiteral("music"))));
}

TEST_F(StreamerRecordingTest, NotWhenStoppedBeforeTheEnd)
{
    begin();
    streamer->stop();
    EXPECT_FALSE(QFileInfo::exists(folder.filePath(QStringLiteral("music"))));
    EXPECT_TRUE(delegate.exported.isEmpty());
}

TEST_F(StreamerRecordingTest, NotAfterASeekEvenOneThatDidNothing)
{
    startRequest();
    exchange().respond({});
    streamer->seekToTime(0);
    exchange().send(song);
    exchange().end();
    ASSERT_TRUE(reaches(State::Stopping));
    output()->playAll();
    ASSERT_TRUE(reaches(State::Initialized));
    EXPECT_FALSE(QFileInfo::exists(folder.filePath(QStringLiteral("music"))));
}

TEST_F(StreamerRecordingTest, AFailureIsShownInTheStatusLine)
{
    QFile inTheWay(folder.filePath(QStringLiteral("music")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const LogCapture log;
    playToTheEnd();
    EXPECT_TRUE(eventually(
        [this] { return defaults.string(settings::BriefStatusMessage) == QStringLiteral("Export failed"); }));
    EXPECT_EQ(log.count(QStringLiteral("Failed creating directory")), 1);
    EXPECT_TRUE(delegate.exported.isEmpty());
}

TEST_F(StreamerRecordingTest, ANameCannotLeaveTheMusicFolder)
{
    make();
    track = track.copy();
    track.set(keys::Name, QStringLiteral("../../../outside"));
    streamer = AudioStreamer::initWithDict(track, &delegate, ports);
    playToTheEnd();
    EXPECT_TRUE(eventually([this] { return defaults.value(settings::BriefStatusMessage).isValid(); }));
    EXPECT_EQ(recorded(QStringLiteral("outside.mp3")), QByteArray());
}

TEST_F(StreamerRecordingTest, TheSongIsNamedAsItWasWhenItBegan)
{
    begin();
    track.set(keys::Name, QStringLiteral("Renamed"));
    output()->playAll();
    ASSERT_TRUE(reaches(State::Initialized));
    EXPECT_EQ(recorded(), song);
}

} // namespace
} // namespace zib
