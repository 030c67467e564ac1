// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/AlbumInfoService.h"
#include "catalogue/ArtistInfoService.h"
#include "catalogue/ArtistService.h"
#include "catalogue/HttpServer.h"
#include "catalogue/LyricsService.h"
#include "catalogue/ProfileService.h"
#include "catalogue/RateLimit.h"
#include "catalogue/ReleaseService.h"
#include "catalogue/ServiceMetrics.h"
#include "catalogue/SongFiles.h"
#include "catalogue/TrackInfoService.h"
#include "catalogue/WorkerPool.h"
#include "catalogue/playlists/PlaylistService.h"

#include <chrono>
#include <condition_variable>
#include <thread>

namespace zib {

/// The whole service: says which part answers which address, and keeps the index up to date.
class CatalogueService final : public HttpHandler {
  public:
    /// @param demo must outlive the service, and is to be stopped before it goes: requests may wait for it
    /// @param pictures reads the covers within the user's own files
    /// @param clock tells when songs are played
    CatalogueService(DemoSongs& demo, const Database& database, CoverProcess pictures = CoverProcess({}),
                     PlayCounts::Clock clock = PlayCounts::systemClock());

    /// Indexes these folders in the background, now and again after each pause.
    /// @param makeReader called on the indexing thread
    void keepIndexed(const QList<QByteArray>& folders,
                     std::function<std::unique_ptr<TagReader>(std::stop_token)> makeReader,
                     std::chrono::seconds pause);

    /// Publishes and shows playlists from now on. To be told before the first request.
    /// @param perMinute what each address may spend on them: a page costs 1, publishing 20; 0 bounds nothing
    void offerPlaylists(PlaylistService playlists, int perMinute);

    std::optional<HttpReply> refusal(const HttpRequest& head) override;
    void answer(const HttpRequest& request, Respond respond) override;
    void served(const Served& request) override;

    [[nodiscard]] const SongIndex& index() const { return index_; }

  private:
    void answerNow(const HttpRequest& request, const Respond& respond);
    HttpReply answeredPage(const HttpRequest& request);
    [[nodiscard]] std::optional<HttpReply> answeredService(const HttpRequest& request) const;
    [[nodiscard]] std::optional<HttpReply> answeredInfo(const HttpRequest& request) const;
    [[nodiscard]] std::optional<HttpReply> readablePage(const HttpRequest& request) const;
    std::optional<HttpReply> answeredPlaylists(const HttpRequest& request);
    [[nodiscard]] std::optional<HttpReply> answeredMonitor(const HttpRequest& request) const;

    SongIndex index_;
    PlayCounts plays_;
    MusicCatalogue catalogue_;
    AlbumCatalogue albums_;
    ArtistPictures pictures_;
    ArtistService artists_;
    ProfileService profiles_;
    ArtistInfoService artistInfo_;
    AlbumInfoService albumInfo_;
    TrackInfoService trackInfo_;
    LyricsService lyrics_;
    ReleaseService releases_;
    SongCovers covers_;
    SongFiles files_;
    std::optional<PlaylistService> playlists_;
    std::unique_ptr<RateLimit> playlistRate_;
    ServiceMetrics metrics_;
    WorkerPool answering_;
    std::jthread indexing_;
};

} // namespace zib
