// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"
#include "services/InfoServiceClient.h"
#include "services/ReleaseReply.h"

namespace zib {

/// Asks the release service where and when an album came out, and for its tracks. Under way from its
/// construction on. Main thread.
class RVMusicBrainzDownloader final : public InfoServiceClient<RVMusicBrainzDownloader> {
  public:
    /// @param dict the track record; its album is asked for by its id ("MBID") when it has one, else by
    /// artist and title.
    RVMusicBrainzDownloader(const WebServices& services, const Record& dict,
                            InfoServiceDelegate<RVMusicBrainzDownloader>* delegate);

    /// For what follows see ReleaseInfo; all of it is empty before the request completes.
    [[nodiscard]] const QString& type() const { return info_.type; }
    [[nodiscard]] const QList<ReleaseEvent>& releases() const { return info_.releases; }
    [[nodiscard]] const QList<ReleaseTrack>& tracks() const { return info_.tracks; }

  private:
    void requestFinished() override;

    ReleaseInfo info_;
};

} // namespace zib
