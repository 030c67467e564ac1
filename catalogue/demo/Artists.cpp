// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Artists.h"

#include "catalogue/demo/ArtistTable.h"
#include "catalogue/demo/Texts.h"

#include <QCryptographicHash>

#include <algorithm>

namespace zib::demo {
namespace {

QString text(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
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

TrackPlan planOf(const ArtistEntry& artist, const AlbumEntry& album, int number, const ArtistTexts& texts)
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
        texts.portrait + QLatin1Char(' ') +
        aboutTrack(plan.track.title, number, static_cast<int>(album.songs.size()), plan.album, plan.year);
    plan.track.lyrics = texts.lyrics.value(plan.track.title);
    plan.track.extension = kind.extension;
    plan.track.mediaType = kind.mediaType;
    plan.coverId = digest({QStringLiteral("demo cover"), plan.artist, plan.album});
    plan.commission.songSeed = seedOf(plan.track.id);
    plan.commission.artistSeed = seedOf(digest({QStringLiteral("demo artist"), plan.artist}));
    return plan;
}

/// A digest in the form of a UUID.
QString uuid(const QString& digest)
{
    return QStringList{digest.mid(0, 8), digest.mid(8, 4), digest.mid(12, 4), digest.mid(16, 4),
                       digest.mid(20)}
        .join(QLatin1Char('-'));
}

DemoAlbum albumOf(const AlbumEntry& entry, const QString& artist, const ArtistTexts& texts)
{
    DemoAlbum album;
    album.title = text(entry.title);
    album.year = entry.year;
    album.id = uuid(digest({QStringLiteral("demo album"), artist, album.title}));
    album.label = texts.label;
    album.country = texts.country;
    const AlbumTexts told = texts.albums.value(album.title);
    album.released = told.released;
    album.about = told.about;
    return album;
}

DemoPlan build()
{
    DemoPlan plan;
    for (const ArtistEntry& entry : artistTable()) {
        DemoArtist artist;
        artist.name = text(entry.name);
        const ArtistTexts texts = artistTexts().value(artist.name);
        artist.biography = texts.biography;
        artist.articles = texts.articles;
        for (const std::string_view tag : entry.tags)
            artist.tags.append(text(tag));
        artist.hotness = entry.hotness;
        artist.familiarity = entry.familiarity;
        for (const AlbumEntry& albumEntry : entry.albums) {
            DemoAlbum album = albumOf(albumEntry, artist.name, texts);
            for (int number = 1; number <= static_cast<int>(albumEntry.songs.size()); ++number) {
                const TrackPlan track = planOf(entry, albumEntry, number, texts);
                album.tracks.append(track.track);
                plan.tracks.insert(track.track.id, track);
            }
            artist.albums.append(album);
        }
        artist.pictureId = digest({QStringLiteral("demo picture"), artist.name});
        const Sitters sitters{artist.tags, texts.members, seedOf(artist.pictureId)};
        artist.pictures = picturesOf(sitters);
        plan.sitters.insert(artist.pictureId, sitters);
        plan.artists.append(artist);
    }
    return plan;
}

} // namespace

QString digest(const QStringList& names)
{
    const QByteArray joined = names.join(QLatin1Char('\n')).toUtf8();
    return QString::fromLatin1(QCryptographicHash::hash(joined, QCryptographicHash::Md5).toHex());
}

const DemoPlan& demoPlan()
{
    static const DemoPlan plan = build();
    return plan;
}

} // namespace zib::demo
