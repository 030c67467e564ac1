// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SongColumns.h"

#include <QWidget>

class QLabel;
class QStackedWidget;

namespace zib {

class EmptyPlace;
class LibraryPanes;
class LibraryView;
class RVMainController;
class SongTable;
class UserDefaults;

/// The window's main area while it shows songs: the library's tables, or where there is nothing to show, what
/// to do about it.
class LibraryPlace : public QWidget {
    Q_OBJECT

  public:
    explicit LibraryPlace(UserDefaults& defaults, QWidget* parent = nullptr);

    void attach(RVMainController& controller);
    [[nodiscard]] LibraryView& libraryView();
    [[nodiscard]] LibraryPanes& panes() { return *panes_; }
    /// Presses that button of the selected song, if the song table has the keyboard and a selected row.
    bool pressInRow(SongColumn button);
    /// Gives the song table the keyboard, with a song selected.
    void focusSongs();
    void setConnected(bool connected);
    /// Tables or words, as it should be now.
    void update();

  private:
    void showMenu(const QPoint& at);
    void explainEmptiness();

    RVMainController* controller_ = nullptr;
    QLabel* offline_;
    QStackedWidget* stack_;
    LibraryPanes* panes_;
    SongTable* table_;
    EmptyPlace* empty_;
};

} // namespace zib
