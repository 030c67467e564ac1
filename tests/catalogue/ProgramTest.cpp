// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts a program that outlives its parent, that cannot be told to stop, or that a music file brings down.
#include "catalogue/CoverProcess.h"
#include "catalogue/HttpServer.h"
#include "catalogue/TagProcess.h"
#include "tests/catalogue/RawClient.h"
#include "tests/catalogue/WavFile.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <thread>

#include <fcntl.h>

namespace zib {
namespace {

using namespace Qt::StringLiterals;

constexpr int patience = 60000;

class ProgramTest : public testing::Test {
  protected:
    ~ProgramTest() override
    {
        program_.kill();
        program_.waitForFinished(patience);
    }

    void start(const QStringList& arguments)
    {
        program_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program_.start(QStringLiteral(ZIB_CATALOGUE),
                       QStringList{u"serve"_s, u"--data"_s, folder_.filePath(u"data"_s)} + arguments);
        ASSERT_TRUE(program_.waitForStarted(patience));
    }

    /// The port in the line that says it listens.
    quint16 port()
    {
        while (!program_.canReadLine() && program_.waitForReadyRead(patience)) {
        }
        static const QRegularExpression line(u"\\Alistening http://127\\.0\\.0\\.1:(\\d+)\\n\\z"_s);
        return line.match(QString::fromLatin1(program_.readLine())).captured(1).toUShort();
    }

    static RawReply get(quint16 port, const QByteArray& target)
    {
        RawClient client(port);
        client.send("GET " + target + " HTTP/1.1\r\nHost: localhost\r\n\r\n");
        return client.reply();
    }

    void expectGoodEnd()
    {
        EXPECT_TRUE(program_.waitForFinished(patience));
        EXPECT_EQ(program_.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program_.exitCode(), 0);
    }

