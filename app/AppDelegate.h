// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "views/PreferencesWindow.h"

#include <QObject>

#include <memory>

namespace zib {

class AboutWindow;
class Desktop;
class MainWindow;
class PreferencesWindow;
class RVDataManager;
class UserDefaults;
class Alerts;

/// Answers what the desktop and the application menu ask of the program as a whole. Main thread.
class AppDelegate : public QObject, private MusicFolderActions {
    Q_OBJECT

  public:
    AppDelegate(MainWindow& mainWindow, RVDataManager& dataManager, UserDefaults& defaults, Alerts& alerts,
                Desktop& desktop, QString readMePath);
    ~AppDelegate() override;

    void applicationDidFinishLaunching();
    /// False: with its window closed the program goes on playing.
    [[nodiscard]] static bool applicationShouldTerminateAfterLastWindowClosed() { return false; }
    /// The program was started again while it runs: shows the main window when none is visible.
    /// @return false: nothing is left for the desktop to do.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);
    void applicationWillTerminate();

    // The application menu
    void openCloseMainWindow();
    void openPreferences();
    void openAboutWindow();
    void openReadMe();

    enum WebsiteTag { Support = 7, SharedPlaylists = 8 };
    /// Opens one of the product's web pages. @param tag a WebsiteTag, any other value for the home page.
    void goToWebsite(int tag);

  private:
    QString changeTo(const QString& pickedFolder) override;
    void reset() override;
    void musicFolderMoved(const QString& from);

    MainWindow& mainWindow_;
    RVDataManager& dataManager_;
    UserDefaults& defaults_;
    Alerts& alerts_;
    Desktop& desktop_;
    QString readMePath_;
    std::unique_ptr<PreferencesWindow> preferencesWindow_; // made when first asked for, then kept
    std::unique_ptr<AboutWindow> aboutWindow_;
};

} // namespace zib
