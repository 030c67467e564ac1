// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QMenu;
class QToolButton;

namespace zib {

class RVMainController;
class SourceListView;

/// The left of the window: the source list, and below it what can be done with it.
class SourcePane : public QWidget {
    Q_OBJECT

  public:
    explicit SourcePane(QWidget* parent = nullptr);

    void attach(RVMainController& controller);
    [[nodiscard]] SourceListView& list() { return *list_; }

  private:
    QWidget* makeButtons();
    void addPlaylist();
    void fillActions(QMenu& menu);
    void exportPlaylist();
    void addSharing(QMenu& menu, bool enabled);
    void showMenu(const QPoint& at, bool ofRows);

    RVMainController* controller_ = nullptr;
    SourceListView* list_;
    QToolButton* add_ = nullptr;
    QMenu* actions_ = nullptr;
};

} // namespace zib
