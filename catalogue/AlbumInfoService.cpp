// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/AlbumInfoService.h"

#include "catalogue/InfoText.h"

namespace zib {

HttpReply AlbumInfoService::answer(const HttpRequest& request) const
{
    if (auto refusal = InfoReply::refusal(request))
        return *refusal;
    const bool corrects = request.parameter(u"autocorrect") == QStringLiteral("1");
    const auto artist = catalogue_.artistNamed(request.parameter(u"artist").value_or(QString()), corrects);
    const auto album = artist
                           ? albums_.albumNamed(artist->key, request.parameter(u"album").value_or(QString()))
                           : std::nullopt;
    if (!album)
        return InfoReply::notFound("Album not found");

    const QString base = request.base();
    const InfoReply reply;
    auto element = reply.root().append_child("album");
    addText(element, "name", album->title);
    addText(element, "artist", album->artist);
    addText(element, "mbid", album->id);
    addText(element, "url", artistAddress(base, album->artist));
    if (!album->date.isEmpty())
        addText(element, "releasedate", album->date);
    if (const QString cover = pictures_.cover(*album, base); !cover.isEmpty())
        addImages(element, {cover, cover, cover});
    auto tracks = element.append_child("tracks");
    int rank = 0;
    for (const auto& song : album->songs) {
        auto track = tracks.append_child("track");
        track.append_attribute("rank").set_value(++rank);
        addText(track, "name", song.title);
        addText(track, "duration", QString::number(song.seconds));
        addText(track, "url", QStringLiteral("%1/song/%2").arg(base, song.id));
    }
    addTags(element, "toptags", artist->tags, base);
    addContent(element, "wiki", linkedHtml(album->about, base));
    return reply.http();
}

} // namespace zib
