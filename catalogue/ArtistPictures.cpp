// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ArtistPictures.h"

#include "catalogue/SongPictures.h"

namespace zib {

namespace {

constexpr qsizetype mostCovers = 20;
constexpr qsizetype mostSongsAsked = 3; ///< of an album whether they have a cover: mostly all have it or none

QString pictureAddress(const QString& base, const DemoArtist& artist, int number, PictureSize size)
{
    return QStringLiteral("%1/picture/%2-%3%4.jpg")
        .arg(base, artist.pictureId)
        .arg(number)
        .arg(size == PictureSize::Tile ? QLatin1String("-tile") : QLatin1String());
}

} // namespace

QStringList ArtistPictures::all(const QString& artistKey, const QString& base) const
{
    QStringList addresses;
    if (const auto* artist = catalogue_.demoArtist(artistKey)) {
        for (int number = 1; number <= artist->pictures; ++number)
            addresses.append(pictureAddress(base, *artist, number, PictureSize::Whole));
    }
    qsizetype covers = 0;
    for (const auto& album : albums_.albums(artistKey)) {
        const bool painted = album.songs.first().isDemo && !addresses.isEmpty();
        const QString address = painted || covers == mostCovers ? QString() : cover(album, base);
        if (!address.isEmpty()) {
            addresses.append(address);
            ++covers;
        }
    }
    return addresses;
}

ImageAddresses ArtistPictures::one(const QString& artistKey, const QString& base) const
{
    const auto* artist = catalogue_.demoArtist(artistKey);
    if (artist != nullptr && artist->pictures > 0) {
        const QString tile = pictureAddress(base, *artist, 1, PictureSize::Tile);
        return {tile, tile, tile};
    }
    for (const auto& album : albums_.albums(artistKey).mid(0, mostSongsAsked))
        if (const QString address = cover(album, base); !address.isEmpty())
            return {address, address, address};
    return {};
}

QString ArtistPictures::cover(const CatalogueSong& song, const QString& base) const
{
    const QString address = QStringLiteral("%1/cover/%2").arg(base, song.id);
    if (song.isDemo)
        return address;
    const auto own = index_.song(song.id);
    const bool has = own && (own->tags.hasPicture || !pictureBeside(own->path, own->folder).isEmpty());
    return has ? address : QString();
}

QString ArtistPictures::cover(const CatalogueAlbum& album, const QString& base) const
{
    for (const auto& song : album.songs.mid(0, mostSongsAsked))
        if (const QString address = cover(song, base); !address.isEmpty())
            return address;
    return {};
}

} // namespace zib
