// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/preferences/DesktopPage.h"

#include "platform/SettingsKeys.h"
#include "views/Theme.h"
#include "views/preferences/SettingControls.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>

namespace zib {

DesktopPage::DesktopPage(UserDefaults& defaults)
{
    auto* layout = makePageLayout(this);
    layout->addWidget(makeHeading(tr("Notifications")));
    layout->addWidget(makeSettingBox(defaults, settings::NotifiesOfSongs,
                                     tr("Show a notification when another song begins")));
    layout->addWidget(makeBoxHint(tr("Only while you work in another program.")));
    layout->addSpacing(Theme::groups);
    layout->addWidget(makeHeading(tr("Energy")));
    layout->addWidget(makeSettingBox(defaults, settings::KeepsAwakeWhilePlaying,
                                     tr("Keep the computer awake while music plays")));
    layout->addWidget(makeBoxHint(tr("The screen may still go dark, and you can always send the computer to "
                                     "sleep yourself.")));
    layout->addStretch();
}

} // namespace zib
