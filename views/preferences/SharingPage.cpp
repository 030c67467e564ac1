// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/preferences/SharingPage.h"

#include "platform/SettingsKeys.h"
#include "views/Theme.h"
#include "views/preferences/PreferencesActions.h"
#include "views/preferences/SettingControls.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

namespace zib {

namespace {

constexpr int longestName = 40;
constexpr int nameWidth = 280;

} // namespace

SharingPage::SharingPage(UserDefaults& defaults, PreferencesActions& actions)
    : actions_(actions)
    , name_(new QLineEdit)
{
    name_->setAccessibleName(tr("Your name"));
    name_->setMaxLength(longestName);
    name_->setFixedWidth(nameWidth);
    name_->setPlaceholderText(tr("You are asked when you first share"));
    auto* layout = makePageLayout(this);
    layout->addWidget(makeHeading(tr("Your name")));
    layout->addWidget(name_);
    layout->addWidget(makeHint(tr("Others see it beside the playlists that you share from now on. Playlists "
                                  "shared before keep the name that they have.")));
    layout->addSpacing(Theme::groups);
    layout->addWidget(makeHeading(tr("Shared playlists")));
    layout->addWidget(makeSettingBox(defaults, settings::WantsPublicShare,
                                     tr("List my shared playlists where everybody finds them")));
    layout->addWidget(makeBoxHint(tr("Without this, only those find a playlist who have its link.")));
    layout->addStretch();
    connect(name_, &QLineEdit::editingFinished, this, &SharingPage::takeName);
}

void SharingPage::showEvent(QShowEvent* event)
{
    name_->setText(actions_.shareName());
    QWidget::showEvent(event);
}

void SharingPage::takeName()
{
    const QString typed = name_->text().simplified();
    if (!typed.isEmpty() && typed != actions_.shareName())
        actions_.setShareName(typed);
    name_->setText(actions_.shareName()); // as the service will show it
}

} // namespace zib
