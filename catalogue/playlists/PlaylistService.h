// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/HttpMessage.h"
#include "catalogue/ServiceMetrics.h"
#include "catalogue/playlists/ListPages.h"
#include "catalogue/playlists/PlaylistReading.h"
#include "catalogue/playlists/PlaylistStore.h"

namespace zib {

/// Publishes playlists, gives them back, and shows them as pages. Any thread.
class PlaylistService {
  public:
    /// @param publicUrl what the public addresses of the pages begin with, "https://HOST"; when it is empty,
    /// the name by which the request has called the service
    PlaylistService(PlaylistStore store, PlaylistReading reading, QString publicUrl = {})
        : store_(std::move(store))
        , reading_(std::move(reading))
        , publicUrl_(std::move(publicUrl))
    {
    }

    /// Whether that is an address to which playlists are posted.
    static bool takesPosts(const QString& path);
    /// What a request to that address costs a client, of what it may spend; 0 when it is no address of ours.
    static int cost(const HttpRequest& head);

    /// @param path what follows "/playlists/"
    HttpReply answer(const QString& path, const HttpRequest& request, ServiceMetrics& metrics);

    [[nodiscard]] bool isAvailable() const { return store_.isAvailable(); }

  private:
    HttpReply published(const HttpRequest& request, ServiceMetrics& metrics);
    HttpReply givenBack(const HttpRequest& request) const;
    HttpReply shown(const QString& path, const HttpRequest& request) const;
    HttpReply listed(const HttpRequest& request) const;
    [[nodiscard]] QString base(const HttpRequest& request) const;

    PlaylistStore store_;
    const PlaylistReading reading_;
    const QString publicUrl_;
    std::unique_ptr<ListPages> listPages_ = std::make_unique<ListPages>();
};

} // namespace zib
