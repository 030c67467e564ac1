// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/ArtistInfoReply.h"

#include "services/XmlReply.h"

namespace zib {

void readArtistInfoReply(const QByteArray& reply, ArtistInfo& info)
{
    pugi::xml_document document;
    loadXmlReply(document, reply);
    for (const pugi::xml_node artist : elementsAt(document, "lfm/artist/similar/artist")) {
        const auto name = childText(artist, "name");
        const auto image = textAt(artist, "image[3]");
        if (name && image)
            info.similar.append({*name, *image});
    }
    info.bio = textAt(document, "lfm/artist/bio/content").value_or(info.bio);
    info.name = textAt(document, "lfm/artist/name").value_or(info.name);
}

} // namespace zib
