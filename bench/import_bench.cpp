// SPDX-License-Identifier: GPL-3.0-or-later
// 20,000 files brought into a library, from the request to the saved library file, beside a music server that
// reads the same files into its own database.
#include "bench/NoServices.h"
#include "library/FileImporter.h"
#include "library/RVDataManager.h"
#include "platform/desktop/DesktopFileMetadata.h"
#include "platform/desktop/SystemClock.h"
#include "tests/fakes/FakeLibraryView.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace zib {
namespace {

constexpr int songCount = 20'000;
constexpr int rounds = 5;
constexpr int songsOfAlbum = 20;
constexpr int albumsOfArtist = 10;
constexpr double bar = 0.8;

QByteArray bigEndian(quint32 value, int bits)
{
    QByteArray bytes;
    for (int place = 3; place >= 0; --place)
        bytes.append(char(value >> (place * bits) & ((1U << bits) - 1)));
    return bytes;
}

QByteArray textFrame(const char* id, const QByteArray& text)
{
    return QByteArray(id) + bigEndian(quint32(text.size() + 1), 8) + QByteArray(3, '\0') + text;
}

QByteArray tagOf(int number)
{
    const int album = number / songsOfAlbum;
    const QByteArray frames =
        textFrame("TIT2", "A song of some length, number " + QByteArray::number(number)) +
        textFrame("TPE1", "Artist & Friends " + QByteArray::number(album / albumsOfArtist)) +
        textFrame("TALB", "The album called " + QByteArray::number(album)) +
        textFrame("TCON", "Genre " + QByteArray::number(album % 40)) +
        textFrame("TYER", QByteArray::number(1960 + album % 60)) +
        textFrame("TRCK", QByteArray::number(number % songsOfAlbum + 1));
    return QByteArray("ID3\x03\0\0", 6) + bigEndian(quint32(frames.size()), 7) + frames;
}

/// One second of sound in so many files, each with tags of its own.
void makeSongs(const QString& folder)
{
    QProcess encoder;
    encoder.start(QStringLiteral("ffmpeg"),
                  QStringLiteral("-v error -f lavfi -i sine=duration=1 -b:a 64k -id3v2_version 0 -f mp3 -")
                      .split(QLatin1Char(' ')));
    if (!encoder.waitForFinished() || encoder.exitCode() != 0)
        qFatal("no song could be encoded");
    const QByteArray sound = encoder.readAllStandardOutput();
    for (int number = 0; number < songCount; ++number) {
        const int album = number / songsOfAlbum;
        const QString place = QStringLiteral("%1/%2/%3").arg(folder).arg(album / albumsOfArtist).arg(album);
        QDir().mkpath(place);
        QFile file(QStringLiteral("%1/%2.mp3").arg(place).arg(number));
        if (!file.open(QIODevice::WriteOnly) || file.write(tagOf(number) + sound) < sound.size())
            qFatal("no room for %d songs", songCount);
    }
}

double secondsOfOurs(const QString& songs)
{
    const QTemporaryDir folder;
    NoSettings defaults; // so the files are not copied, as the other does not copy them
    NoAlerts alerts;
    const SystemClock clock;
    FakeLibraryView view;
    RVDataManager manager(defaults, alerts, clock, view, folder.filePath(QStringLiteral("l.zib")));
    manager.setSource(SourceType::Library);
    manager.waitForSaves();
    DesktopFileMetadata metadata(QStringLiteral(ZIB_METADATA));
    FileImporter importer(manager, metadata, defaults);

    QElapsedTimer timer;
    timer.start();
    QEventLoop loop;
    QObject::connect(&importer, &FileImporter::finished, &loop, &QEventLoop::quit);
    importer.addFiles({songs});
    loop.exec();
    manager.reloadData();
    manager.saveLibrary();
    manager.waitForSaves();
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    if (manager.items().size() != songCount)
        qFatal("%lld songs were imported", static_cast<long long>(manager.items().size()));
    return seconds;
}

/// The music server, with a database of its own that begins empty.
class MusicServer {
  public:
    explicit MusicServer(const QString& songs)
    {
        const QString music = folder_.filePath(QStringLiteral("music"));
        const QString address = folder_.filePath(QStringLiteral("socket"));
        QDir().mkdir(music);
        write(QStringLiteral(
                  "music_directory \"%1\"\ndb_file \"%2\"\nbind_to_address \"%3\"\nauto_update \"no\"\n"
                  "audio_output {\n type \"null\"\n name \"null\"\n}\n")
                  .arg(music, folder_.filePath(QStringLiteral("database")), address));
        server_.setProcessChannelMode(QProcess::MergedChannels);
        server_.start(QStringLiteral("mpd"),
                      {QStringLiteral("--no-daemon"), folder_.filePath(QStringLiteral("conf"))});
        server_.waitForStarted();
        for (int attempt = 0; attempt < 1000 && socket_.state() != QLocalSocket::ConnectedState; ++attempt) {
            socket_.connectToServer(address);
            if (!socket_.waitForConnected(100))
                QThread::msleep(10);
        }
        if (!answer().startsWith("OK MPD"))
            qFatal("no music server: %s", server_.readAll().constData());
        waitForUpdate(); // of the empty folder
        QFile::link(songs, music + QStringLiteral("/songs"));
    }
    ~MusicServer()
    {
        server_.kill();
        server_.waitForFinished();
    }

    double secondsOfUpdate()
    {
        QElapsedTimer timer;
        timer.start();
        ask("update");
        waitForUpdate();
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        if (!ask("stats").contains("\nsongs: " + QByteArray::number(songCount) + '\n'))
            qFatal("the music server has other songs");
        return seconds;
    }

  private:
    void write(const QString& configuration) const
    {
        QFile file(folder_.filePath(QStringLiteral("conf")));
        if (!file.open(QIODevice::WriteOnly) || file.write(configuration.toUtf8()) < 0)
            qFatal("no configuration");
    }
    QByteArray answer()
    {
        QByteArray answer;
        while (!answer.startsWith("OK MPD") && !answer.endsWith("OK\n")) {
            if (!socket_.waitForReadyRead(60'000))
                qFatal("the music server is silent");
            answer += socket_.readAll();
        }
        return answer;
    }
    QByteArray ask(const char* command)
    {
        socket_.write(QByteArray(command) + '\n');
        return answer();
    }
    void waitForUpdate()
    {
        while (ask("status").contains("updating_db"))
            QThread::msleep(5);
    }

    QTemporaryDir folder_;
    QProcess server_;
    QLocalSocket socket_;
};

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

bool benchImport()
{
    const QTemporaryDir folder;
    const QString songs = folder.filePath(QStringLiteral("songs"));
    makeSongs(songs);
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = 0; round <= rounds; ++round) {
        theirs.push_back(MusicServer(songs).secondsOfUpdate());
        ours.push_back(secondsOfOurs(songs));
        if (round == 0) { // which has read all files into the system's memory
            ours.clear();
            theirs.clear();
        }
    }
    std::fprintf(stderr, "import-20k: ours %.2f s, mpd %.2f s\n", median(ours), median(theirs));
    const double ratio = median(ours) / median(theirs);
    std::printf("bench import-20k %.3f %.1f mpd updating its empty database with the same files\n", ratio,
                bar);
    return ratio <= bar;
}

} // namespace
} // namespace zib

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QByteArray wanted(argc > 1 ? argv[1] : "import-20k");
    if (wanted == "--list")
        std::puts("import-20k");
    else if (wanted == "import-20k")
        return zib::benchImport() ? 0 : 1;
    return 0;
}
