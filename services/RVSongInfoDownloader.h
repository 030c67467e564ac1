// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"
#include "services/SongInfoReply.h"
#include "services/WebServiceClient.h"

namespace zib {

class RVSongInfoDownloader;

/// Told once how a request for a song's information ended, on the main thread; the client may be destroyed
/// from within the call. webServiceFailedForRequest can come from within the client's constructor, before
/// anybody owns the client.
class RVSongInfoDownloaderDelegate {
  public:
    virtual ~RVSongInfoDownloaderDelegate() = default;
    virtual void webServiceCompletedForRequest(RVSongInfoDownloader& /*request*/) {}
    /// @param error its text is for people.
    virtual void webServiceFailedForRequest(RVSongInfoDownloader& /*request*/, const ServiceError& /*error*/)
    {
    }
};

/// Asks the music-information service about one song: its album, pictures of that, tags and a description.
/// Under way from its construction on. Until it completes, artist, album and name are those of the record.
/// The delegate may be null and outlives the client. Main thread.
class RVSongInfoDownloader final : public WebServiceClient {
  public:
    /// @param dict the track record; its artist and name are asked for.
    RVSongInfoDownloader(const WebServices& services, const Record& dict,
                         RVSongInfoDownloaderDelegate* delegate);

    [[nodiscard]] QString artist() const { return info_.artist.value_or(QString()); }
    [[nodiscard]] QString album() const { return info_.album.value_or(QString()); }
    [[nodiscard]] QString name() const { return info_.name.value_or(QString()); }
    /// For what follows see SongInfo.
    [[nodiscard]] const QString& wiki() const { return info_.wiki; }
    [[nodiscard]] QString mbid() const { return info_.mbid.value_or(QString()); }
    [[nodiscard]] const QString& artwork() const { return info_.artwork; }
    [[nodiscard]] const QString& artworkLarge() const { return info_.artworkLarge; }
    [[nodiscard]] const QStringList& tags() const { return info_.tags; }

  private:
    void requestFinished() override;
    void requestFailed(const ServiceError& error) override;

    RVSongInfoDownloaderDelegate* delegate_;
    SongInfo info_;
};

} // namespace zib
