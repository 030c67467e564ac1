// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"
#include "services/InfoServiceClient.h"
#include "services/SongInfoReply.h"

namespace zib {

/// Asks the music-information service about one song: its album, pictures of that, tags and a description.
/// Under way from its construction on. Until it completes, artist, album and name are those of the record.
/// Main thread.
class RVSongInfoDownloader final : public InfoServiceClient<RVSongInfoDownloader> {
  public:
    /// @param dict the track record; its artist and name are asked for.
    RVSongInfoDownloader(const WebServices& services, const Record& dict,
                         InfoServiceDelegate<RVSongInfoDownloader>* delegate);

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

    SongInfo info_;
};

} // namespace zib
