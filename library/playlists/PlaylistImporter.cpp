// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/playlists/PlaylistImporter.h"

#include "library/FileImporter.h"
#include "library/RVDataManager.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace zib {

PlaylistImporter::PlaylistImporter(RVDataManager& dataManager, FileImporter& files,
                                   const UserDefaults& defaults)
    : dataManager_(dataManager)
    , files_(files)
    , defaults_(defaults)
{
    connect(&thread_, &ImportThread::finished, this, &PlaylistImporter::importFiles);
    connect(&files_, &FileImporter::stored, this, [this](const QString& path, const Record& track) {
        if (importingFiles_)
            fromFiles_.insert(path, track);
    });
    connect(&files_, &FileImporter::finished, this, [this] {
        if (importingFiles_)
            finish();
    });
}

void PlaylistImporter::importPlaylists(const QStringList& paths)
{
    waiting_.append(paths);
    if (!isRunning())
        startNext();
}

void PlaylistImporter::stopNow()
{
    waiting_.clear();
    importingFiles_ = false;
    reading_ = tl::unexpected(QString());
    const QSignalBlocker silent(thread_);
    thread_.stopNow();
    current_.clear();
}

PlaylistImporter::Reading PlaylistImporter::read(const QString& path, const RecordTable::Snapshot& library,
                                                 const UserDefaults& defaults)
{
    const QFileInfo info(path);
    const auto format = playlistFormatOf(path);
    QFile file(path);
    if (!format || !info.isFile())
        return tl::unexpected(tr("It is no playlist file."));
    if (!file.open(QIODevice::ReadOnly))
        return tl::unexpected(file.errorString());
    const QByteArray bytes = file.read(largestPlaylistFile + 1);
    const auto document = readPlaylist(
        bytes, *format, {info.absolutePath(), [](const QString& each) { return QFileInfo(each).isFile(); }});
    if (!document)
        return tl::unexpected(document.error());
    if (document->entries.isEmpty())
        return tl::unexpected(tr("It holds no songs."));
    return Found{document->title.isEmpty() ? info.completeBaseName() : document->title,
                 matchedPlaylist(document->entries, library, defaults)};
}

void PlaylistImporter::startNext()
{
    current_ = waiting_.isEmpty() ? QString() : waiting_.takeFirst();
    if (current_.isEmpty())
        return;
    thread_.start([this, path = current_, library = dataManager_.library().snapshot()](ImportThread::Sink&) {
        reading_ = read(path, library, defaults_);
    });
}

void PlaylistImporter::importFiles()
{
    if (!reading_) {
        Q_EMIT failed(current_, reading_.error());
        startNext();
        return;
    }
    QStringList files;
    for (const PlaylistMatch& match : std::as_const(reading_->matches))
        if (!match.file.isEmpty())
            files.append(match.file);
    files.removeDuplicates();
    if (files.isEmpty()) {
        finish();
        return;
    }
    Q_EMIT importingFiles();
    importingFiles_ = true;
    files_.addFiles(files);
}

void PlaylistImporter::finish()
{
    importingFiles_ = false;
    const auto fromFiles = std::exchange(fromFiles_, {});
    const Found found = *std::exchange(reading_, tl::unexpected(QString()));
    QList<Record> tracks;
    QStringList notFound;
    for (const PlaylistMatch& match : found.matches) {
        const Record song = match.song ? match.song : fromFiles.value(match.file);
        if (!song) {
            notFound.append(match.label);
            continue;
        }
        const Record known =
            dataManager_.library().find(song.utf8(keys::Id)); // it may have been edited since
        tracks.append(known ? known : song);
    }
    Q_EMIT imported(found.title, tracks, notFound);
    startNext();
}

} // namespace zib
