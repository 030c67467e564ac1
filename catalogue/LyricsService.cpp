// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LyricsService.h"

#include "catalogue/XmlReply.h"

namespace zib {

HttpReply LyricsService::answer(const HttpRequest& request) const
{
    const auto artist = catalogue_.artistNamed(request.parameter(u"artist").value_or(QString()), false);
    const auto song = artist
                          ? catalogue_.songNamed(artist->key, request.parameter(u"song").value_or(QString()))
                          : std::nullopt;
    const QString lyrics = song ? catalogue_.lyrics(song->id) : QString();
    const bool found = !lyrics.isEmpty();
    pugi::xml_document document;
    auto result = declaredRoot(document, "GetLyricResult");
    addText(result, "LyricId", found ? QStringLiteral("1") : QStringLiteral("0"));
    addText(result, "LyricSong", found ? song->title : QString());
    addText(result, "LyricArtist", found ? song->artist : QString());
    // Pages show the text as HTML. They count lines by their ends and lose a last one that has none.
    addText(result, "Lyric", found ? lyrics.toHtmlEscaped() + u'\n' : QString());
    return xmlReply(document, 200);
}

} // namespace zib
