// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <optional>

class QMenu;
class QToolButton;

namespace zib {

class IconLabel;
class NowPlayingPanel;
class PlaybackQueue;
class RVMainController;
class SearchBar;
class UserDefaults;
class VolumeSlider;

/// The bar at the top of the window: transport, what plays, love and download, volume, search, the menu.
/// Where it has nothing to press it is the window's handle: a drag moves the window, a double click makes it
/// as large as the screen, or as it was.
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

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    /// Whether there is nothing to press.
    [[nodiscard]] bool isHandle(const QPoint& place) const;
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
    IconLabel* speaker_;
    VolumeSlider* volume_;
    SearchBar* search_;
    QToolButton* menuButton_;
    QMenu* menu_;
    std::optional<QPoint> handleHeld_; ///< where the mouse took the handle
};

} // namespace zib
