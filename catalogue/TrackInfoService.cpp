// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/TrackInfoService.h"

#include "catalogue/ArtistRanking.h"
#include "catalogue/InfoText.h"

namespace zib {

namespace {

constexpr int mostAlike = 3;

} // namespace

HttpReply TrackInfoService::answer(const HttpRequest& request) const
{
    if (auto refusal = InfoReply::refusal(request))
        return *refusal;
    const bool autocorrects = request.parameter(u"autocorrect") == QStringLiteral("1");
    const auto artist =
        catalogue_.artistNamed(request.parameter(u"artist").value_or(QString()), autocorrects);
    const auto song = artist
                          ? catalogue_.songNamed(artist->key, request.parameter(u"track").value_or(QString()))
                          : std::nullopt;
    if (!song)
        return InfoReply::notFound("Track not found");

    const QString base = request.base();
    const InfoReply reply;
    auto track = reply.root().append_child("track");
    addText(track, "name", song->title);
    addText(track, "url", QStringLiteral("%1/song/%2").arg(base, song->id));
    addText(track, "duration", QString::number(song->milliseconds));
    addText(track.append_child("artist"), "name", song->artist);
    const QString cover = pictures_.cover(*song, base);
    if (!song->album.isEmpty() || !cover.isEmpty()) {
        auto album = track.append_child("album");
        if (!song->album.isEmpty()) {
            addText(album, "artist", song->artist);
            addText(album, "title", song->album);
            if (const auto release = albums_.albumNamed(artist->key, song->album))
                addText(album, "mbid", release->id);
        }
        if (!cover.isEmpty())
            addImages(album, {cover, cover, cover});
    }
    addTags(track, "toptags", artist->tags, base);
    addContent(track, "wiki", description(*song, *artist, base));
    return reply.http();
}

/// Two paragraphs at most: who plays, and where to listen on.
QString TrackInfoService::description(const CatalogueSong& song, const Artist& artist,
                                      const QString& base) const
{
    QString text = song.about;
    if (!text.isEmpty())
        text = text.toHtmlEscaped() + QLatin1Char('\n');
    QStringList tags;
    for (const auto& tag : artist.tags.mid(0, mostAlike))
        tags.append(tagLink(base, tag));
    QStringList alike;
    for (const auto& other : artistsSimilar(*catalogue_.artists(), {{artist.name}}).mid(0, mostAlike))
        alike.append(artistLink(base, other.name));
    if (tags.isEmpty())
        return text;
    text += QStringLiteral("Filed under %1.").arg(enumeration(tags));
    if (!alike.isEmpty())
        text += QStringLiteral(" If you like this, try %1.").arg(enumeration(alike));
    return text + QLatin1Char('\n');
}

} // namespace zib
