// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/PreferencesWindow.h"

#include "platform/Alerts.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace zib {

PreferencesWindow::PreferencesWindow(UserDefaults& defaults, MusicFolderActions& musicFolder, Alerts& alerts)
    : defaults_(defaults)
    , musicFolder_(musicFolder)
    , alerts_(alerts)
    , folderLabel_(new QLabel)
{
    setWindowTitle(tr("Preferences"));
    setMinimumWidth(520);

    auto* heading = new QLabel(tr("Music folder"));
    QFont bold = heading->font();
    bold.setWeight(QFont::DemiBold);
    heading->setFont(bold);
    auto* explanation =
        new QLabel(tr("Imported and downloaded songs are stored here, sorted by artist and album."));
    explanation->setWordWrap(true);
    folderLabel_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    folderLabel_->setTextFormat(Qt::PlainText);
    folderLabel_->setWordWrap(true);
    folderLabel_->setAccessibleName(tr("Music folder"));

    auto* change = new QPushButton(tr("Change…"));
    auto* reset = new QPushButton(tr("Reset"));
    reset->setToolTip(tr("Moves the music back to its default folder"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(change);
    buttons->addWidget(reset);
    buttons->addStretch();

    auto* close = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(8);
    layout->addWidget(heading);
    layout->addWidget(explanation);
    layout->addWidget(folderLabel_);
    layout->addLayout(buttons);
    layout->addSpacing(8);
    layout->addWidget(makeBox(tr("Copy files into the music folder when they are added to the library"),
                              settings::CopyImportedFilesToLibrary));
    layout->addWidget(makeBox(tr("Show a notification when another song begins"), settings::NotifiesOfSongs));
    layout->addWidget(
        makeBox(tr("Keep the computer awake while music plays"), settings::KeepsAwakeWhilePlaying));
    layout->addStretch();
    layout->addSpacing(8);
    layout->addWidget(close);

    connect(change, &QPushButton::clicked, this, &PreferencesWindow::changeMusicFolder);
    connect(reset, &QPushButton::clicked, this, [this] { musicFolder_.reset(); });
    connect(close, &QDialogButtonBox::rejected, this, &QDialog::close);
    connect(&defaults_, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == settings::MusicFolder)
            showMusicFolder();
    });
    showMusicFolder();
}

QCheckBox* PreferencesWindow::makeBox(const QString& text, const QString& key)
{
    auto* box = new QCheckBox(text);
    box->setChecked(defaults_.boolean(key));
    connect(box, &QCheckBox::clicked, this, [this, key](bool on) { defaults_.setValue(key, on); });
    connect(&defaults_, &UserDefaults::changed, box, [this, box, key](const QString& changed) {
        if (changed == key)
            box->setChecked(defaults_.boolean(key));
    });
    return box;
}

void PreferencesWindow::changeMusicFolder()
{
    const QString picked =
        QFileDialog::getExistingDirectory(this, tr("Choose a folder for your music"),
                                          QStandardPaths::writableLocation(QStandardPaths::MusicLocation));
    if (picked.isEmpty())
        return;
    const QString failure = musicFolder_.changeTo(picked);
    if (!failure.isEmpty())
        alerts_.runModal({Alert::Style::Warning, failure, {}, {tr("OK")}, false});
}

void PreferencesWindow::showMusicFolder()
{
    folderLabel_->setText(QDir::toNativeSeparators(defaults_.string(settings::MusicFolder)));
}

} // namespace zib
