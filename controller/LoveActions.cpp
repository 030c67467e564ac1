// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/LoveActions.h"

#include "controller/ControllerContext.h"
#include "controller/MainWindowView.h"
#include "controller/Notices.h"
#include "controller/PlaybackQueue.h"
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"

namespace zib {

LoveActions::LoveActions(ControllerContext& context, PlaybackQueue& playback)
    : context_(context)
    , playback_(playback)
{
}

void LoveActions::addCurrentFavorite(bool on)
{
    Record track = playback_.nowplayingTrack();
    if (!track)
        return;
    context_.dataManager.addFavorite(track);
    track.set(keys::Favorite, on);
    loved(on);
}

void LoveActions::addFavorite(int row)
{
    const Record track = context_.dataManager.items().value(row);
    if (!track)
        return;
    const bool on = !track.boolean(keys::Favorite);
    if (track.string(keys::Id) == playback_.nowplayingTrackID())
        context_.window.setFavorite(on);
    context_.dataManager.markFavoriteAtIndex(row);
    loved(on);
}

void LoveActions::loved(bool on)
{
    playback_.songsChanged();
    if (on)
        context_.notices.runSuppressibleNotice(
            tr("You just loved a song. This is a good thing! The more songs you love, the better "
               "recommendations you get."),
            settings::SupressDialogFavorites);
}

} // namespace zib
