// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/AlbumInfoReply.h"

#include "services/XmlReply.h"

namespace zib {

void readAlbumInfoReply(const QByteArray& reply, AlbumInfo& info)
{
    pugi::xml_document document;
    loadXmlReply(document, reply);
    for (const char* image : {"lfm/album/image[3]", "lfm/album/image[2]", "lfm/album/image[1]"}) {
        if (const auto address = textAt(document, image)) {
            if (!address->isEmpty())
                info.url = QUrl(*address);
            break;
        }
    }
    info.wiki = textAt(document, "lfm/album/wiki/content").value_or(info.wiki);
    info.name = textAt(document, "lfm/album/name").value_or(info.name);
}

} // namespace zib
