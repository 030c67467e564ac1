// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/playlists/PlaylistService.h"

#include "catalogue/playlists/PlaylistPages.h"

#include <microhttpd.h>

#include <QDateTime>

namespace zib {

namespace {

const QLatin1String folder("/playlists/");
const QLatin1String addPage("addplaylist.php");
const QLatin1String getPage("getplaylist.php");
constexpr int readingCost = 1;
constexpr int publishingCost = 20;
constexpr qsizetype longestQuery = 200;

HttpReply told(int status, const QString& text)
{
    return {.status = status,
            .contentType = "text/plain; charset=utf-8",
            .body = text.toUtf8(),
            .headers = {{"Cache-Control", "no-store"}}};
}

HttpReply notAvailable()
{
    return told(MHD_HTTP_SERVICE_UNAVAILABLE,
                QStringLiteral("The playlist service cannot reach its database. Try again later."));
}

/// The number of a publication; 0 for whatever else stands there.
int idOf(QStringView text)
{
    bool valid = false;
    const int id = text.toInt(&valid);
    return valid && id > 0 ? id : 0;
}

std::optional<ListPlace> listPlace(const QString& text)
{
    const auto dash = text.indexOf(u'-');
    bool valid = false;
    const qint64 published = text.left(dash).toLongLong(&valid);
    const int id = dash < 0 ? 0 : idOf(QStringView(text).sliced(dash + 1));
    return valid && id != 0 ? std::optional(ListPlace{published, id}) : std::nullopt;
}

} // namespace

bool PlaylistService::takesPosts(const QString& path)
{
    return path.startsWith(folder) && QStringView(path).sliced(folder.size()) == addPage;
}

int PlaylistService::cost(const HttpRequest& head)
{
    if (!head.path.startsWith(folder))
        return 0;
    return head.method == "POST" ? publishingCost : readingCost;
}

HttpReply PlaylistService::answer(const QString& path, const HttpRequest& request, ServiceMetrics& metrics)
{
    if (path == addPage) {
        if (request.method == "POST")
            return published(request, metrics);
        auto reply = plainReply(MHD_HTTP_METHOD_NOT_ALLOWED);
        reply.headers = {{"Allow", "POST"}};
        return reply;
    }
    if (path == getPage)
        return givenBack(request);
    if (path.isEmpty())
        return listed(request);
    if (auto file = playlistPageFile(path, request))
        return std::move(*file);
    return shown(path, request);
}

HttpReply PlaylistService::published(const HttpRequest& request, ServiceMetrics& metrics)
{
    const auto refused = [&metrics](int status, const QString& text) {
        metrics.countPublication(false);
        return told(status, text);
    };
    const auto form = parsedPlaylistForm(request.body);
    if (!form)
        return refused(MHD_HTTP_BAD_REQUEST, form.error());
    const auto songs = reading_.songs(form->archive);
    if (!songs)
        return refused(MHD_HTTP_BAD_REQUEST, songs.error());
    const auto id = store_.publish(*form, *songs, QDateTime::currentMSecsSinceEpoch());
    if (!id && id.error() == StoreError::NotYours)
        return refused(MHD_HTTP_FORBIDDEN,
                       QStringLiteral("This playlist was shared by somebody else or is no "
                                      "longer there, so it cannot be replaced."));
    if (!id)
        return notAvailable();
    metrics.countPublication(true);
    return told(MHD_HTTP_OK, QStringLiteral("OK %1 %2").arg(*id).arg(addressName(form->name)));
}

HttpReply PlaylistService::givenBack(const HttpRequest& request) const
{
    const int id = idOf(request.parameter(u"id").value_or(QString()));
    const auto archive = id == 0 ? std::optional<QByteArray>() : store_.archive(id);
    if (!archive)
        return notAvailable();
    if (!*archive)
        return told(MHD_HTTP_NOT_FOUND, QStringLiteral("There is no such playlist."));
    HttpReply reply = told(MHD_HTTP_OK, {});
    reply.body = (*archive)->toBase64();
    return reply;
}

HttpReply PlaylistService::shown(const QString& path, const HttpRequest& request) const
{
    const auto nothing = [] {
        return playlistMessagePage(MHD_HTTP_NOT_FOUND, QStringLiteral("No such playlist"),
                                   QStringLiteral("It was never shared, or the link is not complete."));
    };
    const auto slash = path.indexOf(u'/');
    const int id = idOf(QStringView(path).first(slash < 0 ? path.size() : slash));
    if (id == 0)
        return nothing();
    const auto playlist = store_.playlist(id);
    const auto songs = store_.songs(id);
    if (!playlist || !songs)
        return playlistMessagePage(MHD_HTTP_SERVICE_UNAVAILABLE, QStringLiteral("Not available now"),
                                   QStringLiteral("The playlists cannot be reached. Try again later."));
    if (!*playlist)
        return nothing();
    const QString address = playlistAddress(QString(), **playlist);
    if (request.path != address) // a renamed playlist keeps its old links
        return redirectReply(address.toLatin1());
    return playlistPage(base(request), **playlist, *songs);
}

HttpReply PlaylistService::listed(const HttpRequest& request) const
{
    const auto text = [&request](QStringView name) {
        return request.parameter(name).value_or(QString()).simplified().left(longestQuery);
    };
    const QStringList asked{base(request), text(u"q"), text(u"tag"), text(u"before")};
    const QString key = asked.join(u'\n'); // none of them has a line end
    const auto changes = store_.changes();
    if (changes) {
        if (auto page = listPages_->page(key, *changes))
            return std::move(*page);
    }
    const ListQuery query{.words = asked.at(1), .tag = asked.at(2), .after = listPlace(asked.at(3))};
    const auto playlists = changes ? store_.list(query) : tl::unexpected(changes.error());
    if (!playlists)
        return playlistMessagePage(MHD_HTTP_SERVICE_UNAVAILABLE, QStringLiteral("Not available now"),
                                   QStringLiteral("The playlists cannot be reached. Try again later."));
    auto page = playlistListPage(base(request), query, *playlists);
    listPages_->keep(key, *changes, page);
    return page;
}

QString PlaylistService::base(const HttpRequest& request) const
{
    return publicUrl_.isEmpty() ? request.base() : publicUrl_;
}

} // namespace zib
