// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/playlists/PlaylistMatching.h"

#include "library/SongTextFilter.h"
#include "records/PropertyValue.h"
#include "records/RecordFields.h"
#include "services/utilities/PathUtilities.h"
#include "services/utilities/SongPaths.h"
#include "services/utilities/StringUtilities.h"

#include <QFileInfo>
#include <QUrl>

#include <string>
#include <unordered_map>

namespace zib {
namespace {

constexpr qsizetype idLength = 16; // hexadecimal digits

std::string folded(std::string_view artist, std::string_view name)
{
    std::string key;
    if (artist.empty() || name.empty())
        return key;
    appendFolded(key, artist);
    key += '\n';
    appendFolded(key, name);
    return key;
}

std::string namesOf(const PlaylistEntry& entry)
{
    return folded(entry.artist.toStdString(), entry.name.toStdString());
}

/// Songs of the library by what a playlist asks for: nothing is remembered of all the others.
class WantedSongs {
  public:
    void want(const std::string& key)
    {
        if (!key.empty())
            songs_.try_emplace(key);
    }
    void offer(const std::string& key, const Record& song)
    {
        const auto wanted = songs_.find(key);
        if (wanted != songs_.end() && wanted->second.isNull())
            wanted->second = song;
    }
    [[nodiscard]] Record find(const std::string& key) const
    {
        const auto found = songs_.find(key);
        return found != songs_.end() ? found->second : Record();
    }

  private:
    std::unordered_map<std::string, Record> songs_;
};

/// A location in the one form that files have here.
std::string placeKey(const QString& location)
{
    const QString path = pathOfFileUrl(location);
    return path.isEmpty() ? location.toStdString() : fileUrlString(path).toStdString();
}

/// The song of a web address that the library does not know.
Record webSong(const PlaylistEntry& entry)
{
    Record song = Record::make({{keys::Location, entry.location}});
    song.set(keys::Id, entry.id.isEmpty() ? md5HexDigest(entry.location).left(idLength) : entry.id);
    const QString fileName = lastPathComponent(QUrl(entry.location).path());
    const QString name = !entry.name.isEmpty() ? entry.name : stringByDeletingPathExtension(fileName);
    song.set(keys::Name, name.isEmpty() ? entry.location : name);
    if (!entry.artist.isEmpty())
        song.set(keys::Artist, entry.artist);
    if (!entry.album.isEmpty())
        song.set(keys::Album, entry.album);
    if (entry.durationSeconds > 0)
        song.set(keys::Duration, entry.durationSeconds);
    return song;
}

QString labelOf(const PlaylistEntry& entry)
{
    if (!entry.name.isEmpty())
        return entry.artist.isEmpty() ? entry.name : entry.artist + QStringLiteral(" – ") + entry.name;
    const QString path = pathOfFileUrl(entry.location);
    return path.isEmpty() ? entry.location : path;
}

} // namespace

QList<PlaylistMatch> matchedPlaylist(const QList<PlaylistEntry>& entries,
                                     const RecordTable::Snapshot& library, const UserDefaults& defaults)
{
    WantedSongs places;
    WantedSongs ids;
    WantedSongs names;
    for (const PlaylistEntry& entry : entries) {
        places.want(placeKey(entry.location));
        ids.want(entry.id.toStdString());
        names.want(namesOf(entry));
    }
    const SongPaths paths(defaults);
    library.forEach([&](std::string_view id, const Record& song) {
        const RecordFields fields = song.fields();
        places.offer(placeKey(QString::fromUtf8(fields.text(keys::Location))), song);
        if (const std::size_t downloaded = fields.find(keys::Downloaded); downloaded != RecordFields::absent)
            places.offer(fileUrlString(paths.filePath(Record::make(fields))).toStdString(), song);
        ids.offer(std::string(id), song);
        names.offer(folded(fields.text(keys::Artist), fields.text(keys::Name)), song);
    });
    QList<PlaylistMatch> matches;
    matches.reserve(entries.size());
    for (const PlaylistEntry& entry : entries) {
        PlaylistMatch match{places.find(placeKey(entry.location)), {}, labelOf(entry)};
        if (!match.song)
            match.song = ids.find(entry.id.toStdString());
        if (!match.song)
            match.song = names.find(namesOf(entry));
        const QString path = pathOfFileUrl(entry.location);
        if (!match.song && !path.isEmpty() && QFileInfo(path).isFile())
            match.file = path;
        else if (!match.song && !entry.location.isEmpty() && path.isEmpty())
            match.song = webSong(entry);
        matches.append(match);
    }
    return matches;
}

PlaylistEntry playlistEntryOf(const Record& track, const UserDefaults& defaults)
{
    PlaylistEntry entry;
    entry.id = track.string(keys::Id);
    entry.name = track.string(keys::Name);
    entry.artist = track.string(keys::Artist);
    entry.album = track.string(keys::Album);
    entry.durationSeconds = track.integer(keys::Duration);
    entry.location = track.string(keys::Location);
    const QString file = track.boolean(keys::Downloaded) ? SongPaths(defaults).filePath(track) : QString();
    if (!file.isEmpty() && QFileInfo(file).isFile())
        entry.location = fileUrlString(file);
    return entry;
}

} // namespace zib
