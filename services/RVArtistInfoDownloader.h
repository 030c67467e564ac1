// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/ArtistInfoReply.h"
#include "services/InfoServiceClient.h"

namespace zib {

/// Asks the music-information service about an artist. Under way from its construction on. Main thread.
class RVArtistInfoDownloader final : public InfoServiceClient<RVArtistInfoDownloader> {
  public:
    RVArtistInfoDownloader(const WebServices& services, const QString& artist,
                           InfoServiceDelegate<RVArtistInfoDownloader>* delegate);

    /// The name asked for, later the one that the service has.
    [[nodiscard]] const QString& name() const { return info_.name; }
    /// HTML as the service sends it, perhaps empty.
    [[nodiscard]] const QString& bio() const { return info_.bio; }
    [[nodiscard]] const QList<SimilarArtist>& similar() const { return info_.similar; }

  private:
    void requestFinished() override;

    ArtistInfo info_;
};

} // namespace zib
