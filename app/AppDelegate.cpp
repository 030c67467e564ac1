// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AppDelegate.h"

#include "library/MusicFolder.h"
#include "library/RVDataManager.h"
#include "platform/Alerts.h"
#include "platform/Desktop.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "views/AboutWindow.h"
#include "views/MainWindow.h"

#include <QUrl>

#include <utility>

namespace zib {

AppDelegate::AppDelegate(MainWindow& mainWindow, RVDataManager& dataManager, UserDefaults& defaults,
                         Alerts& alerts, Desktop& desktop, QString readMePath)
    : mainWindow_(mainWindow)
    , dataManager_(dataManager)
    , defaults_(defaults)
    , alerts_(alerts)
    , desktop_(desktop)
    , readMePath_(std::move(readMePath))
{
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching()
{
    mainWindow_.show();
}

bool AppDelegate::applicationShouldHandleReopen(bool hasVisibleWindows)
{
    if (!hasVisibleWindows)
        mainWindow_.show();
    return false;
}

// The library needs nothing here: every change was written when it was made.
void AppDelegate::applicationWillTerminate()
{
    defaults_.remove(settings::BriefStatusMessage);
}

void AppDelegate::openCloseMainWindow()
{
    if (mainWindow_.isVisible()) {
        mainWindow_.close();
        return;
    }
    mainWindow_.show();
    mainWindow_.raise();
    mainWindow_.activateWindow();
}

void AppDelegate::openPreferences()
{
    if (!preferencesWindow_) {
        MusicFolderActions& musicFolder = *this;
        preferencesWindow_ = std::make_unique<PreferencesWindow>(defaults_, musicFolder, alerts_);
    }
    preferencesWindow_->show();
    preferencesWindow_->raise();
    preferencesWindow_->activateWindow();
}

void AppDelegate::openAboutWindow()
{
    if (!aboutWindow_)
        aboutWindow_ = std::make_unique<AboutWindow>();
    aboutWindow_->showCentred();
}

void AppDelegate::openReadMe()
{
    desktop_.openUrl(QUrl::fromLocalFile(readMePath_));
}

void AppDelegate::goToWebsite(int tag)
{
    const QString& key = tag == Support           ? settings::SupportPage
                         : tag == SharedPlaylists ? settings::SharedPlaylistsPage
                                                  : settings::HomePage;
    desktop_.openUrl(QUrl(defaults_.string(key)));
}

QString AppDelegate::changeTo(const QString& pickedFolder)
{
    const QString from = defaults_.string(settings::MusicFolder);
    const auto moved = changeMusicFolder(defaults_, pickedFolder);
    if (!moved)
        return moved.error();
    musicFolderMoved(from);
    return {};
}

void AppDelegate::reset()
{
    const QString from = defaults_.string(settings::MusicFolder);
    if (resetMusicFolder(defaults_))
        musicFolderMoved(from);
}

// Songs that were copied into the music folder are known by their place in it.
void AppDelegate::musicFolderMoved(const QString& from)
{
    const auto prefix = [](const QString& folder) {
        return QString::fromUtf8(QUrl::fromLocalFile(folder + QLatin1Char('/')).toEncoded());
    };
    dataManager_.relocate(prefix(from), prefix(defaults_.string(settings::MusicFolder)));
}

} // namespace zib
