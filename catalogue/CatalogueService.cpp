// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueService.h"

#include "catalogue/Pages.h"

#include <microhttpd.h>

#include <QLoggingCategory>

namespace zib {

namespace {

Q_LOGGING_CATEGORY(log, "zib.catalogue")

constexpr unsigned answeringThreads = 4;

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

} // namespace

CatalogueService::CatalogueService(DemoSongs& demo, Database database, CoverProcess pictures)
    : index_(std::move(database))
    , catalogue_(demo, index_)
    , artists_(catalogue_)
    , covers_(std::move(pictures))
    , tracks_(catalogue_, index_, covers_)
    , files_(demo, catalogue_, index_, covers_)
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
    respond(answeredPage(request));
}

HttpReply CatalogueService::answeredPage(const HttpRequest& request) const
{
    if (const auto method = after(QLatin1String("/api/v4/artist/"), request.path)) {
        if (auto reply = artists_.answer(*method, request))
            return *reply;
    } else if (request.path == u"/2.0/") {
        if (auto reply = tracks_.answer(request))
            return *reply;
    } else if (const auto id = after(QLatin1String("/song/"), request.path)) {
        if (const auto song = catalogue_.song(*id))
            return songPage(*song);
    } else if (request.path == u"/") {
        return frontPage(QStringLiteral("http://") + QString::fromLatin1(request.host),
                         int(catalogue_.artists()->size()), catalogue_.songCount());
    } else if (request.path == u"/health") {
        return {.contentType = "text/plain; charset=utf-8",
                .body = "ok\n",
                .headers = {{"Cache-Control", "no-store"}}};
    }
    return plainReply(MHD_HTTP_NOT_FOUND);
}

} // namespace zib
