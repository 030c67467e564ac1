// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/DefaultSettings.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "services/ServiceHosts.h"

#include <QDir>

namespace zib {

void registerDefaultSettings(UserDefaults& defaults)
{
    QVariantMap values = defaultAddresses();
    values.insert({
        {settings::CurrentSearchType, 0},
        {settings::MusicFolder, QDir::homePath() + QStringLiteral("/Music/Zib/Zib Music")},
        {settings::SoundLevel, 1.0},
        {settings::CopyImportedFilesToLibrary, true},
        {settings::WantsPublicShare, true},
        {settings::NotifiesOfSongs, true},
        {settings::KeepsAwakeWhilePlaying, true},
    });
    defaults.registerDefaults(values);
}

} // namespace zib
