// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>

namespace zib {

struct ControllerContext;
class PlaybackQueue;

/// What the hearts do: of the song now playing, and of the rows. Main thread.
class LoveActions {
    Q_DECLARE_TR_FUNCTIONS(LoveActions)

  public:
    LoveActions(ControllerContext& context, PlaybackQueue& playback);

    /// The love button was switched. @param on its new state.
    void addCurrentFavorite(bool on);
    /// The heart of a row was pressed.
    void addFavorite(int row);

  private:
    /// A song has just become loved, or no longer is.
    void loved(bool on);

    ControllerContext& context_;
    PlaybackQueue& playback_;
};

} // namespace zib
