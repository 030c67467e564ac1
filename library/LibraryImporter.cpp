// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibraryImporter.h"

#include "library/RVDataManager.h"
#include "records/PropertyValue.h"
#include "records/RecordFields.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSet>
#include <QUrl>

#include <algorithm>
#include <span>
#include <utility>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.library.import")

constexpr qint64 largestLibrary = qint64(1) << 30; // bytes; a million songs
constexpr std::size_t longestId = 64;

constexpr RecordKey textKeys[] = {keys::Name, keys::Artist, keys::Album, keys::Genre, keys::Info};
constexpr RecordKey wholeKeys[] = {keys::Year, keys::Duration, keys::Position, keys::PlayCount};
constexpr RecordKey realKeys[] = {keys::Hotness, keys::Familiarity};
constexpr RecordKey dateKeys[] = {keys::FoundDate, keys::PlayDate};
constexpr RecordKey flagKeys[] = {keys::Favorite, keys::Downloaded, keys::BrokenLink, keys::ITunes};
constexpr RecordKey playlistTextKeys[] = {keys::Name, keys::SharedName, keys::SharedNameAsked,
                                          keys::Description, keys::Tags};

bool isPlace(const QString& location)
{
    const QUrl url(location);
    return url.isLocalFile() ||
           ((url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https")) &&
            !url.host().isEmpty());
}

bool isWritable(const QDateTime& date)
{
    return date.isValid() && date.date().year() >= 1 && date.date().year() <= 9999;
}

/// No record for what is no song.
Record cleanSong(std::string_view id, const Record& theirs)
{
    const QString location = theirs.string(keys::Location);
    if (id.empty() || id.size() > longestId || !isPlace(location))
        return {};
    RecordBuilder ours;
    ours.addText(keys::Id, id);
    ours.add(keys::Location, location);
    for (const RecordKey key : textKeys)
        if (const QString text = theirs.string(key); !text.isEmpty())
            ours.add(key, text);
    for (const RecordKey key : wholeKeys)
        if (const qint64 number = theirs.integer(key); number > 0)
            ours.addInteger(key, number);
    for (const RecordKey key : realKeys)
        if (theirs.contains(key))
            ours.addReal(key, theirs.real(key));
    for (const RecordKey key : dateKeys)
        if (const QDateTime date = theirs.date(key); isWritable(date))
            ours.add(key, date);
    for (const RecordKey key : flagKeys)
        if (theirs.boolean(key))
            ours.addBoolean(key, true);
    return Record::make(ours.build());
}

Record cleanPlaylist(const Record& theirs)
{
    const qint64 id = theirs.integer(keys::Id);
    if (id <= 0 || theirs.string(keys::Name).trimmed().isEmpty())
        return {};
    Record ours =
        Record::make({{keys::Id, id}, {keys::Kind, 0}, {keys::Tracks, theirs.strings(keys::Tracks)}});
    for (const RecordKey key : playlistTextKeys)
        if (theirs.contains(key))
            ours.set(key, theirs.string(key));
    if (const qint64 shared = theirs.integer(keys::ShareId); shared > 0)
        ours.set(keys::ShareId, shared);
    return ours;
}

} // namespace

LibraryImporter::LibraryImporter(RVDataManager& dataManager)
    : dataManager_(dataManager)
{
    connect(&thread_, &ImportThread::finished, this, &LibraryImporter::merge);
}

LibraryContents LibraryImporter::cleaned(const LibraryContents& contents)
{
    LibraryContents clean;
    contents.library.forEach([&clean](std::string_view id, const Record& theirs) {
        if (const Record song = cleanSong(id, theirs))
            clean.library.insert(id, song);
    });
    for (const Record& theirs : contents.playlists)
        if (const Record playlist = cleanPlaylist(theirs))
            clean.playlists.append(playlist);
    return clean;
}

void LibraryImporter::importLibrary(const QString& path)
{
    if (isRunning())
        return;
    stopped_ = false;
    thread_.start([this, path](ImportThread::Sink& sink) {
        QFile file(path);
        if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
            contents_ = tl::unexpected(tr("The file cannot be opened."));
            return;
        }
        if (file.size() > largestLibrary) {
            contents_ = tl::unexpected(tr("The file is too large."));
            return;
        }
        const auto contents = LibraryFile::parsePlain([&file, &sink](std::span<char> target) {
            const qint64 count = sink.stopRequested() ? 0 : file.read(target.data(), qint64(target.size()));
            return std::size_t(std::max<qint64>(count, 0));
        });
        if (contents) {
            contents_ = cleaned(*contents);
        } else {
            qCWarning(log).noquote() << path << "is no library:" << contents.error();
            contents_ = tl::unexpected(tr("It is no exported library."));
        }
    });
    Q_EMIT started();
}

void LibraryImporter::stop()
{
    stopped_ = true;
    thread_.stop();
}

void LibraryImporter::merge()
{
    auto theirs = std::exchange(contents_, tl::unexpected(QString()));
    if (stopped_ || !theirs) {
        Q_EMIT failed(stopped_ ? QString() : theirs.error());
        return;
    }
    int songs = 0;
    theirs->library.forEach([this, &songs](std::string_view id, const Record& song) {
        if (dataManager_.library().contains(id))
            return;
        dataManager_.library().insert(id, song);
        ++songs;
    });
    QSet<qint64> known;
    for (const Record& playlist : std::as_const(dataManager_).playlists())
        known.insert(playlist.integer(keys::Id));
    int playlists = 0;
    for (Record playlist : std::as_const(theirs->playlists)) {
        if (known.contains(playlist.integer(keys::Id)))
            continue;
        known.insert(playlist.integer(keys::Id));
        QStringList ids = playlist.strings(keys::Tracks);
        ids.removeIf([this](const QString& id) { return !dataManager_.library().contains(id); });
        playlist.set(keys::Tracks, ids);
        dataManager_.playlists().append(playlist);
        Q_EMIT playlistAdded(playlist.string(keys::Name));
        ++playlists;
    }
    if (songs > 0 || playlists > 0) {
        dataManager_.reloadData();
        dataManager_.saveLibrary();
    }
    Q_EMIT finished(songs, playlists);
}

} // namespace zib
