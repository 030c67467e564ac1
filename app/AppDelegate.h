// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/WebServiceClient.h"
#include "views/preferences/PreferencesActions.h"

#include <QObject>

#include <memory>

namespace zib {

class AboutWindow;
class Desktop;
class FileImporter;
class ListExchange;
class MainWindow;
class PreferencesWindow;
class RVBusyPanel;
class RVDataManager;
class RVWebViewController;
class UserDefaults;
class Alerts;

/// Answers what the desktop and the application menu ask of the program as a whole. Main thread.
class AppDelegate : public QObject, private PreferencesActions {
    Q_OBJECT

  public:
    struct Parts {
        MainWindow& mainWindow;
        RVDataManager& dataManager;
        FileImporter& importer;
        ListExchange& lists;
        RVWebViewController& pages;
        RVBusyPanel& sharedPanel;
        UserDefaults& defaults;
        Alerts& alerts;
        Desktop& desktop;
        WebServices services;
        QString readMePath;
    };
    /// All of them outlive the delegate.
    explicit AppDelegate(Parts parts);
    ~AppDelegate() override;

    void applicationDidFinishLaunching();
    /// False: with its window closed the program goes on playing.
    [[nodiscard]] static bool applicationShouldTerminateAfterLastWindowClosed() { return false; }
    /// The program was started again while it runs: shows the main window when none is visible.
    /// @return false: nothing is left for the desktop to do.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);
    void applicationWillTerminate();

    /// Opens documents: sound files and folders come into the library, while the busy panel tells of it, and
    /// playlist files become playlists. When the first is a library file, nothing is imported and the main
    /// window comes to the front.
    void openFiles(const QStringList& paths);
    /// Opens an address of the program's own scheme, zib://, as if it were a link in a page, in front of the
    /// user.
    void openAddress(const QString& address);
    [[nodiscard]] static bool isAddress(const QString& text);
    /// Opens either, given as an address: file:// or zib://. Any other is refused, with a log line.
    void openUri(const QString& uri);
    /// Imports files, and what is in folders. Returns at once; the library is shown and saved at the end.
    void addFiles(const QStringList& paths);

    // The application menu
    void openCloseMainWindow();
    void openPreferences();
    void openAboutWindow();
    void openReadMe();
    void openWelcome();

    enum WebsiteTag { Support = 7, SharedPlaylists = 8 };
    /// Opens one of the product's web pages. @param tag a WebsiteTag, any other value for the home page.
    void goToWebsite(int tag);

  private:
    QString changeMusicFolder(const QString& pickedFolder) override;
    void resetMusicFolder() override;
    [[nodiscard]] QString shareName() const override;
    void setShareName(const QString& name) override;
    void musicFolderMoved(const QString& from);
    void followImports();
    void importEnded(int added, const QString& nothingText);

    Parts parts_;
    std::unique_ptr<PreferencesWindow> preferencesWindow_; // made when first asked for, then kept
    std::unique_ptr<AboutWindow> aboutWindow_;
};

} // namespace zib
