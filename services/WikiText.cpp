// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/WikiText.h"

#include "services/utilities/StringUtilities.h"

namespace zib {

QString wikiText(QString html, const QString& webSite, WikiLinks links)
{
    if (!webSite.isEmpty()) {
        for (const QLatin1String scheme : {QLatin1String("http://"), QLatin1String("https://")}) {
            html.replace(scheme + webSite + QLatin1String("/music/"), QLatin1String("zib://search/artist/"));
            if (links == WikiLinks::ToArtistsAndTags)
                html.replace(scheme + webSite + QLatin1String("/tag/"), QLatin1String("zib://search/tag/"));
        }
    }
    return stringByReplacingNewlineCharactersWithHTMLTags(flattenHTMLIgnoringZibLinks(html));
}

} // namespace zib
