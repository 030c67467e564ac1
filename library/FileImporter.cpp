// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/FileImporter.h"

#include "library/FileWalk.h"
#include "library/RVDataManager.h"
#include "library/SongFiles.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "records/PropertyValue.h"
#include "services/utilities/PathUtilities.h"
#include "services/utilities/StringUtilities.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLoggingCategory>

#include <algorithm>
#include <utility>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.library.import")

constexpr qsizetype idLength = 16;       // hexadecimal digits
constexpr qint64 longestSilenceMs = 100; // large files take their time to copy

Record recordOf(const FileWalk::File& file)
{
    const FileAttributes& attributes = file.attributes;
    Record track = Record::make({{keys::Location, file.path}});
    const auto text = [&track](RecordKey key, const QString& value) {
        if (!value.isEmpty())
            track.set(key, value);
    };
    text(keys::Artist, attributes.authors.value(0));
    text(keys::Album, attributes.album);
    text(keys::Name, attributes.title);
    text(keys::Genre, attributes.musicalGenre);
    if (attributes.recordingYear)
        track.set(keys::Year, *attributes.recordingYear);
    if (attributes.durationSeconds)
        track.set(keys::Duration, qint64(*attributes.durationSeconds));
    if (attributes.audioTrackNumber)
        track.set(keys::Position, *attributes.audioTrackNumber);
    return track;
}

ImportedSong imported(const FileWalk::File& file, const UserDefaults& defaults)
{
    if (file.attributes.mediaTypes.isEmpty())
        return {file.path, {}};
    Record track = recordOf(file);
    QString path = file.path;
    if (defaults.boolean(settings::CopyImportedFilesToLibrary)) {
        const SongFiles files(defaults);
        path = files.paths().filePath(track);
        // The song's place is its place whether or not the copy succeeds: a file that is there stays.
        if (const auto copied = files.copy(file.path, track); !copied)
            qCInfo(log).noquote() << copied.error();
    }
    track.set(keys::Location, fileUrlString(path));
    track.set(keys::Id, md5HexDigest(path).left(idLength));
    return {file.path, track};
}

/// How many files there are, for the eye that waits. What happens on the disk meanwhile may make it wrong.
int countFiles(ImportThread::Sink& sink, const QStringList& paths)
{
    int count = 0;
    for (const QString& path : paths) {
        if (!QFileInfo(path).isDir()) {
            ++count;
            continue;
        }
        QDirIterator entries(path, QDir::Files | QDir::Hidden | QDir::System,
                             QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
        for (; entries.hasNext() && !sink.stopRequested(); entries.next())
            ++count;
    }
    return count;
}

void importFiles(ImportThread::Sink& sink, FileMetadata& metadata, const UserDefaults& defaults,
                 const QStringList& paths)
{
    const int expected = countFiles(sink, paths);
    FileWalk walk(metadata, paths);
    int done = 0;
    for (QList<FileWalk::File> files; !sink.stopRequested() && !(files = walk.next()).isEmpty();) {
        const int total = std::max(expected, done + int(files.size()));
        ImportThread::Songs songs;
        QElapsedTimer sinceDelivery;
        sinceDelivery.start();
        for (const FileWalk::File& file : std::as_const(files)) {
            if (sink.stopRequested())
                break;
            songs.push_back(imported(file, defaults));
            if (sinceDelivery.elapsed() > longestSilenceMs) {
                sink.deliver(std::exchange(songs, {}), total);
                sinceDelivery.restart();
            }
        }
        done += int(files.size());
        sink.deliver(std::move(songs), total);
    }
    metadata.release();
}

} // namespace

FileImporter::FileImporter(RVDataManager& dataManager, FileMetadata& metadata, const UserDefaults& defaults)
    : dataManager_(dataManager)
    , metadata_(metadata)
    , defaults_(defaults)
{
    connect(&thread_, &ImportThread::delivered, this, &FileImporter::store);
    connect(&thread_, &ImportThread::finished, this, [this] {
        if (!waiting_.isEmpty())
            startNext();
        else
            Q_EMIT finished(std::exchange(added_, 0));
    });
}

void FileImporter::addFiles(const QStringList& paths)
{
    waiting_.append(paths);
    if (!isRunning())
        startNext();
}

void FileImporter::startNext()
{
    done_ = 0;
    thread_.start([this, paths = std::exchange(waiting_, {})](ImportThread::Sink& sink) {
        importFiles(sink, metadata_, defaults_, paths);
    });
}

void FileImporter::stop()
{
    waiting_.clear();
    thread_.stop();
}

void FileImporter::stopNow()
{
    waiting_.clear();
    thread_.stopNow();
}

void FileImporter::store(const ImportThread::Songs& songs, int total)
{
    for (const ImportedSong& song : songs) {
        if (song.record.isNull()) {
            qCInfo(log, "No media types, skipping %s", qUtf8Printable(song.path));
            continue;
        }
        Q_EMIT adding(song.path);
        dataManager_.library().insert(song.record.utf8(keys::Id), song.record);
        ++added_;
        Q_EMIT stored(song.path, song.record);
    }
    done_ += int(songs.size());
    Q_EMIT progressed(done_, total);
}

} // namespace zib
