// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a reply about a song, an artist, an album or a release that crashes, hangs, or becomes more entries
// than are taken. Each reader gets every reply: what is one's answer is another's surprise.
#include "services/AlbumInfoReply.h"
#include "services/ArtistInfoReply.h"
#include "services/LyricsReply.h"
#include "services/ProfileReply.h"
#include "services/ReleaseReply.h"
#include "services/SongInfoReply.h"
#include "services/XmlReply.h"

#include <QLoggingCategory>

#include <cstdint>
#include <cstdlib>

namespace {

void require(bool claim)
{
    if (!claim)
        std::abort();
}

bool isBounded(qsizetype entries)
{
    return entries <= qsizetype(zib::maximumEntries);
}

void readSong(const QByteArray& reply)
{
    zib::SongInfo info;
    zib::readSongInfoReply(reply, QStringLiteral("h"), info);
    require(info.artist && info.album && info.name && info.mbid && !info.artworkLarge.isEmpty() &&
            isBounded(info.tags.size()));
}

void readProfile(const QByteArray& reply)
{
    const auto profile = zib::artistProfileOfReply(reply);
    if (!profile)
        return;
    require(isBounded(profile->blogs.size()) && isBounded(profile->news.size()) &&
            isBounded(profile->reviews.size()) && isBounded(profile->videos.size()) &&
            isBounded(profile->images.size()) && profile->tags.size() <= 11 &&
            profile->links.size() % 7 == 0);
    for (const zib::WebArticle& article : profile->blogs)
        require(article.date.size() <= 10 && article.release.isEmpty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QLoggingCategory::setFilterRules(QStringLiteral("zib.services=false"));
    const QByteArray reply(reinterpret_cast<const char*>(data), qsizetype(size));
    readSong(reply);
    readProfile(reply);
    zib::ArtistInfo artist;
    zib::readArtistInfoReply(reply, artist);
    require(isBounded(artist.similar.size()));
    zib::AlbumInfo album;
    zib::readAlbumInfoReply(reply, album);
    const zib::ReleaseInfo release = zib::releaseInfoOfReply(reply);
    require(isBounded(release.releases.size()) && isBounded(release.tracks.size()));
    if (const auto lyrics = zib::lyricsOfReply(reply, QStringLiteral("A"), QStringLiteral("Song (Live)")))
        require(!lyrics->contains(QLatin1String("&quot;")));
    return 0;
}
