// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/MainWindowView.h"

#include <QMainWindow>

#include <memory>

class QMenu;
class QSplitter;
class QStackedWidget;

namespace zib {

class ControlBar;
class LibraryPlace;
class LibraryView;
class PlaybackQueue;
class RVMainController;
class SourcePane;
class StatusLine;
class UserDefaults;
class WelcomePlace;
class WindowSession;

/// The widget that shows pages, and itself as what the controller speaks to: which engine draws them is not
/// known here.
struct PagePane {
    QWidget* widget; ///< the window takes it over
    WebView* view;
};

/// The main window: shows what the controller tells it and calls the controller for what the user does.
///
/// It is made before the library manager, which needs its library view, and shows nothing until attach().
class MainWindow : public QMainWindow, public MainWindowView {
    Q_OBJECT

  public:
    /// The settings outlive the window.
    MainWindow(UserDefaults& defaults, PagePane pages);
    ~MainWindow() override;

    /// The view to make the library manager with.
    [[nodiscard]] LibraryView& libraryView();
    /// The menu at the end of the bar, for whoever has something to put into it.
    [[nodiscard]] QMenu& applicationMenu();
    /// Connects the controls and lets the controller fill the window. Once. The window may outlive the
    /// controller when nobody uses it any more.
    void attach(RVMainController& controller);

    /// Asks for files and folders to add to the library.
    void addToLibrary();
    /// Shows what the program says of itself to a newcomer, until something else is chosen or it is closed.
    void showWelcome();
    /// Asks for playlist files to import.
    void importPlaylist();
    /// Asks for an exported library to merge into the library.
    void importLibrary();
    /// Asks where to write the library.
    void exportLibrary();

    // From the controller
    void setPlaying(bool playing) override;
    void setFavorite(bool loved) override;
    void setFavoriteEnabled(bool enabled) override;
    void setDownloaded(bool downloaded) override;
    void setDownloadEnabled(bool enabled) override;
    void setArtwork(Artwork artwork) override;
    void setArtworkPicture(const QByteArray& file) override;
    void setTickerHeader(const QString& text) override;
    void setTickerText(const QString& text) override;
    void setProgress(int percent) override;
    void setProgressEnabled(bool enabled) override;
    void setElapsedText(const QString& text) override;
    void setRemainingText(const QString& text) override;
    void setStreamingMarkVisible(bool visible) override;
    void setSearchType(int type) override;
    void setSearchPlaceholder(const QString& text) override;
    void setLoaderAnimating(bool animating) override;
    std::optional<SongInformation> editInformation(FileViewController& songs) override;
    OutlineView& outlineView() override;
    WebView& webView() override { return *pages_.view; }
    void setCurrentView(MainView view) override;
    void setUrlFieldText(const QString& text) override;
    void setConnected(bool connected) override;

  Q_SIGNALS:
    /// The user has picked files or folders, or dropped them on the window.
    void filesGiven(const QStringList& paths);
    /// The user has picked an exported library to import.
    void libraryGiven(const QString& path);
    /// The user wants the library in that file.
    void libraryWanted(const QString& path);

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QSplitter* makeMainArea();
    [[nodiscard]] PlaybackQueue& playback();
    void makeShortcuts();
    void restorePlace();
    void showView();

    UserDefaults& defaults_;
    RVMainController* controller_ = nullptr;

    PagePane pages_;
    ControlBar* bar_;
    StatusLine* statusLine_;
    SourcePane* sources_ = nullptr;
    QStackedWidget* views_ = nullptr;
    QWidget* nothing_ = nullptr;
    LibraryPlace* place_ = nullptr;
    WelcomePlace* welcome_ = nullptr;      // made when first shown
    MainView view_ = MainView::NowPlaying; // what a start shows, while a large library is still being read
    std::unique_ptr<WindowSession> session_;
};

} // namespace zib
