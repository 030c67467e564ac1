// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/webview/engine/PageHead.h"

#include "platform/desktop/webview/engine/PageAddresses.h"

#include <QCoreApplication>

namespace zib {
namespace {

/// What the drawings hold as their text elements for people to read.
const char* const drawnWords[] = {
    QT_TRANSLATE_NOOP("PageDrawings", "Artist"),      QT_TRANSLATE_NOOP("PageDrawings", "Album"),
    QT_TRANSLATE_NOOP("PageDrawings", "Song"),        QT_TRANSLATE_NOOP("PageDrawings", "Images"),
    QT_TRANSLATE_NOOP("PageDrawings", "Videos"),      QT_TRANSLATE_NOOP("PageDrawings", "Blogs"),
    QT_TRANSLATE_NOOP("PageDrawings", "News"),        QT_TRANSLATE_NOOP("PageDrawings", "Reviews"),
    QT_TRANSLATE_NOOP("PageDrawings", "Familiarity"), QT_TRANSLATE_NOOP("PageDrawings", "Hotness"),
};

QByteArray contentPolicy(const QByteArray& scriptMark, const VideoSite& videoSite)
{
    const QByteArray frames = videoSite.origins().isEmpty() ? QByteArray("'none'") : videoSite.origins();
    return "default-src 'none'; script-src 'nonce-" + scriptMark +
           "'; style-src 'unsafe-inline'; img-src http: https: data: zib-page:; frame-src " + frames +
           "; connect-src 'none'; object-src 'none'; base-uri 'none'; form-action zib:";
}

} // namespace

QByteArray inColorScheme(QByteArray text, bool dark)
{
    return text.replace("(prefers-color-scheme: dark)", dark ? "(min-width: 0)" : "(max-width: 0)");
}

QByteArray inLanguage(QByteArray drawing)
{
    for (const char* const word : drawnWords)
        drawing.replace('>' + QByteArray(word) + "</text>",
                        '>' + QCoreApplication::translate("PageDrawings", word).toUtf8() + "</text>");
    return drawing;
}

QByteArray boundedPage(const BrowserPage& page, const VideoSite& videoSite)
{
    QByteArray html = inColorScheme(page.html, page.dark);
    // The same folder, by the page's own name for it.
    html.replace(QUrl::fromLocalFile(page.folder + QLatin1Char('/')).toEncoded(), pageRoot(page.dark));

    // Behind the document type a meta element opens the head by itself, whatever follows.
    const qsizetype typeEnd = html.left(9).toLower() == "<!doctype" ? html.indexOf('>') + 1 : 0;
    html.insert(typeEnd, "<meta http-equiv=\"Content-Security-Policy\" content=\"" +
                             contentPolicy(page.scriptMark, videoSite) +
                             "\"><meta name=\"referrer\" content=\"no-referrer\">");
    return html;
}

} // namespace zib
