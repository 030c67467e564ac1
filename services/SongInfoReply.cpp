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

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(RVSongInfoDownloader)
};

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

    info.artist = info.artist.value_or(Texts::tr("Unknown Artist"));
    info.album = info.album.value_or(Texts::tr("Unknown Album"));
    info.name = info.name.value_or(Texts::tr("Unknown Song"));
    info.mbid = info.mbid.value_or(QString());
}

} // namespace zib
