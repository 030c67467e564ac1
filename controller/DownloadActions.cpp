// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/DownloadActions.h"

#include "controller/ControllerContext.h"
#include "controller/MainWindowView.h"
#include "controller/Notices.h"
#include "controller/PlaybackQueue.h"
#include "library/RVDataManager.h"
#include "library/SongDownloads.h"
#include "platform/SettingsKeys.h"

namespace zib {

DownloadActions::DownloadActions(ControllerContext& context, PlaybackQueue& playback,
                                 SongDownloads& downloads)
    : context_(context)
    , playback_(playback)
    , downloads_(downloads)
{
    connect(&downloads_, &SongDownloads::ended, this, [this](const QString& id) {
        if (id == playback_.nowplayingTrackID())
            playback_.showDownloaded();
    });
}

bool DownloadActions::confirm()
{
    return context_.notices.runSuppressibleConfirmation(
               tr("You are about to download a song. Please make sure the song is not subject to copyright "
                  "before proceeding. Downloading copyrighted material is a crime in many countries."),
               settings::SupressDialogDownload) == 0;
}

void DownloadActions::downloadCurrentSong(bool on)
{
    // A song cannot be un-downloaded, so a switch to off is undone.
    const Record track = playback_.nowplayingTrack();
    if (on && track && !downloads_.isRunning(track.string(keys::Id)) && confirm())
        downloads_.downloadSong(track);
    if (on)
        playback_.showDownloaded();
    else
        context_.window.setDownloaded(true);
}

void DownloadActions::downloadSong(int row)
{
    const Record track = context_.dataManager.items().value(row);
    // Stopping a download needs no warning of downloading.
    if (track && (downloads_.isRunning(track.string(keys::Id)) || confirm()))
        downloads_.downloadSongAtIndex(row);
}

} // namespace zib
