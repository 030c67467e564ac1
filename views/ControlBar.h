// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;
class QMenu;
class QToolButton;

namespace zib {

class NowPlayingPanel;
class PlaybackQueue;
class RVMainController;
class SearchBar;
class UserDefaults;
class VolumeSlider;

/// The bar at the top of the window: transport, what plays, love and download, volume, search, the menu.
class ControlBar : public QWidget {
    Q_OBJECT

  public:
    /// The settings outlive the bar.
    explicit ControlBar(UserDefaults& defaults, QWidget* parent = nullptr);

    /// Connects the controls. Once.
    void attach(RVMainController& controller);

    [[nodiscard]] NowPlayingPanel& panel() { return *panel_; }
    [[nodiscard]] SearchBar& search() { return *search_; }
    /// The menu at the end of the bar.
    [[nodiscard]] QMenu& menu() { return *menu_; }

    /// As a click on the button does.
    /// @{
    void clickLove();
    void clickDownload();
    /// @}

    // See MainWindowView
    void setPlaying(bool playing);
    void setFavorite(bool loved);
    void setFavoriteEnabled(bool enabled);
    void setDownloaded(bool downloaded);
    void setDownloadEnabled(bool enabled);

  private:
    void makeButtons();
    void showVolume();
    void showDownload();

    UserDefaults& defaults_;
    QToolButton* back_;
    QToolButton* playPause_;
    QToolButton* next_;
    NowPlayingPanel* panel_;
    QToolButton* love_;
    QToolButton* download_;
    QLabel* speaker_;
    VolumeSlider* volume_;
    SearchBar* search_;
    QToolButton* menuButton_;
    QMenu* menu_;
};

} // namespace zib
