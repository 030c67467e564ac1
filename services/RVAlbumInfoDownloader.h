// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"
#include "services/AlbumInfoReply.h"
#include "services/InfoServiceClient.h"

namespace zib {

/// Asks the music-information service about an album. Under way from its construction on. Main thread.
class RVAlbumInfoDownloader final : public InfoServiceClient<RVAlbumInfoDownloader> {
  public:
    /// @param dict the track record; its artist and album are asked for.
    RVAlbumInfoDownloader(const WebServices& services, const Record& dict,
                          InfoServiceDelegate<RVAlbumInfoDownloader>* delegate);

    /// The title asked for, later the one that the service has.
    [[nodiscard]] const QString& name() const { return info_.name; }
    /// Of the cover; empty when there is none.
    [[nodiscard]] const QUrl& url() const { return info_.url; }
    /// HTML as the service sends it; empty when there is none.
    [[nodiscard]] const QString& wiki() const { return info_.wiki; }

  private:
    void requestFinished() override;

    AlbumInfo info_;
};

} // namespace zib
