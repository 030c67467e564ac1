// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/LyricsReply.h"

#include "services/Log.h"
#include "services/XmlReply.h"

#include <sstream>

namespace zib {
namespace {

/// Of a reply that is not about lyrics, the log gets no more.
constexpr qsizetype mostBytesLogged = 2000;

QByteArray beginningOf(const pugi::xml_document& document)
{
    std::ostringstream text;
    document.save(text, "", pugi::format_raw | pugi::format_no_declaration);
    return QByteArray::fromStdString(text.str()).left(mostBytesLogged);
}

bool isTitle(const QString& title, const QString& song)
{
    return title == song || (!song.isEmpty() && title.contains(song));
}

} // namespace

std::optional<QString> lyricsOfReply(const QByteArray& reply, const QString& artist, const QString& title)
{
    pugi::xml_document document;
    loadXmlReply(document, reply);
    const pugi::xml_node result = document.child("GetLyricResult");
    if (!result) {
        qCWarning(servicesLog, "ERROR -- No nodes for GetLyricResult in XML: %s",
                  beginningOf(document).constData());
        return std::nullopt;
    }
    const auto replyArtist = childText(result, "LyricArtist");
    if (replyArtist != artist)
        return std::nullopt;
    // Where the reply does not name the song, the artist stands for it: as in albums called like their band.
    if (!isTitle(title, childText(result, "LyricSong").value_or(artist)))
        return std::nullopt;
    return childText(result, "Lyric")
        .value_or(QString())
        .replace(QLatin1String("&quot;"), QLatin1String("\"")); // escaped twice
}

} // namespace zib
