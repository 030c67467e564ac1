// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/InfoServiceClient.h"
#include "services/ProfileReply.h"

namespace zib {

/// Asks the song-search service for the profile of an artist: what the web has about it. Under way from its
/// construction on; it fails when the service does not know the artist. Main thread.
class RVDataDownloader final : public InfoServiceClient<RVDataDownloader> {
  public:
    RVDataDownloader(const WebServices& services, const QString& artist,
                     InfoServiceDelegate<RVDataDownloader>* delegate);

    /// For what follows see ArtistProfile; all of it is empty before the request completes.
    [[nodiscard]] const QString& hotness() const { return profile_.hotness; }
    [[nodiscard]] const QString& familiarity() const { return profile_.familiarity; }
    [[nodiscard]] const QList<WebArticle>& blogs() const { return profile_.blogs; }
    [[nodiscard]] const QList<WebArticle>& news() const { return profile_.news; }
    [[nodiscard]] const QList<WebArticle>& reviews() const { return profile_.reviews; }
    [[nodiscard]] const QList<WebVideo>& videos() const { return profile_.videos; }
    [[nodiscard]] const QStringList& images() const { return profile_.images; }
    [[nodiscard]] const QStringList& tags() const { return profile_.tags; }
    [[nodiscard]] const QList<ArtistLink>& links() const { return profile_.links; }

  private:
    void requestFinished() override;
    void logFailedConnection(const QString& description) const override;

    QString artist_;
    ArtistProfile profile_;
};

} // namespace zib
