// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AppDelegate.h"

#include "app/ListExchange.h"
#include "library/FileImporter.h"
#include "library/ITunesImporter.h"
#include "library/MusicFolder.h"
#include "library/RVDataManager.h"
#include "pages/RVWebViewController.h"
#include "platform/Alerts.h"
#include "platform/Desktop.h"
#include "platform/RVBusyPanel.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "services/ShareUserName.h"
#include "services/utilities/PathUtilities.h"
#include "views/AboutWindow.h"
#include "views/MainWindow.h"
#include "views/PreferencesWindow.h"

#include <QFileInfo>
#include <QLoggingCategory>
#include <QUrl>

#include <utility>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.app")

} // namespace

AppDelegate::AppDelegate(Parts parts)
    : parts_(std::move(parts))
{
    followImports();
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching()
{
    parts_.mainWindow.show();
    if (!parts_.defaults.boolean(settings::WelcomeShown)) {
        parts_.defaults.setValue(settings::WelcomeShown, true);
        parts_.mainWindow.showWelcome();
    }
}

bool AppDelegate::applicationShouldHandleReopen(bool hasVisibleWindows)
{
    if (!hasVisibleWindows)
        parts_.mainWindow.show();
    return false;
}

// The library needs nothing else: every change was written when it was made.
void AppDelegate::applicationWillTerminate()
{
    parts_.lists.stopNow();
    parts_.importer.stopNow();
    parts_.dataManager.iTunesImporter().stopNow();
    parts_.defaults.remove(settings::BriefStatusMessage);
}

void AppDelegate::openFiles(const QStringList& paths)
{
    if (paths.isEmpty())
        return;
    if (pathExtension(paths.first()) == QLatin1String("zib")) {
        parts_.desktop.bringToFront();
        return;
    }
    QStringList playlists;
    QStringList songs;
    for (const QString& path : paths) {
        const bool isPlaylist = playlistFormatOf(path) && !QFileInfo(path).isDir();
        (isPlaylist ? playlists : songs).append(path);
    }
    if (!songs.isEmpty()) {
        if (!parts_.importer.isRunning())
            parts_.sharedPanel.open(tr("Adding songs to your library"), [this] { parts_.importer.stop(); });
        addFiles(songs);
    }
    parts_.lists.importPlaylists(playlists);
}

void AppDelegate::openAddress(const QString& address)
{
    parts_.desktop.bringToFront();
    parts_.pages.handleURLString(address);
}

bool AppDelegate::isAddress(const QString& text)
{
    return text.startsWith(QLatin1String("zib://"));
}

void AppDelegate::openUri(const QString& uri)
{
    const QUrl url(uri);
    if (isAddress(uri))
        openAddress(uri);
    else if (url.isLocalFile() && QFileInfo::exists(url.toLocalFile()))
        openFiles({url.toLocalFile()});
    else
        qCWarning(log).noquote() << "no file and no address to open:" << uri;
}

void AppDelegate::addFiles(const QStringList& paths)
{
    parts_.importer.addFiles(paths);
}

void AppDelegate::followImports()
{
    RVBusyPanel& panel = parts_.sharedPanel;
    connect(&parts_.importer, &FileImporter::adding, this,
            [&panel](const QString& path) { panel.setInformativeText(tr("Adding %1").arg(path)); });
    connect(&parts_.importer, &FileImporter::progressed, this,
            [&panel](int done, int total) { panel.setProgress(done, total); });
    connect(&parts_.importer, &FileImporter::finished, this, [this](int added) {
        parts_.dataManager.reloadData();
        parts_.dataManager.saveLibrary();
        importEnded(added, tr("No songs were found"));
    });

    ITunesImporter& iTunes = parts_.dataManager.iTunesImporter();
    connect(&iTunes, &ITunesImporter::started, this, [this, &panel, &iTunes] {
        panel.open(tr("Importing your iTunes library"), [&iTunes] { iTunes.stop(); });
    });
    connect(&iTunes, &ITunesImporter::progressed, this,
            [&panel](int done, int total) { panel.setProgress(done, total); });
    connect(&iTunes, &ITunesImporter::finished, this, [this](int added, bool found) {
        importEnded(added, found ? tr("No songs were found") : tr("No iTunes music library found!"));
    });
}

void AppDelegate::importEnded(int added, const QString& nothingText)
{
    if (!parts_.importer.isRunning() && !parts_.dataManager.iTunesImporter().isRunning())
        parts_.sharedPanel.close();
    parts_.defaults.setValue(settings::BriefStatusMessage,
                             added == 0 ? nothingText : tr("%Ln songs added", nullptr, added));
}

void AppDelegate::openCloseMainWindow()
{
    if (parts_.mainWindow.isVisible()) {
        parts_.mainWindow.close();
        return;
    }
    parts_.mainWindow.show();
    parts_.mainWindow.raise();
    parts_.mainWindow.activateWindow();
}

void AppDelegate::openPreferences()
{
    if (!preferencesWindow_) {
        PreferencesActions& actions = *this;
        preferencesWindow_ =
            std::make_unique<PreferencesWindow>(parts_.defaults, actions, parts_.alerts, parts_.services);
    }
    preferencesWindow_->show();
    preferencesWindow_->raise();
    preferencesWindow_->activateWindow();
}

void AppDelegate::openAboutWindow()
{
    if (!aboutWindow_) {
        aboutWindow_ = std::make_unique<AboutWindow>();
        connect(aboutWindow_.get(), &AboutWindow::websiteWanted, this, [this] { goToWebsite(0); });
    }
    aboutWindow_->showCentred();
}

void AppDelegate::openReadMe()
{
    parts_.desktop.openUrl(QUrl::fromLocalFile(parts_.readMePath));
}

void AppDelegate::openWelcome()
{
    if (!parts_.mainWindow.isVisible())
        openCloseMainWindow();
    parts_.mainWindow.showWelcome();
}

void AppDelegate::goToWebsite(int tag)
{
    const QString& key = tag == Support           ? settings::SupportPage
                         : tag == SharedPlaylists ? settings::SharedPlaylistsPage
                                                  : settings::HomePage;
    parts_.desktop.openUrl(QUrl(parts_.defaults.string(key)));
}

QString AppDelegate::changeMusicFolder(const QString& pickedFolder)
{
    if (parts_.importer.isRunning())
        return tr("Songs are being added to the music folder. Please wait for the end of that.");
    const QString from = parts_.defaults.string(settings::MusicFolder);
    const auto moved = zib::changeMusicFolder(parts_.defaults, pickedFolder);
    if (!moved)
        return moved.error();
    musicFolderMoved(from);
    return {};
}

void AppDelegate::resetMusicFolder()
{
    const QString from = parts_.defaults.string(settings::MusicFolder);
    if (zib::resetMusicFolder(parts_.defaults))
        musicFolderMoved(from);
}

QString AppDelegate::shareName() const
{
    return shownOf(parts_.dataManager.userName());
}

void AppDelegate::setShareName(const QString& name)
{
    parts_.dataManager.setUserName(renamed(parts_.dataManager.userName(), name));
}

// Songs that were copied into the music folder are known by their place in it.
void AppDelegate::musicFolderMoved(const QString& from)
{
    const auto prefix = [](const QString& folder) {
        return QString::fromUtf8(QUrl::fromLocalFile(folder + QLatin1Char('/')).toEncoded());
    };
    parts_.dataManager.relocate(prefix(from), prefix(parts_.defaults.string(settings::MusicFolder)));
}

} // namespace zib
