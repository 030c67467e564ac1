// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zib {

class RVPlayer;
class UserDefaults;

/// How loud songs are, 0 to 1: heard at once, and kept in the settings for the next song. Main thread.
class SoundLevel {
  public:
    /// Both outlive it.
    SoundLevel(RVPlayer& player, UserDefaults& defaults)
        : player_(player)
        , defaults_(defaults)
    {
    }

    void set(double level);
    /// The level kept is heard of what has just begun to play.
    void restore();
    // A step can leave the range by less than a step; the next one in that direction is refused.
    void volumeUp();
    void volumeDown();

  private:
    [[nodiscard]] float level() const;

    RVPlayer& player_;
    UserDefaults& defaults_;
};

} // namespace zib
