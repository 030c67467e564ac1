// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/ITunesImporter.h"

#include "library/RVDataManager.h"
#include "records/PropertyList.h"
#include "records/RecordFields.h"
#include "services/utilities/PathUtilities.h"
#include "services/utilities/StringUtilities.h"

#include <QFile>
#include <QLoggingCategory>

#include <array>
#include <utility>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.library.itunes")

constexpr qint64 largestLibrary = qint64(2) << 30; // bytes; a hundred times what people have
constexpr std::size_t batchSize = 512;
constexpr qsizetype idLength = 16; // hexadecimal digits

tl::expected<QByteArray, QString> readAll(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return tl::unexpected(file.errorString());
    if (file.size() > largestLibrary)
        return tl::unexpected(QStringLiteral("too large"));
    return file.readAll();
}

/// The first of the libraries that iTunes noted, newest first, whose file is there.
QString recentDatabase()
{
    static const RecordKey databases = RecordKey::named(u"iTunesRecentDatabases");
    const auto bytes =
        readAll(stringByExpandingTildeInPath(QStringLiteral("~/Library/Preferences/com.apple.iApps.plist")));
    const auto preferences =
        bytes ? readPropertyList(*bytes) : tl::expected<PropertyValue, QString>(PropertyValue());
    const auto* dictionary = preferences ? preferences->get<Record>() : nullptr;
    if (dictionary == nullptr)
        return {};
    const QStringList addresses = dictionary->strings(databases);
    for (const QString& address : addresses) {
        if (const QString path = pathOfFileUrl(address); !path.isEmpty() && QFile::exists(path))
            return path;
    }
    return {};
}

class TrackReader {
  public:
    /// Our record of a song; none for a podcast, for a film, and for what has no place to be played from.
    Record read(const Record& theirs)
    {
        const QString location = theirs.string(keys::Location);
        if (theirs.contains(podcast_) || theirs.contains(movie_) || location.isEmpty())
            return {};
        for (const RecordKey key : {keys::Name, keys::Artist, keys::Album, keys::Genre})
            if (const QString text = theirs.string(key); !text.isEmpty())
                builder_.add(key, text);
        builder_.addInteger(keys::Duration, theirs.integer(totalTime_) / 1000);
        if (theirs.contains(keys::PlayCount))
            builder_.addInteger(keys::PlayCount, theirs.integer(keys::PlayCount));
        if (const QDateTime played = theirs.date(playDateUtc_); isWritable(played))
            builder_.add(keys::PlayDate, played);
        builder_.addBoolean(keys::ITunes, true);
        builder_.add(keys::Location, location);
        builder_.add(keys::Id, md5HexDigest(location).left(idLength));
        return Record::make(builder_.build());
    }

  private:
    /// A date that no property list can hold would keep the library from ever being saved again.
    static bool isWritable(const QDateTime& date)
    {
        return date.isValid() && date.date().year() >= 1 && date.date().year() <= 9999;
    }

    const RecordKey podcast_ = RecordKey::named(u"Podcast");
    const RecordKey movie_ = RecordKey::named(u"Movie");
    const RecordKey totalTime_ = RecordKey::named(u"Total Time");
    const RecordKey playDateUtc_ = RecordKey::named(u"Play Date UTC");
    RecordBuilder builder_;
};

} // namespace

ITunesImporter::ITunesImporter(RVDataManager& dataManager)
    : dataManager_(dataManager)
{
    connect(&thread_, &ImportThread::delivered, this, [this](const ImportThread::Songs& songs, int total) {
        for (const ImportedSong& song : songs)
            dataManager_.library().insert(song.record.utf8(keys::Id), song.record);
        added_ += int(songs.size());
        Q_EMIT progressed(added_, total);
    });
    connect(&thread_, &ImportThread::finished, this, [this] {
        dataManager_.reloadData();
        dataManager_.saveLibrary();
        Q_EMIT finished(std::exchange(added_, 0), found_);
    });
}

QString ITunesImporter::iTunesLibraryPath()
{
    if (const QString recent = recentDatabase(); !recent.isEmpty())
        return recent;
    const QString standard =
        stringByExpandingTildeInPath(QStringLiteral("~/Music/iTunes/iTunes Music Library.xml"));
    if (QFile::exists(standard))
        return standard;
    qCWarning(log, "No iTunes music library found!");
    return {};
}

void ITunesImporter::mergeLibraryWithITunesLibrary()
{
    if (isRunning())
        return;
    found_ = false;
    thread_.start([this, path = iTunesLibraryPath()](ImportThread::Sink& sink) {
        if (!path.isEmpty())
            readLibrary(sink, path);
    });
    Q_EMIT started();
}

void ITunesImporter::readLibrary(ImportThread::Sink& sink, const QString& path)
{
    const auto bytes = readAll(path);
    const auto library = bytes ? readPropertyListWithTable(*bytes, keys::Tracks)
                               : tl::expected<TableDocument, QString>(tl::unexpected(bytes.error()));
    if (!library) {
        qCWarning(log, "%s cannot be read: %s", qUtf8Printable(path), qUtf8Printable(library.error()));
        return;
    }
    found_ = true;
    TrackReader reader;
    ImportThread::Songs songs;
    const int total = int(library->table.size());
    library->table.forEach([&](std::string_view, const Record& theirs) {
        Record track = sink.stopRequested() ? Record() : reader.read(theirs);
        if (track.isNull())
            return;
        songs.push_back({{}, std::move(track)});
        if (songs.size() == batchSize)
            sink.deliver(std::exchange(songs, {}), total);
    });
    sink.deliver(std::move(songs), total);
}

void ITunesImporter::removeITunesItemsFromLibrary()
{
    const QList<Record> tracks = dataManager_.library().records();
    for (const Record& track : tracks)
        if (track.boolean(keys::ITunes))
            dataManager_.library().remove(track.utf8(keys::Id));
    dataManager_.reloadData();
    dataManager_.saveLibrary();
}

} // namespace zib
