// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Pages.h"

#include "catalogue/InfoText.h"

#include <QLocale>

namespace zib {

namespace {

/// @param body HTML, every value in it escaped
HttpReply page(const QString& title, const QString& body)
{
    const QString html =
        QStringLiteral("<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
                       "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">"
                       "<title>") +
        title.toHtmlEscaped() +
        QStringLiteral(
            "</title><style>"
            ":root{color-scheme:light dark}"
            "body{font:1.05rem/1.6 system-ui,sans-serif;max-width:38rem;margin:12vh auto;padding:0 1.5rem}"
            "h1{font-weight:600;line-height:1.2;margin:0 0 .3em}p{margin:.5em 0}"
            "code{background:#8882;padding:.1em .4em;border-radius:.3em}"
            "img{width:12rem;max-width:100%;border-radius:.5rem}audio{width:100%;margin-top:1.2rem}"
            "h2{font-weight:600;font-size:1.15rem;margin:2em 0 .3em}ul,ol{padding-left:1.4em}"
            "img.wide{width:100%}.strip{display:flex;flex-wrap:wrap;gap:.6rem;margin-top:1.2rem}"
            ".strip img{width:8.5rem;height:8.5rem;object-fit:cover}.small{opacity:.7;font-size:.9rem}"
            "a{color:#4a7a91}@media(prefers-color-scheme:dark){a{color:#8fbdd3}}"
            "</style></head><body><main>") +
        body + QStringLiteral("</main></body></html>\n");
    return {.contentType = "text/html; charset=utf-8",
            .body = html.toUtf8(),
            .headers = {{"Cache-Control", "no-store"},
                        {"Content-Security-Policy",
                         "default-src 'none'; style-src 'unsafe-inline';"
                         " img-src 'self'; media-src 'self'; frame-ancestors 'none'"}}};
}

QString heading(const QString& text)
{
    return QStringLiteral("<h1>") + text.toHtmlEscaped() + QStringLiteral("</h1>");
}

QString image(const QString& address, QLatin1String style)
{
    return QStringLiteral("<img class=\"%1\" src=\"%2\" alt=\"\">").arg(style, address.toHtmlEscaped());
}

/// @param html one line a paragraph
QString paragraphs(const QString& html)
{
    QString all;
    for (const auto& line : html.split(u'\n', Qt::SkipEmptyParts))
        all += QStringLiteral("<p>") + line + QStringLiteral("</p>");
    return all;
}

QString tagLinks(const QStringList& tags, const QString& base)
{
    QStringList links;
    for (const auto& tag : tags)
        links.append(tagLink(base, tag));
    return links.join(QStringLiteral(" · "));
}

} // namespace

HttpReply frontPage(const QString& address, int artists, int songs)
{
    return page(QStringLiteral("Zib catalogue"),
                QStringLiteral("<h1>Zib catalogue</h1>"
                               "<p>This is the song-search service of the music player Zib."
                               " It offers %1 songs by %2 artists.</p>"
                               "<p>Zib starts and finds it by itself when no other service is set."
                               " To point Zib here, start <code>zib --services %3</code>.</p>")
                    .arg(songs)
                    .arg(artists)
                    .arg(address.toHtmlEscaped()));
}

HttpReply songPage(const CatalogueSong& song, const QString& base)
{
    QString body;
    if (song.isDemo)
        body += QStringLiteral("<img src=\"/cover/%1\" alt=\"\">").arg(song.id);
    body += heading(song.title) + QStringLiteral("<p>") + artistLink(base, song.artist);
    if (!song.album.isEmpty())
        body += QStringLiteral(" · ") + song.album.toHtmlEscaped();
    body += QStringLiteral("</p><audio controls preload=\"none\" src=\"/audio/%1.%2\"></audio>")
                .arg(song.id, song.extension);
    return page(song.title + QStringLiteral(" – ") + song.artist, body);
}

HttpReply artistPage(const Artist& artist, const QString& biography, const QStringList& pictures,
                     const QList<CatalogueAlbum>& albums, const QString& base)
{
    QString body;
    if (!pictures.isEmpty())
        body += image(pictures.first(), QLatin1String("wide"));
    body += heading(artist.name) + QStringLiteral("<p class=\"small\">") + tagLinks(artist.tags, base) +
            QStringLiteral("</p>") + paragraphs(biography);
    for (const auto& album : albums) {
        body += QStringLiteral("<h2>") + album.title.toHtmlEscaped();
        if (!album.date.isEmpty())
            body += QStringLiteral(" (%1)").arg(album.date.left(4).toHtmlEscaped());
        body += QStringLiteral("</h2><ol>");
        for (const auto& song : album.songs)
            body += QStringLiteral("<li><a href=\"/song/%1\">%2</a></li>")
                        .arg(song.id, song.title.toHtmlEscaped());
        body += QStringLiteral("</ol>");
    }
    if (pictures.size() > 1) {
        body += QStringLiteral("<div class=\"strip\">");
        for (const auto& picture : pictures.mid(1))
            body += QStringLiteral("<a href=\"%1\">%2</a>")
                        .arg(picture.toHtmlEscaped(), image(picture, QLatin1String("part")));
        body += QStringLiteral("</div>");
    }
    return page(artist.name, body);
}

HttpReply tagPage(const QString& tag, const QList<Artist>& artists, const QString& base)
{
    QString body = heading(tag) + QStringLiteral("<ul>");
    for (const auto& artist : artists)
        body += QStringLiteral("<li>") + artistLink(base, artist.name) + QStringLiteral("</li>");
    return page(tag, body + QStringLiteral("</ul>"));
}

HttpReply articlePage(const DemoArticle& article, const QString& artist, const QString& base)
{
    const QString day = QLocale::c().toString(article.date, QStringLiteral("d MMMM yyyy"));
    QString body = QStringLiteral("<p class=\"small\">%1 · %2</p>").arg(article.source.toHtmlEscaped(), day) +
                   heading(article.title) + paragraphs(linkedHtml(article.text, base)) +
                   QStringLiteral("<p class=\"small\">About ") + artistLink(base, artist);
    if (!article.album.isEmpty())
        body += QStringLiteral(", <i>%1</i>").arg(article.album.toHtmlEscaped());
    return page(article.title, body + QStringLiteral("</p>"));
}

QString articleAddress(const QString& base, const DemoArticle& article)
{
    return QStringLiteral("%1/article/%2").arg(base, article.id);
}

} // namespace zib
