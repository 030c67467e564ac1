// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SongFiles.h"

#include "catalogue/SongPictures.h"
#include "catalogue/TextMatching.h"

#include <microhttpd.h>

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace zib {

namespace {

/// As many files as may be waited for at once; threads that wait cost little.
constexpr unsigned mostRenderings = 128;

HttpReply openedReply(const HttpRequest& request, const QByteArray& path, const QByteArray& type)
{
    auto file = OpenFile::open(path);
    return file ? fileReply(request, std::move(file), type) : plainReply(MHD_HTTP_NOT_FOUND);
}

HttpReply notRendered()
{
    auto reply = plainReply(MHD_HTTP_SERVICE_UNAVAILABLE);
    reply.headers.emplaceBack("Retry-After", "10");
    return reply;
}

} // namespace

SongFiles::SongFiles(DemoSongs& demo, const MusicCatalogue& catalogue, const SongIndex& index,
                     const SongCovers& covers, PlayCounts& plays)
    : demo_(demo)
    , catalogue_(catalogue)
    , index_(index)
    , covers_(covers)
    , plays_(plays)
    , renderings_(mostRenderings)
{
}

void SongFiles::answerAudio(const QString& name, const HttpRequest& request,
                            const HttpHandler::Respond& respond)
{
    const auto dot = name.indexOf(u'.');
    const auto song = dot < 0 ? std::nullopt : catalogue_.song(name.left(dot));
    if (!song || name.mid(dot + 1) != song->extension)
        return respond(plainReply(MHD_HTTP_NOT_FOUND));
    if (song->isDemo) {
        whenRendered(
            u'a' + song->id, [this, id = song->id] { return demo_.file(id); },
            [this, request, respond, song = *song](const auto& path) {
                if (path)
                    send(song, QFile::encodeName(*path), request, respond);
                else
                    respond(notRendered());
            });
    } else {
        const auto own = index_.song(song->id); // it may have gone in between
        if (own)
            send(*song, own->path, request, respond);
        else
            respond(plainReply(MHD_HTTP_NOT_FOUND));
    }
}

void SongFiles::send(const CatalogueSong& song, const QByteArray& path, const HttpRequest& request,
                     const HttpHandler::Respond& respond)
{
    auto reply = openedReply(request, path, song.mediaType);
    if (request.method == "GET" && reply.file && reply.offset == 0)
        plays_.count(request.peer, song.id, folded(song.artist));
    respond(std::move(reply));
}

void SongFiles::answerCover(const QString& songId, const HttpRequest& request,
                            const HttpHandler::Respond& respond)
{
    const auto song = catalogue_.song(songId);
    if (!song)
        return respond(plainReply(MHD_HTTP_NOT_FOUND));
    if (!song->isDemo) {
        const auto own = index_.song(song->id);
        const QByteArray picture = own ? covers_.cover(*own) : QByteArray();
        return respond(picture.isEmpty() ? plainReply(MHD_HTTP_NOT_FOUND)
                                         : HttpReply{.contentType = pictureType(picture), .body = picture});
    }
    whenRendered(
        u'c' + song->id, [this, id = song->id] { return demo_.cover(id); },
        [request, respond](const auto& path) {
            if (!path)
                return respond(notRendered());
            const bool png = path->endsWith(u".png");
            respond(openedReply(request, QFile::encodeName(*path), png ? "image/png" : "image/jpeg"));
        });
}

void SongFiles::answerPicture(const QString& name, const HttpRequest& request,
                              const HttpHandler::Respond& respond)
{
    static const QRegularExpression form(QStringLiteral(R"(\A([0-9a-f]{32})-([1-9]\d?)(-tile)?\.jpg\z)"));
    const auto match = form.match(name);
    const QString id = match.captured(1);
    const int number = match.captured(2).toInt();
    const auto size = match.captured(3).isEmpty() ? PictureSize::Whole : PictureSize::Tile;
    const bool known =
        match.hasMatch() && std::ranges::any_of(demo_.artists(), [&id, number](const DemoArtist& artist) {
            return artist.pictureId == id && number <= artist.pictures;
        });
    if (!known)
        return respond(plainReply(MHD_HTTP_NOT_FOUND));
    whenRendered(
        u'p' + name, [this, id, number, size] { return demo_.picture(id, number, size); },
        [request, respond](const auto& path) {
            respond(path ? openedReply(request, QFile::encodeName(*path), "image/jpeg") : notRendered());
        });
}

void SongFiles::whenRendered(const QString& what, Render render, Ready ready)
{
    {
        const std::lock_guard lock(mutex_);
        auto& waiting = waiting_[what];
        waiting.append(std::move(ready));
        if (waiting.size() > 1)
            return;
    }
    renderings_.start([this, what, render = std::move(render)] {
        const auto path = render();
        QList<Ready> waiting;
        {
            const std::lock_guard lock(mutex_);
            waiting = waiting_.take(what);
        }
        for (const auto& each : waiting)
            each(path);
    });
}

} // namespace zib
