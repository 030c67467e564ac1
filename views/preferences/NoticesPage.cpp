// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/preferences/NoticesPage.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "views/Theme.h"
#include "views/preferences/SettingControls.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace zib {

namespace {

struct Notice {
    QString key;
    const char* text;
};

const Notice notices[] = {
    {settings::SupressDialogFavorites, QT_TRANSLATE_NOOP("NoticesPage", "When a song is loved")},
    {settings::SupressDialogDownload, QT_TRANSLATE_NOOP("NoticesPage", "Before a song is downloaded")},
    {settings::SupressDialogRemovePlaylist, QT_TRANSLATE_NOOP("NoticesPage", "Before a playlist is removed")},
    {settings::SupressDialogCleanUp,
     QT_TRANSLATE_NOOP("NoticesPage", "Before songs with broken links are removed")},
    {settings::SupressDialogITunes, QT_TRANSLATE_NOOP("NoticesPage", "Before an iTunes library is imported")},
    {settings::SupressDialogTopHot, QT_TRANSLATE_NOOP("NoticesPage", "When “What's Hot?” is opened")},
    {settings::SupressDialogRecommended, QT_TRANSLATE_NOOP("NoticesPage", "When “Recommended” is opened")},
};

} // namespace

NoticesPage::NoticesPage(UserDefaults& defaults)
    : defaults_(defaults)
    , showAll_(new QPushButton(tr("Show all again")))
{
    showAll_->setAutoDefault(false);
    auto* layout = makePageLayout(this);
    layout->addWidget(makeHeading(tr("Messages")));
    layout->addWidget(makeHint(tr("These messages and questions are shown. Without its question, what you "
                                  "ask for is done at once.")));
    for (const Notice& notice : notices)
        layout->addWidget(makeSettingBox(
            defaults_, notice.key, QCoreApplication::translate("NoticesPage", notice.text), BoxShows::Off));
    layout->addSpacing(Theme::between);
    layout->addWidget(showAll_, 0, Qt::AlignLeft);
    layout->addStretch();
    connect(showAll_, &QPushButton::clicked, this, &NoticesPage::showAll);
    connect(&defaults_, &UserDefaults::changed, this, &NoticesPage::enableShowAll);
    enableShowAll();
}

void NoticesPage::showAll()
{
    for (const Notice& notice : notices)
        defaults_.remove(notice.key);
}

void NoticesPage::enableShowAll()
{
    showAll_->setEnabled(
        std::ranges::any_of(notices, [this](const Notice& notice) { return defaults_.boolean(notice.key); }));
}

} // namespace zib
