// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/AlbumCatalogue.h"

#include "catalogue/TextMatching.h"

#include <QHash>

#include <algorithm>

namespace zib {

namespace {

constexpr int mostSongs =
    5000; ///< of one artist or release, so that a large library cannot make a reply without end

CatalogueAlbum demoAlbum(const MusicCatalogue& catalogue, const QString& artist, const DemoAlbum& album)
{
    CatalogueAlbum told{album.id,
                        artist,
                        album.title,
                        QStringLiteral("Album"),
                        album.released.toString(Qt::ISODate),
                        album.country,
                        album.label,
                        album.about,
                        {}};
    if (told.date.isEmpty())
        told.date = QString::number(album.year);
    for (const auto& track : album.tracks)
        if (const auto song = catalogue.song(track.id))
            told.songs.append(*song);
    return told;
}

/// What is missing is taken from the song: not every file of an album is tagged as well as the others.
void addSong(CatalogueAlbum& album, const IndexedSong& song)
{
    const auto take = [](QString& field, const QString& value) {
        if (field.isEmpty())
            field = value;
    };
    const auto& tags = song.tags;
    take(album.id, tags.releaseId);
    take(album.artist, tags.artist);
    take(album.title, tags.album);
    take(album.type, tags.releaseType);
    take(album.date, tags.date);
    if (tags.year > 0)
        take(album.date, QString::number(tags.year));
    take(album.country, tags.country);
    take(album.label, tags.label);
    album.songs.append(announced(song));
}

} // namespace

QList<CatalogueAlbum> AlbumCatalogue::albums(const QString& artistKey) const
{
    QList<CatalogueAlbum> albums;
    QHash<QString, qsizetype> places;
    if (const auto* artist = catalogue_.demoArtist(artistKey)) {
        for (const auto& album : artist->albums) {
            places.insert(folded(album.title), albums.size());
            albums.append(demoAlbum(catalogue_, artist->name, album));
        }
    }
    const qsizetype demoAlbums = albums.size();
    for (const auto& song : index_.songs(artistKey, mostSongs)) {
        if (song.tags.album.isEmpty())
            continue;
        const QString key = folded(song.tags.album);
        const auto place = places.constFind(key);
        if (place != places.constEnd() && *place < demoAlbums)
            continue; // a copy of what the demo songs have whole
        const qsizetype at = place == places.constEnd() ? albums.size() : *place;
        if (at == albums.size()) {
            places.insert(key, at);
            albums.append(CatalogueAlbum());
        }
        addSong(albums[at], song);
    }
    return albums;
}

std::optional<CatalogueAlbum> AlbumCatalogue::albumNamed(const QString& artistKey, const QString& title) const
{
    const auto all = albums(artistKey);
    const QString key = folded(title);
    const auto found =
        std::ranges::find_if(all, [&](const CatalogueAlbum& album) { return folded(album.title) == key; });
    return found == all.end() ? std::nullopt : std::optional(*found);
}

std::optional<CatalogueAlbum> AlbumCatalogue::albumWithId(const QString& id) const
{
    if (id.isEmpty())
        return std::nullopt;
    for (const auto& artist : catalogue_.demoArtists())
        for (const auto& album : artist.albums)
            if (album.id == id)
                return demoAlbum(catalogue_, artist.name, album);
    CatalogueAlbum album;
    for (const auto& song : index_.songsOfRelease(id, mostSongs))
        addSong(album, song);
    return album.songs.isEmpty() ? std::nullopt : std::optional(album);
}

} // namespace zib
