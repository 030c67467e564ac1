// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "views/gallery/Demos.h"

class QListWidget;
class QStackedWidget;

namespace zib {

/// The list of the controls, the chosen one with its states, and below the ways to look at it.
class GalleryWindow : public QWidget {
    Q_OBJECT

  public:
    explicit GalleryWindow(Scheme scheme);

  private:
    QWidget* makeWays(Scheme scheme);
    /// What a page draws once, it has to draw anew for another look.
    void refill();
    void showPage(int row);

    QList<Demo> demos_;
    QListWidget* list_;
    QStackedWidget* pages_;
};

} // namespace zib
