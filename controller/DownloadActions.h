// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace zib {

struct ControllerContext;
class PlaybackQueue;
class SongDownloads;

/// What the download buttons do: of the song now playing, and of the rows. Main thread.
class DownloadActions : public QObject {
    Q_OBJECT

  public:
    DownloadActions(ControllerContext& context, PlaybackQueue& playback, SongDownloads& downloads);

    /// The button of the song now playing was switched. @param on its new state.
    void downloadCurrentSong(bool on);
    /// The button of a row was pressed: fetches the song, or stops fetching it.
    void downloadSong(int row);

  private:
    [[nodiscard]] bool confirm();

    ControllerContext& context_;
    PlaybackQueue& playback_;
    SongDownloads& downloads_;
};

} // namespace zib
