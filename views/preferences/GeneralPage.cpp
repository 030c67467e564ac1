// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/preferences/GeneralPage.h"

#include "platform/Alerts.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "views/FilePanel.h"
#include "views/TextLabel.h"
#include "views/Theme.h"
#include "views/preferences/PreferencesActions.h"
#include "views/preferences/SettingControls.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardPaths>

namespace zib {

GeneralPage::GeneralPage(UserDefaults& defaults, PreferencesActions& actions, Alerts& alerts)
    : defaults_(defaults)
    , actions_(actions)
    , alerts_(alerts)
    , folder_(new TextLabel(tr("Music folder")))
{
    auto* layout = makePageLayout(this);
    addMusicFolder(*layout);
    layout->addWidget(
        makeSettingBox(defaults_, settings::CopyImportedFilesToLibrary,
                       tr("Copy files into the music folder when they are added to the library")));
    layout->addSpacing(Theme::groups);
    layout->addWidget(makeHeading(tr("Playing")));
    layout->addWidget(makeSettingBox(defaults_, settings::PlayAllSourcesContinuously,
                                     tr("When a song ends, go on with the next one of any list")));
    layout->addWidget(makeSettingBox(defaults_, settings::RecordAudioStreams,
                                     tr("Keep a copy of songs of the web that were played to their end")));
    layout->addSpacing(Theme::groups);
    addAppearance(*layout);
    layout->addStretch();

    connect(&defaults_, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == settings::MusicFolder)
            showMusicFolder();
    });
    showMusicFolder();
}

void GeneralPage::addMusicFolder(QBoxLayout& layout)
{
    folder_->setObjectName(QStringLiteral("musicFolder"));
    folder_->setElideMode(Qt::ElideMiddle); // of a path both ends tell
    auto* change = new QPushButton(tr("Change…"));
    auto* reset = new QPushButton(tr("Reset"));
    reset->setToolTip(tr("Moves the music back to its default folder"));
    for (QPushButton* button : {change, reset})
        button->setAutoDefault(false);
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::between);
    row->addWidget(folder_, 1);
    row->addWidget(change);
    row->addWidget(reset);
    layout.addWidget(makeHeading(tr("Music folder")));
    layout.addWidget(
        makeHint(tr("Imported and downloaded songs are stored here, sorted by artist and album.")));
    layout.addLayout(row);
    connect(change, &QPushButton::clicked, this, &GeneralPage::changeMusicFolder);
    connect(reset, &QPushButton::clicked, this, [this] { actions_.resetMusicFolder(); });
}

void GeneralPage::addAppearance(QBoxLayout& layout)
{
    const std::pair<const char*, QString> looks[] = {
        {"", tr("As the desktop")}, {"light", tr("Light")}, {"dark", tr("Dark")}};
    auto* choice = new QWidget(this);
    choice->setAccessibleName(tr("Appearance"));
    auto* row = new QHBoxLayout(choice);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::groups);
    for (const auto& [value, text] : looks) {
        const QString look = QString::fromLatin1(value);
        auto* button = new QRadioButton(text);
        const auto refresh = [this, button, look] {
            button->setChecked(defaults_.string(settings::Appearance) == look);
        };
        connect(button, &QRadioButton::clicked, this, [this, look] {
            if (look.isEmpty())
                defaults_.remove(settings::Appearance);
            else
                defaults_.setValue(settings::Appearance, look);
        });
        connect(&defaults_, &UserDefaults::changed, button, [refresh](const QString& key) {
            if (key == settings::Appearance)
                refresh();
        });
        refresh();
        row->addWidget(button);
    }
    row->addStretch();
    layout.addWidget(makeHeading(tr("Appearance")));
    layout.addWidget(choice);
    layout.addWidget(makeSettingBox(defaults_, settings::ReduceMotion, tr("Keep moving texts still")));
}

void GeneralPage::changeMusicFolder()
{
    FilePanel panel(this, tr("Choose a folder for your music"),
                    QStandardPaths::writableLocation(QStandardPaths::MusicLocation));
    panel.setFileMode(QFileDialog::Directory);
    panel.setOption(QFileDialog::ShowDirsOnly);
    const QString picked = panel.askForFile();
    if (picked.isEmpty())
        return;
    const QString failure = actions_.changeMusicFolder(picked);
    if (!failure.isEmpty())
        alerts_.runModal({Alert::Style::Warning, failure, {}, {tr("OK")}, false});
}

void GeneralPage::showMusicFolder()
{
    folder_->setShownText(QDir::toNativeSeparators(defaults_.string(settings::MusicFolder)));
}

} // namespace zib
