// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"
#include "services/WebServiceClient.h"

namespace zib {

class RVLyricsDownloader;

/// Told once how a request for lyrics ended, on the main thread; the client may be destroyed from within the
/// call. lyricsServiceFailedForRequest can come from within the client's constructor, before anybody owns the
/// client.
class LyricsServiceDelegate {
  public:
    virtual ~LyricsServiceDelegate() = default;
    virtual void lyricsServiceCompletedForRequest(RVLyricsDownloader& /*request*/) {}
    /// There was no reply, or none about that song.
    virtual void lyricsServiceFailedForRequest(RVLyricsDownloader& /*request*/) {}
};

/// Asks the lyrics service for the text of a song, which is taken only when the reply names that artist and
/// song. Under way from its construction on. The delegate may be null and outlives the client. Main thread.
class RVLyricsDownloader final : public WebServiceClient {
  public:
    /// @param dict the track record; its artist and name are asked for.
    RVLyricsDownloader(const WebServices& services, const Record& dict, LyricsServiceDelegate* delegate);

    [[nodiscard]] const QString& artist() const { return artist_; }
    [[nodiscard]] const QString& title() const { return title_; }
    /// Plain text in lines; empty before the request completes, and for a song without words.
    [[nodiscard]] const QString& lyrics() const { return lyrics_; }

  private:
    void requestFinished() override;
    void requestFailed(const ServiceError& error) override;
    void reportFailure();

    LyricsServiceDelegate* delegate_;
    QString artist_;
    QString title_;
    QString lyrics_;
    QByteArray address_;
};

} // namespace zib
