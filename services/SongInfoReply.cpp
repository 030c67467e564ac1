// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/SongInfoReply.h"

#include "services/WikiText.h"
#include "services/XmlReply.h"

#include <QCoreApplication>

namespace zib {

const QString noCoverBig = QStringLiteral(":/zib/no-cover-big.png");

namespace {

void readArtwork(const pugi::xml_document& document, SongInfo& info)
{
    const auto medium = textAt(document, "lfm/track/album/image[2]");
    if (medium)
        info.artwork = *medium;
    if (const auto large = textAt(document, "lfm/track/album/image[3]"))
        info.artworkLarge = *large;
    if (medium && medium->isEmpty()) {
        info.artwork = info.artworkLarge.isEmpty()
                           ? textAt(document, "lfm/track/album/image[1]").value_or(QString())
                           : info.artworkLarge;
        info.artworkLarge = info.artwork;
    }
    if (info.artworkLarge.isEmpty())
        info.artworkLarge = noCoverBig;
}

QString translated(const char* text)
{
    return QCoreApplication::translate("RVSongInfoDownloader", text);
}

} // namespace

void readSongInfoReply(const QByteArray& reply, const QString& webSite, SongInfo& info)
{
    pugi::xml_document document;
    loadXmlReply(document, reply);
    readArtwork(document, info);
    if (const auto content = textAt(document, "lfm/track/wiki/content"))
        info.wiki = content->isEmpty() ? QString() : wikiText(*content, webSite, WikiLinks::ToArtistsAndTags);
    const auto take = [&document](std::optional<QString>& field, const char* path) {
        if (const auto text = textAt(document, path))
            field = text;
    };
    take(info.name, "lfm/track/name");
    take(info.artist, "lfm/track/artist/name");
    take(info.album, "lfm/track/album/title");
    take(info.mbid, "lfm/track/album/mbid");
    for (const pugi::xml_node name : elementsAt(document, "lfm/track/toptags/tag/name"))
        info.tags.append(textOf(name));

    info.artist = info.artist.value_or(translated("Unknown Artist"));
    info.album = info.album.value_or(translated("Unknown Album"));
    info.name = info.name.value_or(translated("Unknown Song"));
    info.mbid = info.mbid.value_or(QString());
}

} // namespace zib
