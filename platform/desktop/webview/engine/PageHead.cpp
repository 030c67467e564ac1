// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/webview/engine/PageHead.h"

#include "platform/desktop/webview/engine/PageAddresses.h"

#include <QCoreApplication>

namespace zib {
namespace {

/// What drawings and scripts hold for people to read.
const char* const pageWords[] = {
    QT_TRANSLATE_NOOP("PageWords", "Artist"),      QT_TRANSLATE_NOOP("PageWords", "Album"),
    QT_TRANSLATE_NOOP("PageWords", "Song"),        QT_TRANSLATE_NOOP("PageWords", "Images"),
    QT_TRANSLATE_NOOP("PageWords", "Videos"),      QT_TRANSLATE_NOOP("PageWords", "Blogs"),
    QT_TRANSLATE_NOOP("PageWords", "News"),        QT_TRANSLATE_NOOP("PageWords", "Reviews"),
    QT_TRANSLATE_NOOP("PageWords", "Familiarity"), QT_TRANSLATE_NOOP("PageWords", "Hotness"),
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

QByteArray inLanguage(QByteArray text)
{
    for (const char* const word : pageWords)
        text.replace("{{" + QByteArray(word) + "}}", QCoreApplication::translate("PageWords", word).toUtf8());
    return text;
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
