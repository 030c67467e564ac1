// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>

namespace zib {

class RVMainController;
class SongTable;

/// What can be done with the selected songs. Made for each time that it is shown.
class SongMenu : public QMenu {
    Q_OBJECT

  public:
    SongMenu(SongTable& table, RVMainController& controller);

  private:
    QMenu* addNamedMenu(const QString& name);
    void addPlaylists(SongTable& table, RVMainController& controller);
};

} // namespace zib
