// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/MusicCatalogue.h"

#include "catalogue/ArtistRanking.h"
#include "catalogue/TextMatching.h"

#include <algorithm>

namespace zib {

namespace {

/// With so many recent plays they decide half of what they can decide.
constexpr double tellingPlays = 10;
/// The part of hotness that plays can decide: an artist whom nobody plays is still not as cold as can be.
constexpr double playedPart = 0.75;

/// Lets the plays tell how hot the artists are now, as far as there are enough to tell.
void heat(QList<Artist>& artists, const RecentPlays& recent)
{
    double most = 0;
    double total = 0;
    for (auto& artist : artists) {
        artist.recentPlays = recent.value(artist.key);
        most = std::max(most, artist.recentPlays);
        total += artist.recentPlays;
    }
    if (most <= 0)
        return;
    const double weight = playedPart * total / (total + tellingPlays);
    for (auto& artist : artists)
        artist.hotness += weight * (artist.recentPlays / most - artist.hotness);
}

} // namespace

CatalogueSong announced(const IndexedSong& song)
{
    const QString extension = songExtension(song.path);
    return {song.id,
            extension,
            mediaType(extension),
            song.tags.artist,
            song.tags.album,
            song.tags.title,
            song.tags.seconds,
            QDateTime::fromMSecsSinceEpoch(song.modified / 1000000, Qt::UTC),
            false,
            {},
            song.tags.milliseconds};
}

MusicCatalogue::MusicCatalogue(const DemoSongs& demo, const SongIndex& index, const PlayCounts& plays)
    : demo_(demo)
    , index_(index)
    , plays_(plays)
{
    for (const auto& artist : demo.artists()) {
        const QString key = folded(artist.name);
        demoPlaces_.insert(key, demoPlaces_.size());
        demoArtists_.append({key, artist.name, artist.tags, artist.hotness, artist.familiarity});
        for (const auto& album : artist.albums) {
            const QDateTime date(QDate(album.year, 1, 1), QTime(0, 0), Qt::UTC);
            for (const auto& track : album.tracks) {
                demoSongIds_[key].append(track.id);
                demoSongs_.insert(track.id, {track.id, track.extension, track.mediaType.toLatin1(),
                                             artist.name, album.title, track.title, track.seconds, date, true,
                                             track.about, track.seconds * 1000});
                demoLyrics_.insert(track.id, track.lyrics);
            }
        }
    }
}

Artists MusicCatalogue::artists() const
{
    const auto own = index_.artists();
    const auto recent = plays_.recent();
    {
        const std::lock_guard lock(mutex_);
        if (own == own_ && recent == recent_)
            return artists_;
    }
    QHash<QString, qsizetype> places;
    QList<Artist> all = demoArtists_;
    for (qsizetype i = 0; i < all.size(); ++i)
        places.insert(all.at(i).key, i);
    for (const auto& artist : *own) {
        const auto place = places.constFind(artist.key);
        if (place == places.constEnd()) {
            all.append(artist);
            continue;
        }
        auto& both = all[*place];
        both.tags += artist.tags;
        both.tags.removeDuplicates();
        both.hotness = std::max(both.hotness, artist.hotness);
        both.familiarity = std::max(both.familiarity, artist.familiarity);
    }
    heat(all, *recent);
    auto merged = std::make_shared<const QList<Artist>>(std::move(all));
    const std::lock_guard lock(mutex_);
    own_ = own;
    recent_ = recent;
    artists_ = merged;
    return merged;
}

QList<CatalogueSong> MusicCatalogue::songs(const QString& artistKey, int most) const
{
    QList<CatalogueSong> songs;
    for (const auto& id : demoSongIds_.value(artistKey))
        songs.append(demoSongs_.value(id));
    for (const auto& song : index_.songs(artistKey, most))
        songs.append(announced(song));
    return songs.mid(0, most);
}

std::optional<CatalogueSong> MusicCatalogue::song(const QString& id) const
{
    if (const auto demo = demoSongs_.constFind(id); demo != demoSongs_.constEnd())
        return *demo;
    if (const auto own = index_.song(id))
        return announced(*own);
    return std::nullopt;
}

std::optional<Artist> MusicCatalogue::artistNamed(const QString& name, bool nearly) const
{
    const auto all = artists();
    const QString key = folded(name);
    const auto same = std::ranges::find(*all, key, &Artist::key);
    if (same != all->end())
        return *same;
    const auto alike = nearly && !key.isEmpty() ? artistsNamed(*all, {name}, true) : QList<Artist>();
    return alike.isEmpty() ? std::nullopt : std::optional(alike.first());
}

std::optional<CatalogueSong> MusicCatalogue::songNamed(const QString& artistKey, const QString& title) const
{
    constexpr int all = 100000;
    const QString key = folded(title);
    for (const auto& song : songs(artistKey, all))
        if (folded(song.title) == key)
            return song;
    return std::nullopt;
}

QString MusicCatalogue::lyrics(const QString& songId) const
{
    const auto demo = demoLyrics_.constFind(songId);
    return demo == demoLyrics_.constEnd() ? index_.lyrics(songId) : *demo;
}

const DemoArtist* MusicCatalogue::demoArtist(const QString& artistKey) const
{
    const auto place = demoPlaces_.constFind(artistKey);
    return place == demoPlaces_.constEnd() ? nullptr : &demo_.artists().at(*place);
}

int MusicCatalogue::songCount() const
{
    return int(demoSongs_.size()) + index_.songCount();
}

} // namespace zib
