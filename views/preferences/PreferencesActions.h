// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace zib {

/// What the preferences do beyond setting a value. Main thread.
class PreferencesActions {
  public:
    virtual ~PreferencesActions() = default;
    /// Moves the music into the picked folder. @return a localized description of the failure, empty on
    /// success.
    virtual QString changeMusicFolder(const QString& pickedFolder) = 0;
    /// Moves it back to the default place.
    virtual void resetMusicFolder() = 0;
    /// The name that others see beside shared playlists; empty while the user has none.
    [[nodiscard]] virtual QString shareName() const = 0;
    virtual void setShareName(const QString& name) = 0;
};

} // namespace zib
