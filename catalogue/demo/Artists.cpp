// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Artists.h"

#include "catalogue/demo/ArtistTable.h"
#include "catalogue/demo/Prose.h"

#include <QCryptographicHash>

#include <algorithm>

namespace zib::demo {
namespace {

QString text(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString digest(const QStringList& names)
{
    const QByteArray joined = names.join(QLatin1Char('\n')).toUtf8();
    return QString::fromLatin1(QCryptographicHash::hash(joined, QCryptographicHash::Md5).toHex());
}

std::uint64_t seedOf(const QString& id)
{
    return id.left(16).toULongLong(nullptr, 16);
}

struct FileKind {
    QLatin1String extension;
    QLatin1String mediaType;
};

FileKind kindOf(Encoding encoding)
{
    switch (encoding) {
    case Encoding::M4a:
        return {QLatin1String("m4a"), QLatin1String("audio/mp4")};
    case Encoding::Adts:
        return {QLatin1String("aac"), QLatin1String("audio/aac")};
    case Encoding::Wav:
        return {QLatin1String("wav"), QLatin1String("audio/wav")};
    default:
        return {QLatin1String("mp3"), QLatin1String("audio/mpeg")};
    }
}

TrackPlan planOf(const ArtistEntry& artist, const AlbumEntry& album, int number)
{
    const SongEntry& song = album.songs.at(static_cast<std::size_t>(number - 1));
    const FileKind kind = kindOf(song.encoding);
    // The last song of an album goes where the artist's second tag points.
    const bool aside = number == static_cast<int>(album.songs.size()) && artist.tags.size() > 1;
    TrackPlan plan;
    plan.artist = text(artist.name);
    plan.album = text(album.title);
    plan.year = album.year;
    plan.number = number;
    plan.encoding = song.encoding;
    for (const std::string_view tag : artist.tags)
        plan.tags.append(text(tag));
    plan.commission.tag = artist.tags.at(aside ? 1 : 0);
    plan.genre = text(plan.commission.tag);
    plan.commission.seconds = song.seconds;
    plan.track.id = digest({QStringLiteral("demo track"), plan.artist, plan.album, text(song.title)});
    plan.track.title = text(song.title);
    plan.track.seconds = song.seconds;
    plan.track.about =
        aboutArtist(plan.artist) + QLatin1Char(' ') +
        aboutTrack(plan.track.title, number, static_cast<int>(album.songs.size()), plan.album, plan.year);
    plan.track.extension = kind.extension;
    plan.track.mediaType = kind.mediaType;
    plan.coverId = digest({QStringLiteral("demo cover"), plan.artist, plan.album});
    plan.commission.songSeed = seedOf(plan.track.id);
    plan.commission.artistSeed = seedOf(digest({QStringLiteral("demo artist"), plan.artist}));
    return plan;
}

DemoPlan build()
{
    DemoPlan plan;
    for (const ArtistEntry& entry : artistTable()) {
        DemoArtist artist;
        artist.name = text(entry.name);
        for (const std::string_view tag : entry.tags)
            artist.tags.append(text(tag));
        artist.hotness = entry.hotness;
        artist.familiarity = entry.familiarity;
        for (const AlbumEntry& albumEntry : entry.albums) {
            DemoAlbum album;
            album.title = text(albumEntry.title);
            album.year = albumEntry.year;
            for (int number = 1; number <= static_cast<int>(albumEntry.songs.size()); ++number) {
                const TrackPlan track = planOf(entry, albumEntry, number);
                album.tracks.append(track.track);
                plan.tracks.insert(track.track.id, track);
            }
            artist.albums.append(album);
        }
        artist.pictureId = digest({QStringLiteral("demo picture"), artist.name});
        const Sitters sitters{artist.tags, 1, seedOf(artist.pictureId)};
        artist.pictures = picturesOf(sitters);
        plan.sitters.insert(artist.pictureId, sitters);
        plan.artists.append(artist);
    }
    return plan;
}

} // namespace

const DemoPlan& demoPlan()
{
    static const DemoPlan plan = build();
    return plan;
}

} // namespace zib::demo
