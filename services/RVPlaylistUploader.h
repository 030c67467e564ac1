// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"
#include "services/WebServiceClient.h"

namespace zib {

class RVPlaylistUploader;

/// Told once how an upload ended, on the main thread; the client may be destroyed from within the call.
/// uploadFailedWithError can come from within the client's constructor, before anybody owns the client.
class RVPlaylistUploaderDelegate {
  public:
    virtual ~RVPlaylistUploaderDelegate() = default;
    /// @param result the service's whole reply: "OK", the playlist's number, its public name.
    virtual void uploadCompletedWithResult(const QString& /*result*/, RVPlaylistUploader& /*request*/) {}
    /// @param error for people.
    virtual void uploadFailedWithError(const QString& /*error*/, RVPlaylistUploader& /*request*/) {}
};

/// Publishes one playlist at the playlist service. Under way from its construction on. The delegate outlives
/// the client. Main thread.
class RVPlaylistUploader final : public WebServiceClient {
  public:
    /// @param dict the playlist with its "Tracks" as records; one with an "ID" replaces what was published
    /// under that.
    /// @param tag whatever the caller wants to know the request by.
    RVPlaylistUploader(const WebServices& services, const Record& dict, RVPlaylistUploaderDelegate& delegate,
                       int tag = 0);

    /// The playlist's "ID"; 0 without.
    [[nodiscard]] qint32 uid() const { return uid_; }
    [[nodiscard]] int tag() const { return tag_; }

  private:
    void requestFinished() override;
    void requestFailed(const ServiceError& error) override;

    RVPlaylistUploaderDelegate& delegate_;
    qint32 uid_;
    int tag_;
};

/// The form that publishes that playlist. Its values stand in it as they are, unescaped, and "description"
/// stands in it twice: the service reads the later one, which tells the artists too.
QByteArray playlistForm(const Record& playlist, bool isPublic);

/// Up to five different artists of the songs, for people. One whose name ends a name before it is left out.
QString artistSummary(const QList<Record>& tracks);

} // namespace zib
