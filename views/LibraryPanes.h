// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LibraryView.h"

#include <QWidget>

class QSplitter;

namespace zib {

class BrowserTable;
class RVDataManager;
class SongTable;
class UserDefaults;

/// The songs, and the artists and albums at their left edge.
class LibraryPanes : public QWidget, public LibraryView {
    Q_OBJECT

  public:
    /// The settings keep the column layouts.
    explicit LibraryPanes(UserDefaults& defaults, QWidget* parent = nullptr);

    /// Whose songs it shows.
    void setLibrary(RVDataManager& library);
    [[nodiscard]] SongTable& songTable() { return *songs_; }
    /// The artists, the albums, the songs.
    [[nodiscard]] QSplitter& panes() { return *panes_; }
    /// In pixels; the songs take what is left.
    void setBrowserWidths(int artists, int albums);

    // From the library manager
    [[nodiscard]] TableView& artistsTableView() override;
    [[nodiscard]] TableView& albumsTableView() override;
    [[nodiscard]] TableView& playlistsTableView() override;
    void setBrowsersShown(bool shown) override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool moveFocus(const QObject* from, int key);

    QSplitter* panes_;
    BrowserTable* artists_;
    BrowserTable* albums_;
    SongTable* songs_;
};

} // namespace zib
