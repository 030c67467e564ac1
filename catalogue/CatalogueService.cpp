// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueService.h"

#include "catalogue/ArtistRanking.h"
#include "catalogue/Pages.h"

#include <microhttpd.h>

#include <QLoggingCategory>

namespace zib {

namespace {

Q_LOGGING_CATEGORY(log, "zib.catalogue")

Q_LOGGING_CATEGORY(requestLog, "zib.catalogue.requests")

constexpr unsigned answeringThreads = 4;
constexpr qsizetype longestLoggedPath = 200;

/// What follows the prefix in the path, or nothing when the path begins otherwise.
std::optional<QString> after(QLatin1String prefix, const QString& path)
{
    return path.startsWith(prefix) ? std::optional(path.mid(prefix.size())) : std::nullopt;
}

void logUpdate(const SongIndex::Update& update)
{
    if (update.read > 0 || update.removed > 0)
        qCInfo(log).noquote() << QStringLiteral("indexed: %1 files read, %2 of them no songs, %3 gone")
                                     .arg(update.read)
                                     .arg(update.unplayable)
                                     .arg(update.removed);
}

/// One line: who, what without the query, status, bytes, milliseconds. Nothing that a client chose can begin
/// another line.
void logRequest(const HttpHandler::Served& request)
{
    QByteArray path = request.path.left(longestLoggedPath);
    for (auto& byte : path) {
        if (byte <= ' ' || byte > '~')
            byte = '?';
    }
    qCInfo(requestLog, "%s %s %s %d %lld %.1f", request.peer.constData(), request.method.constData(),
           path.constData(), request.status, static_cast<long long>(request.replySize),
           double(request.duration.count()) / 1000);
}

} // namespace

CatalogueService::CatalogueService(DemoSongs& demo, const Database& database, CoverProcess pictures,
                                   PlayCounts::Clock clock)
    : index_(database)
    , plays_(database, std::move(clock))
    , catalogue_(demo, index_, plays_)
    , albums_(catalogue_, index_)
    , pictures_(catalogue_, albums_, index_)
    , artists_(catalogue_)
    , profiles_(catalogue_, pictures_)
    , artistInfo_(catalogue_, albums_, pictures_)
    , albumInfo_(catalogue_, albums_, pictures_)
    , trackInfo_(catalogue_, albums_, pictures_)
    , lyrics_(catalogue_)
    , releases_(catalogue_, albums_)
    , covers_(std::move(pictures))
    , files_(demo, catalogue_, index_, covers_, plays_)
    , answering_(answeringThreads)
{
}

void CatalogueService::keepIndexed(const QList<QByteArray>& folders,
                                   std::function<std::unique_ptr<TagReader>(std::stop_token)> makeReader,
                                   std::chrono::seconds pause)
{
    index_.keepOnly(folders);
    if (folders.isEmpty())
        return;
    indexing_ =
        std::jthread([this, folders, makeReader = std::move(makeReader), pause](const std::stop_token& stop) {
            std::mutex mutex;
            std::condition_variable_any wake;
            while (!stop.stop_requested()) {
                const auto reader = makeReader(stop);
                logUpdate(index_.update(
                    folders, *reader,
                    [](int done, int total) {
                        qCInfo(log).noquote()
                            << QStringLiteral("indexing: %1 of %2 files").arg(done).arg(total);
                    },
                    stop));
                std::unique_lock lock(mutex);
                wake.wait_for(lock, stop, pause, [] { return false; });
            }
        });
}

void CatalogueService::offerPlaylists(PlaylistService playlists, int perMinute)
{
    playlists_.emplace(std::move(playlists));
    playlistRate_ = std::make_unique<RateLimit>(perMinute);
}

std::optional<HttpReply> CatalogueService::refusal(const HttpRequest& head)
{
    if (head.method == "POST" && !(playlists_ && PlaylistService::takesPosts(head.path)))
        return plainReply(MHD_HTTP_METHOD_NOT_ALLOWED);
    const int cost = PlaylistService::cost(head);
    const auto wait =
        cost > 0 && playlistRate_ ? playlistRate_->spend(head.peer, cost) : std::chrono::seconds(0);
    if (wait.count() == 0)
        return std::nullopt;
    HttpReply reply = plainReply(MHD_HTTP_TOO_MANY_REQUESTS);
    reply.body = "The playlist service was asked too often from your address. Try again in a minute.\n";
    reply.headers.emplaceBack("Retry-After", QByteArray::number(qint64(wait.count())));
    return reply;
}

void CatalogueService::served(const Served& request)
{
    metrics_.countRequest(request.status, request.replySize, request.duration);
    logRequest(request);
}

void CatalogueService::answer(const HttpRequest& request, Respond respond)
{
    answering_.start([this, request, respond = std::move(respond)] { answerNow(request, respond); });
}

void CatalogueService::answerNow(const HttpRequest& request, const Respond& respond)
{
    if (const auto name = after(QLatin1String("/audio/"), request.path))
        return files_.answerAudio(*name, request, respond);
    if (const auto id = after(QLatin1String("/cover/"), request.path))
        return files_.answerCover(*id, request, respond);
    if (const auto name = after(QLatin1String("/picture/"), request.path))
        return files_.answerPicture(*name, request, respond);
    respond(answeredPage(request));
}

HttpReply CatalogueService::answeredPage(const HttpRequest& request)
{
    if (auto reply = answeredService(request))
        return *reply;
    if (auto reply = answeredPlaylists(request))
        return *reply;
    if (auto reply = answeredMonitor(request))
        return *reply;
    if (auto reply = readablePage(request))
        return *reply;
    return plainReply(MHD_HTTP_NOT_FOUND);
}

std::optional<HttpReply> CatalogueService::answeredService(const HttpRequest& request) const
{
    if (request.path == u"/api/v4/artist/profile")
        return profiles_.answer(request);
    if (const auto method = after(QLatin1String("/api/v4/artist/"), request.path))
        return artists_.answer(*method, request);
    if (request.path == u"/2.0/")
        return answeredInfo(request);
    if (request.path == u"/apiv1.asmx/SearchLyricDirect")
        return lyrics_.answer(request);
    if (const auto id = after(QLatin1String("/ws/1/release/"), request.path))
        return releases_.answer(*id, request);
    return std::nullopt;
}

std::optional<HttpReply> CatalogueService::answeredPlaylists(const HttpRequest& request)
{
    if (!playlists_)
        return std::nullopt;
    if (const auto page = after(QLatin1String("/playlists/"), request.path))
        return playlists_->answer(*page, request, metrics_);
    return request.path == u"/playlists" ? std::optional(redirectReply("/playlists/")) : std::nullopt;
}

std::optional<HttpReply> CatalogueService::answeredMonitor(const HttpRequest& request) const
{
    HttpReply reply{.contentType = "text/plain; charset=utf-8", .headers = {{"Cache-Control", "no-store"}}};
    if (request.path == u"/health") {
        const bool well = !playlists_ || playlists_->isAvailable();
        reply.status = well ? MHD_HTTP_OK : MHD_HTTP_SERVICE_UNAVAILABLE;
        reply.body = well ? "ok\n" : "the database of the playlists does not answer\n";
        return reply;
    }
    if (request.path == u"/metrics" && isLoopback(request.peer)) {
        reply.contentType = "text/plain; version=0.0.4; charset=utf-8";
        reply.body = metrics_.text();
        return reply;
    }
    return std::nullopt;
}

std::optional<HttpReply> CatalogueService::answeredInfo(const HttpRequest& request) const
{
    const auto method = request.parameter(u"method");
    if (method == QStringLiteral("artist.getinfo"))
        return artistInfo_.answer(request);
    if (method == QStringLiteral("album.getinfo"))
        return albumInfo_.answer(request);
    if (method == QStringLiteral("track.getinfo"))
        return trackInfo_.answer(request);
    return std::nullopt;
}

std::optional<HttpReply> CatalogueService::readablePage(const HttpRequest& request) const
{
    const QString base = request.base();
    if (const auto id = after(QLatin1String("/song/"), request.path)) {
        if (const auto song = catalogue_.song(*id))
            return songPage(*song, base);
    } else if (const auto name = after(QLatin1String("/music/"), request.path)) {
        if (const auto artist = catalogue_.artistNamed(*name, false))
            return artistPage(*artist, artistInfo_.biography(*artist, base), pictures_.all(artist->key, base),
                              albums_.albums(artist->key), base);
    } else if (const auto tag = after(QLatin1String("/tag/"), request.path)) {
        return tagPage(*tag, artistsTagged(*catalogue_.artists(), {*tag}, false, TagOrder::Hotness), base);
    } else if (const auto article = after(QLatin1String("/article/"), request.path)) {
        for (const auto& artist : catalogue_.demoArtists())
            for (const auto& each : artist.articles)
                if (each.id == *article)
                    return articlePage(each, artist.name, base);
    } else if (request.path == u"/") {
        return frontPage(base, int(catalogue_.artists()->size()), catalogue_.songCount());
    }
    return std::nullopt;
}

} // namespace zib
