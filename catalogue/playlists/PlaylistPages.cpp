// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/playlists/PlaylistPages.h"

#include "catalogue/playlists/PlaylistForm.h"

#include <microhttpd.h>

#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QHash>
#include <QLocale>
#include <QUrl>
#include <QUrlQuery>

void initPlaylistPageFiles()
{
    Q_INIT_RESOURCE(playlists); // outside of all namespaces, as it declares a function
}

namespace zib {

namespace {

constexpr qsizetype longestSummary = 200;

const HttpHeaders pageHeaders{
    {"Cache-Control", "no-store"},
    {"Content-Security-Policy", "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self';"
                                " media-src http: https:; form-action 'self'; base-uri 'none';"
                                " frame-ancestors 'none'"},
    {"Referrer-Policy", "same-origin"},
};

/// Text for an element or a quoted attribute.
QString escaped(const QString& text)
{
    return text.toHtmlEscaped();
}

/// Foreign text with a direction of its own, which cannot turn what stands around it.
QString isolated(const QString& text)
{
    return QStringLiteral("<bdi>") + escaped(text) + QStringLiteral("</bdi>");
}

QString clock(int seconds)
{
    const QString minutes =
        QStringLiteral("%1:%2").arg(seconds / 60 % 60).arg(seconds % 60, 2, 10, QChar(u'0'));
    if (seconds < 3600)
        return minutes;
    return QStringLiteral("%1:%2").arg(seconds / 3600).arg(minutes.rightJustified(5, u'0'));
}

/// A duration as HTML writes it for programs.
QString machineDuration(int seconds)
{
    return QStringLiteral("PT%1S").arg(seconds);
}

/// "12 songs, 48 minutes"
QString extent(const PublishedPlaylist& playlist)
{
    QString text = playlist.songCount == 1 ? QStringLiteral("1 song")
                                           : QStringLiteral("%1 songs").arg(playlist.songCount);
    const int minutes = (playlist.seconds + 30) / 60;
    if (minutes == 1)
        text += QStringLiteral(", 1 minute");
    else if (minutes > 1)
        text += QStringLiteral(", %1 minutes").arg(minutes);
    return text;
}

QString dateElement(qint64 published)
{
    const auto date = QDateTime::fromMSecsSinceEpoch(published, Qt::UTC).date();
    return QStringLiteral("<time datetime=\"%1\">%2</time>")
        .arg(date.toString(Qt::ISODate), QLocale::c().toString(date, QStringLiteral("d MMMM yyyy")));
}

QString byLine(const PublishedPlaylist& playlist)
{
    return QStringLiteral("by %1 · %2 · %3")
        .arg(isolated(playlist.author), extent(playlist), dateElement(playlist.published));
}

QString listAddress(const ListQuery& query)
{
    QUrlQuery parameters;
    const auto add = [&parameters](const char* name, const QString& value) {
        if (!value.isEmpty())
            parameters.addQueryItem(QLatin1String(name), QString::fromLatin1(QUrl::toPercentEncoding(value)));
    };
    add("q", query.words);
    add("tag", query.tag);
    if (query.after)
        add("before", QStringLiteral("%1-%2").arg(query.after->published).arg(query.after->id));
    const QString text = parameters.toString(QUrl::FullyEncoded);
    return QStringLiteral("/playlists/") + (text.isEmpty() ? QString() : u'?' + text);
}

QString tagList(const QStringList& tags)
{
    QString html;
    for (const auto& tag : tags)
        html += QStringLiteral("<li><a href=\"%1\">%2</a></li>")
                    .arg(escaped(listAddress({.tag = tag})), isolated(tag));
    return html.isEmpty() ? html : QStringLiteral("<ul class=\"tags\" aria-label=\"Tags\">%1</ul>").arg(html);
}

QString meta(const char* attribute, const char* name, const QString& content)
{
    return QStringLiteral("<meta %1=\"%2\" content=\"%3\">\n")
        .arg(QLatin1String(attribute), QLatin1String(name), escaped(content));
}

/// What search engines and other services show when somebody passes the link on.
QString sharingMetadata(const QString& base, const PublishedPlaylist& playlist)
{
    const QString address = playlistAddress(base, playlist);
    QString summary = playlist.description.simplified();
    if (summary.isEmpty())
        summary = QStringLiteral("A playlist by %1: %2").arg(playlist.author, extent(playlist));
    if (!playlist.artists.isEmpty())
        summary += QStringLiteral(" With %1.").arg(playlist.artists);
    if (summary.size() > longestSummary)
        summary = summary.left(longestSummary - 1).trimmed() + u'…';
    return QStringLiteral("<link rel=\"canonical\" href=\"%1\">\n").arg(escaped(address)) +
           meta("name", "description", summary) +
           meta("property", "og:type", QStringLiteral("music.playlist")) +
           meta("property", "og:site_name", QStringLiteral("Zib")) +
           meta("property", "og:title", playlist.name) + meta("property", "og:description", summary) +
           meta("property", "og:url", address) +
           meta("property", "og:image", base + QStringLiteral("/playlists/card.png")) +
           meta("property", "music:song_count", QString::number(playlist.songCount)) +
           meta("name", "twitter:card", QStringLiteral("summary")) +
           (playlist.hidden ? meta("name", "robots", QStringLiteral("noindex")) : QString());
}

/// @param head, body HTML, every value in it escaped
HttpReply page(int status, const QString& title, const QString& head, const QString& body)
{
    const QString html =
        QStringLiteral(
            "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            "<meta name=\"color-scheme\" content=\"light dark\">\n"
            "<title>%1</title>\n%2"
            "<link rel=\"icon\" href=\"/playlists/icon.svg\" type=\"image/svg+xml\">\n"
            "<link rel=\"stylesheet\" href=\"/playlists/style.css\">\n</head>\n<body>\n"
            "<a class=\"skip\" href=\"#content\">Skip to the content</a>\n"
            "<header class=\"site\"><nav aria-label=\"Site\"><a class=\"brand\" href=\"/playlists/\">"
            "<img src=\"/playlists/icon.svg\" alt=\"\" width=\"28\" height=\"28\">Zib playlists</a>"
            "</nav></header>\n<main id=\"content\" tabindex=\"-1\">\n%3</main>\n</body>\n</html>\n")
            .arg(escaped(title), head, body);
    return {.status = status,
            .contentType = "text/html; charset=utf-8",
            .body = html.toUtf8(),
            .headers = pageHeaders};
}

QString songText(const PlaylistSong& song)
{
    QString html = QStringLiteral("<span class=\"title\">%1</span>")
                       .arg(isolated(song.title.isEmpty() ? QStringLiteral("Unknown song") : song.title));
    if (!song.artist.isEmpty())
        html += QStringLiteral("<span class=\"artist\"><span class=\"unseen\">by </span>%1</span>")
                    .arg(isolated(song.artist));
    return html;
}

QString songRow(const PlaylistSong& song)
{
    const QString duration = song.seconds == 0 ? QString()
                                               : QStringLiteral("<time datetime=\"%1\">%2</time>")
                                                     .arg(machineDuration(song.seconds), clock(song.seconds));
    if (song.location.isEmpty())
        return QStringLiteral("<li><div class=\"song\"><span class=\"names\">%1"
                              "<span class=\"note\">Cannot be played here</span></span>%2</div></li>\n")
            .arg(songText(song), duration);
    return QStringLiteral("<li><button type=\"button\" class=\"song\" data-location=\"%1\">"
                          "<span class=\"names\"><span class=\"unseen\">Play </span>%2"
                          "<span class=\"note\" hidden>Cannot be played</span></span>%3</button></li>\n")
        .arg(escaped(song.location), songText(song), duration);
}

QString playerSection()
{
    return QStringLiteral("<section class=\"player\" id=\"player\" aria-label=\"Player\" hidden>\n"
                          "<div class=\"buttons\">"
                          "<button type=\"button\" id=\"previous\" aria-label=\"Previous song\">"
                          "<svg viewBox=\"0 0 20 20\" aria-hidden=\"true\"><path d=\"M5 4v12M16 4.5v11L7.5 "
                          "10z\"/></svg></button>"
                          "<button type=\"button\" id=\"play\" aria-label=\"Play\"><svg viewBox=\"0 0 20 "
                          "20\" aria-hidden=\"true\">"
                          "<path class=\"when-paused\" d=\"M6 3.5v13L16.5 10z\"/><path "
                          "class=\"when-playing\" d=\"M7 4v12M13 4v12\"/>"
                          "</svg></button>"
                          "<button type=\"button\" id=\"next\" aria-label=\"Next song\">"
                          "<svg viewBox=\"0 0 20 20\" aria-hidden=\"true\"><path d=\"M15 4v12M4 4.5v11L12.5 "
                          "10z\"/></svg></button>"
                          "</div>\n<div class=\"now\"><p id=\"now\"></p>"
                          "<div class=\"progress\"><span id=\"elapsed\">0:00</span>"
                          "<input type=\"range\" id=\"position\" min=\"0\" max=\"0\" step=\"1\" value=\"0\""
                          " aria-label=\"Position in the song\">"
                          "<span id=\"total\">–:––</span></div></div>\n"
                          "<p class=\"unseen\" role=\"status\" id=\"told\"></p>\n</section>\n");
}

QString listHeading(const ListQuery& query)
{
    if (!query.tag.isEmpty())
        return QStringLiteral("Playlists tagged %1").arg(query.tag);
    if (!query.words.isEmpty())
        return QStringLiteral("Playlists named %1").arg(query.words);
    return QStringLiteral("Playlists");
}

QString searchForm(const ListQuery& query)
{
    const QString tag =
        query.tag.isEmpty()
            ? QString()
            : QStringLiteral("<input type=\"hidden\" name=\"tag\" value=\"%1\">").arg(escaped(query.tag));
    return QStringLiteral("<form role=\"search\" action=\"/playlists/\" method=\"get\">"
                          "<label class=\"unseen\" for=\"words\">Search playlists by name</label>"
                          "<input type=\"search\" id=\"words\" name=\"q\" value=\"%1\""
                          " placeholder=\"Search by name\" maxlength=\"100\">%2"
                          "<button type=\"submit\">Search</button></form>\n")
        .arg(escaped(query.words), tag);
}

QString listEntry(const PublishedPlaylist& playlist)
{
    const QString description =
        playlist.description.isEmpty()
            ? QString()
            : QStringLiteral("<p class=\"short\">%1</p>")
                  .arg(isolated(playlist.description.simplified().left(longestSummary)));
    return QStringLiteral(
               "<li><article><h2><a href=\"%1\">%2</a></h2><p class=\"by\">%3</p>%4%5</article></li>\n")
        .arg(playlistAddress(QString(), playlist), isolated(playlist.name), byLine(playlist), description,
             tagList(playlist.tags));
}

QString paging(const ListQuery& query, const QList<PublishedPlaylist>& playlists)
{
    QString links;
    if (query.after)
        links += QStringLiteral("<a href=\"%1\">Newest playlists</a>")
                     .arg(escaped(listAddress({.words = query.words, .tag = query.tag})));
    if (playlists.size() > PlaylistStore::listLength) {
        const auto& last = playlists.at(PlaylistStore::listLength - 1);
        links += QStringLiteral("<a rel=\"next\" href=\"%1\">Older playlists</a>")
                     .arg(escaped(listAddress({query.words, query.tag, ListPlace{last.published, last.id}})));
    }
    return links.isEmpty()
               ? links
               : QStringLiteral("<nav class=\"paging\" aria-label=\"Pages\">%1</nav>\n").arg(links);
}

} // namespace

QString playlistAddress(const QString& base, const PublishedPlaylist& playlist)
{
    return QStringLiteral("%1/playlists/%2/%3")
        .arg(base, QString::number(playlist.id), addressName(playlist.name));
}

HttpReply playlistPage(const QString& base, const PublishedPlaylist& playlist,
                       const QList<PlaylistSong>& songs)
{
    QString rows;
    for (const auto& song : songs)
        rows += songRow(song);
    const QString description = playlist.description.isEmpty()
                                    ? QString()
                                    : QStringLiteral("<p class=\"description\" dir=\"auto\">%1</p>\n")
                                          .arg(escaped(playlist.description));
    const QString artists =
        playlist.artists.isEmpty()
            ? QString()
            : QStringLiteral("<p class=\"artists\">With %1</p>\n").arg(isolated(playlist.artists));
    const QString body =
        QStringLiteral(
            "<article>\n<h1 dir=\"auto\">%1</h1>\n<p class=\"by\">%2</p>\n%3%4%5"
            "<p class=\"actions\"><a class=\"action\" href=\"zib://open/playlist/%6\">Open in Zib</a></p>\n"
            "<h2 id=\"songs\">Songs</h2>\n"
            "<noscript><p>Playing here needs JavaScript; the playlist can be opened in Zib.</p></noscript>\n"
            "<ol class=\"songs\" aria-labelledby=\"songs\">\n%7</ol>\n</article>\n%8"
            "<script src=\"/playlists/player.js\"></script>\n")
            .arg(escaped(playlist.name), byLine(playlist), description, artists, tagList(playlist.tags),
                 QString::number(playlist.id), rows, playerSection());
    return page(MHD_HTTP_OK, playlist.name + QStringLiteral(" – a Zib playlist"),
                sharingMetadata(base, playlist), body);
}

HttpReply playlistListPage(const QString& base, const ListQuery& query,
                           const QList<PublishedPlaylist>& playlists)
{
    QString entries;
    for (const auto& playlist : playlists.mid(0, PlaylistStore::listLength))
        entries += listEntry(playlist);
    const bool narrowed = !query.tag.isEmpty() || !query.words.isEmpty();
    QString body = QStringLiteral("<h1>%1</h1>\n").arg(escaped(listHeading(query))) + searchForm(query);
    if (!entries.isEmpty())
        body += QStringLiteral("<ul class=\"playlists\">\n%1</ul>\n").arg(entries);
    else if (narrowed || query.after)
        body += QStringLiteral("<p>There are none. <a href=\"/playlists/\">See all playlists</a></p>\n");
    else
        body += QStringLiteral(
            "<p>Nobody has shared a playlist yet. In Zib, choose a playlist and share it.</p>\n");
    const QString head =
        QStringLiteral("<link rel=\"canonical\" href=\"%1\">\n").arg(escaped(base + listAddress(query))) +
        meta("name", "description",
             QStringLiteral("Playlists that people share with Zib, to listen to at once."));
    return page(MHD_HTTP_OK, listHeading(query) + QStringLiteral(" – Zib"), head,
                body + paging(query, playlists));
}

HttpReply playlistMessagePage(int status, const QString& title, const QString& text)
{
    return page(
        status, title + QStringLiteral(" – Zib"), {},
        QStringLiteral("<h1>%1</h1>\n<p>%2</p>\n<p><a href=\"/playlists/\">See all playlists</a></p>\n")
            .arg(escaped(title), escaped(text)));
}

std::optional<HttpReply> playlistPageFile(const QString& name, const HttpRequest& request)
{
    struct PageFile {
        QByteArray type, content, tag;
    };
    static const auto files = [] {
        initPlaylistPageFiles();
        QHash<QString, PageFile> result;
        for (const auto& [file, type] : {std::pair("style.css", "text/css; charset=utf-8"),
                                         {"player.js", "text/javascript; charset=utf-8"},
                                         {"icon.svg", "image/svg+xml"},
                                         {"card.png", "image/png"}}) {
            QFile resource(QStringLiteral(":/playlists/") + QLatin1String(file));
            if (!resource.open(QIODevice::ReadOnly))
                qFatal("the page file %s is missing in the program", file);
            const auto content = resource.readAll();
            const auto digest =
                QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex().left(16);
            result.insert(QLatin1String(file), {type, content, '"' + digest + '"'});
        }
        return result;
    }();
    const auto file = files.constFind(name);
    if (file == files.constEnd())
        return std::nullopt;
    HttpReply reply{.headers = {{"ETag", file->tag}, {"Cache-Control", "public, max-age=300"}}};
    if (request.ifNoneMatch == file->tag) {
        reply.status = MHD_HTTP_NOT_MODIFIED;
        return reply;
    }
    reply.contentType = file->type;
    reply.body = file->content;
    return reply;
}

} // namespace zib
