// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/RVSongInfoDownloader.h"

#include <QObject>

#include <memory>

namespace zib {

struct ControllerContext;
class PictureDownloader;

/// The header, the ticker and the picture of the now-playing panel, and what the music-information service
/// says of the song for them. Main thread.
class NowPlayingDisplay : public QObject, public InfoServiceDelegate<RVSongInfoDownloader> {
    Q_OBJECT

  public:
    NowPlayingDisplay(ControllerContext& context, const WebServices& services);
    ~NowPlayingDisplay() override;

    /// Asks about the song in place of the one before; not when both have one artist and name.
    void request(const Record& track);
    /// Forgets what is known of the song.
    void drop();
    /// The request about the song, perhaps still under way; null for none or when it failed.
    [[nodiscard]] const RVSongInfoDownloader* current() const { return request_.get(); }

    /// Shows the song with the names that the service has for it, else with its own, and the picture of its
    /// album once that is there, else the standing-in one. While the service has not answered the picture of
    /// the song before stays, if both are from one album.
    void showSong(const Record& track);
    /// Shows that nothing plays.
    void showIdleBanner();

    void webServiceCompletedForRequest(RVSongInfoDownloader& request) override;
    void webServiceFailedForRequest(RVSongInfoDownloader& request, const ServiceError& error) override;

  Q_SIGNALS:
    /// The service has answered.
    void completed();

  private:
    void showArtwork();
    void showPicture(const QByteArray& file);
    void forgetPicture();

    ControllerContext& context_;
    WebServices services_;
    std::unique_ptr<RVSongInfoDownloader> request_;
    bool answered_ = false;
    QString song_;           ///< artist and name of the song asked about last
    QString album_;          ///< artist and album of the song asked about last
    QString pictureAddress_; ///< of the picture that is shown or on its way; empty for none
    std::unique_ptr<PictureDownloader> picture_;
};

} // namespace zib
