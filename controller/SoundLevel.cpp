// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/SoundLevel.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "playback/RVPlayer.h"

namespace zib {

namespace {

constexpr float volumeStep = 0.1F;

} // namespace

float SoundLevel::level() const
{
    return float(defaults_.real(settings::SoundLevel));
}

void SoundLevel::set(double level)
{
    defaults_.setValue(settings::SoundLevel, level);
    player_.setVolume(float(level));
}

void SoundLevel::restore()
{
    player_.setVolume(level());
}

void SoundLevel::volumeUp()
{
    if (level() < 1.0F)
        set(level() + volumeStep);
}

void SoundLevel::volumeDown()
{
    if (level() > 0.0F)
        set(level() - volumeStep);
}

} // namespace zib
