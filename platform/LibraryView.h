// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zib {

class TableView;

/// The place of the window that shows the library: the two browsers beside the songs. Main thread.
class LibraryView {
  public:
    virtual ~LibraryView() = default;

    /// The tables live as long as this view.
    /// @{
    [[nodiscard]] virtual TableView& artistsTableView() = 0;
    [[nodiscard]] virtual TableView& albumsTableView() = 0;
    [[nodiscard]] virtual TableView& playlistsTableView() = 0;
    /// @}
    /// Whether artists and albums stand at the left edge, or the songs fill the view.
    virtual void setBrowsersShown(bool shown) = 0;
};

} // namespace zib
