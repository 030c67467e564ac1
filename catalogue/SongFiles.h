// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/HttpServer.h"
#include "catalogue/MusicCatalogue.h"
#include "catalogue/PlayCounts.h"
#include "catalogue/SongCovers.h"
#include "catalogue/WorkerPool.h"

#include <QHash>

#include <mutex>

namespace zib {

/// Serves the audio files and covers by the song's id, never by a path. A demo song that is still to be
/// rendered keeps only the requests for that song waiting.
class SongFiles {
  public:
    /// Its end waits for the requests at work: stop the demo songs first.
    SongFiles(DemoSongs& demo, const MusicCatalogue& catalogue, const SongIndex& index,
              const SongCovers& covers, PlayCounts& plays);

    /// @param name "ID.EXTENSION". Blocks for the index at most, so not for a server's thread.
    void answerAudio(const QString& name, const HttpRequest& request, const HttpHandler::Respond& respond);
    void answerCover(const QString& songId, const HttpRequest& request, const HttpHandler::Respond& respond);
    /// @param name "ID-NUMBER.jpg" or "ID-NUMBER-tile.jpg" of an artist's picture
    void answerPicture(const QString& name, const HttpRequest& request, const HttpHandler::Respond& respond);

  private:
    /// Answers with the song's file; from its beginning on, that is a play.
    void send(const CatalogueSong& song, const QByteArray& path, const HttpRequest& request,
              const HttpHandler::Respond& respond);

    /// Called with the path, or with nothing when the file cannot be made.
    using Ready = std::function<void(const std::optional<QString>&)>;

    using Render = std::function<std::optional<QString>()>;

    /// @param what tells the file from all others
    void whenRendered(const QString& what, Render render, Ready ready);

    DemoSongs& demo_;
    const MusicCatalogue& catalogue_;
    const SongIndex& index_;
    const SongCovers& covers_;
    PlayCounts& plays_;

    std::mutex mutex_;                     ///< guards what follows
    QHash<QString, QList<Ready>> waiting_; ///< one thread renders for all who wait for the same file
    WorkerPool renderings_;                ///< last: its threads use all of the above
};

} // namespace zib
