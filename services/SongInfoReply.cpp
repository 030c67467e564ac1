// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/SongInfoReply.h"

#include "services/WikiText.h"
#include "services/XmlReply.h"

#include <QCoreApplication>

namespace zib {

const QString noCoverBig = QStringLiteral(":/zib/no-cover-big.png");

namespace {

/// The text of the element's child image of that number, counted from 1; nothing without such a child.
std::optional<QString> image(pugi::xml_node album, int number)
{
    pugi::xml_node child = album.child("image");
    while (child && --number > 0)
        child = child.next_sibling("image");
    return child ? std::optional(textOf(child)) : std::nullopt;
}

void readArtwork(pugi::xml_node album, SongInfo& info)
{
    const auto medium = image(album, 2);
    if (medium)
        info.artwork = *medium;
    if (const auto large = image(album, 3))
        info.artworkLarge = *large;
    if (medium && medium->isEmpty()) {
        info.artwork = info.artworkLarge.isEmpty() ? image(album, 1).value_or(QString()) : info.artworkLarge;
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
    const pugi::xml_node track = document.child("lfm").child("track");
    const pugi::xml_node album = track.child("album");
    readArtwork(album, info);
    if (const auto content = childText(track.child("wiki"), "content"))
        info.wiki = content->isEmpty() ? QString() : wikiText(*content, webSite, WikiLinks::ToArtistsAndTags);
    const auto take = [](std::optional<QString>& field, const std::optional<QString>& text) {
        if (text)
            field = text;
    };
    take(info.name, childText(track, "name"));
    take(info.artist, childText(track.child("artist"), "name"));
    take(info.album, childText(album, "title"));
    take(info.mbid, childText(album, "mbid"));
    for (const pugi::xml_node tag : track.child("toptags").children("tag"))
        if (const auto name = childText(tag, "name"))
            info.tags.append(*name);

    info.artist = info.artist.value_or(translated("Unknown Artist"));
    info.album = info.album.value_or(translated("Unknown Album"));
    info.name = info.name.value_or(translated("Unknown Song"));
    info.mbid = info.mbid.value_or(QString());
}

} // namespace zib
