// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LibraryView.h"

#include <QWidget>

namespace zib {

class BrowserTable;
class RVMainController;
class SongTable;
class UserDefaults;

/// The songs, and the artists and albums at their left edge.
class LibraryPanes : public QWidget, public LibraryView {
    Q_OBJECT

  public:
    /// The settings keep the column layouts.
    explicit LibraryPanes(UserDefaults& defaults, QWidget* parent = nullptr);

    /// Whose library it shows.
    void setController(RVMainController& controller);
    [[nodiscard]] SongTable& songTable() { return *songs_; }

    // From the library manager
    [[nodiscard]] TableView& artistsTableView() override;
    [[nodiscard]] TableView& albumsTableView() override;
    [[nodiscard]] TableView& playlistsTableView() override;
    void setBrowsersShown(bool shown) override;

  private:
    BrowserTable* artists_;
    BrowserTable* albums_;
    SongTable* songs_;
};

} // namespace zib
