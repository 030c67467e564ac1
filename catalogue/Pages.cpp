// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Pages.h"

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
            "img{width:12rem;border-radius:.5rem}audio{width:100%;margin-top:1.2rem}"
            "</style></head><body><main>") +
        body + QStringLiteral("</main></body></html>\n");
    return {.contentType = "text/html; charset=utf-8",
            .body = html.toUtf8(),
            .headers = {{"Cache-Control", "no-store"},
                        {"Content-Security-Policy",
                         "default-src 'none'; style-src 'unsafe-inline';"
                         " img-src 'self'; media-src 'self'; frame-ancestors 'none'"}}};
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

HttpReply songPage(const CatalogueSong& song)
{
    QString body;
    if (song.isDemo)
        body += QStringLiteral("<img src=\"/cover/%1\" alt=\"\">").arg(song.id);
    body += QStringLiteral("<h1>") + song.title.toHtmlEscaped() + QStringLiteral("</h1><p>") +
            song.artist.toHtmlEscaped();
    if (!song.album.isEmpty())
        body += QStringLiteral(" · ") + song.album.toHtmlEscaped();
    body += QStringLiteral("</p><audio controls preload=\"none\" src=\"/audio/%1.%2\"></audio>")
                .arg(song.id, song.extension);
    return page(song.title + QStringLiteral(" – ") + song.artist, body);
}

} // namespace zib