    QTemporaryDir folder_;
    QProcess program_;
};

TEST_F(ProgramTest, FindsDemoSongsAndOwnSongs)
{
    QFile song(folder_.filePath(u"Own Song.wav"_s));
    ASSERT_TRUE(song.open(QIODevice::WriteOnly));
    song.write(wavFile(2));
    song.close();
    start({u"--port"_s, u"0"_s, u"--music"_s, folder_.path()});
    const auto port = this->port();
    ASSERT_NE(port, 0);
    EXPECT_GE(get(port, "/api/v4/artist/top_hottt?api_key=K&results=100").body.count("<artist>"), 24);

    const QByteArray search = "/api/v4/artist/search?api_key=K&bucket=audio&name=unknown+artist";
    QByteArray found;
    for (int i = 0; i < 600 && !found.contains("<url>"); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        found = get(port, search).body;
    }
    const auto address = found.indexOf("/audio/");
    ASSERT_GT(address, 0) << found.constData();
    EXPECT_EQ(get(port, found.mid(address, found.indexOf("</url>") - address)).body, wavFile(2));
    // A picture within a file, which another process takes out.
    EXPECT_EQ(QProcess::execute(u"ffmpeg"_s,
                                {u"-v"_s, u"error"_s, u"-i"_s, song.fileName(), u"-f"_s, u"lavfi"_s, u"-i"_s,
                                 u"color=s=16x16:d=1"_s, u"-map"_s, u"0:a"_s, u"-map"_s, u"1:v"_s,
                                 u"-frames:v"_s, u"1"_s, u"-c:v"_s, u"png"_s, u"-disposition:v"_s,
                                 u"attached_pic"_s, folder_.filePath(u"pictured.mp3"_s)}),
              0);
    const CoverProcess covers(QStringLiteral(ZIB_CATALOGUE));
    EXPECT_TRUE(covers.read(QFile::encodeName(folder_.filePath(u"pictured.mp3"_s))).startsWith("\x89PNG"));
    EXPECT_TRUE(covers.read(QFile::encodeName(song.fileName())).isEmpty());
    EXPECT_TRUE(get(port, "/2.0/?method=track.getinfo&api_key=K&artist=unknown+artist&track=own+song")
                    .body.contains("<name>Own Song</name>"));
    program_.terminate();
    expectGoodEnd();
}

TEST_F(ProgramTest, EndsWithItsParent)
{
    start({u"--port"_s, u"0"_s, u"--until-stdin-closes"_s});
    ASSERT_NE(port(), 0);
    program_.write("ignored\n");
    program_.closeWriteChannel();
    expectGoodEnd();
}

TEST_F(ProgramTest, TakesOverAListeningSocket)
{
    const auto socket = ListeningSocket::open(u"127.0.0.1"_s, 0);
    ASSERT_TRUE(socket);
    const int inherited = ::fcntl(socket->descriptor(), F_DUPFD, 100); // not closed in the child
    RawClient early(socket->port()); // a client may come before the program answers
    ASSERT_TRUE(early.send("GET /health HTTP/1.1\r\nHost: localhost\r\n\r\n"));
    start({u"--listen-fd"_s, QString::number(inherited)});
    ::close(inherited);
    EXPECT_EQ(early.reply().body, "ok\n");
    EXPECT_EQ(port(), socket->port());
    program_.terminate();
    expectGoodEnd();
}

TEST_F(ProgramTest, SaysWhatIsWrong)
{
    const auto taken = ListeningSocket::open(u"127.0.0.1"_s, 0);
    const QString takenPort = QString::number(taken->port());
    const QList<std::pair<QStringList, int>> cases{
        {{u"--port"_s, u"65536"_s}, 2},
        {{u"--port"_s, u"-1"_s}, 2},
        {{u"--nonsense"_s}, 2},
        {{u"--music"_s, u"/no/such/folder"_s}, 2},
        {{u"more"_s}, 2},
        {{u"--bind"_s, u"example.org"_s}, 1},
        {{u"--port"_s, takenPort}, 1},
        {{u"--listen-fd"_s, u"0"_s}, 1},
        {{u"--data"_s, u"/dev/null/x"_s}, 1},
        {{u"--version"_s}, 0},
        {{u"--help"_s}, 0},
    };
    for (const auto& [arguments, code] : cases) {
        QProcess program;
        program.start(QStringLiteral(ZIB_CATALOGUE),
                      QStringList{u"serve"_s, u"--data"_s, folder_.filePath(u"data"_s)} + arguments);
        ASSERT_TRUE(program.waitForFinished(patience));
        const auto name = arguments.join(u' ').toStdString();
        EXPECT_EQ(program.exitCode(), code) << name;
        EXPECT_EQ(program.readAllStandardError().isEmpty(), code == 0) << name;
        EXPECT_EQ(program.readAllStandardOutput().isEmpty(), code != 0) << name;
    }
}

TEST_F(ProgramTest, SurvivesTheTagsOfCraftedFiles)
{
    const auto write = [this](const QString& name, const QByteArray& bytes) {
        QFile file(folder_.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return QFile::encodeName(file.fileName());
    };
    TagProcess reader(QStringLiteral(ZIB_CATALOGUE));
    const auto good = write(u"good.wav"_s, wavFile(4));
    ASSERT_TRUE(reader.read(good));
    EXPECT_EQ(reader.read(good)->seconds, 4);
    // An atom that announces a gigabyte, in a sparse file that seems to hold it.
    QFile huge(folder_.filePath(u"huge.m4a"_s));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly));
    const QByteArray atom("\x40\x00\x00\x00", 4);
    huge.write(QByteArray("\0\0\0\x10"
                          "ftypM4A \0\0\0\0",
                          16) +
               atom + "moov" + atom + "udta" + atom + "meta" + QByteArray(4, '\0') + atom + "ilst" + atom +
               "\xa9nam" + atom + "data");
    ASSERT_TRUE(huge.resize(qint64(3) << 30));
    huge.close();
    reader.read(QFile::encodeName(huge.fileName())); // whatever comes of it
    reader.read(write(u"noise.mp3"_s, QByteArray("\xff\xfb\x90\x64").repeated(10000)));
    EXPECT_FALSE(reader.read(write(u"text.mp3"_s, "no song")));
    EXPECT_FALSE(reader.read("/no/such/file.mp3"));
    EXPECT_TRUE(reader.read(good));
    EXPECT_FALSE(TagProcess(u"/no/such/program"_s).read(good));
}

} // namespace
} // namespace zib
