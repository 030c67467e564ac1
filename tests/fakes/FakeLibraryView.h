// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LibraryView.h"
#include "tests/fakes/FakeTableView.h"

namespace zib {

class FakeLibraryView : public LibraryView {
  public:
    FakeTableView& artistsTableView() override { return artists; }
    FakeTableView& albumsTableView() override { return albums; }
    FakeTableView& playlistsTableView() override { return songs; }
    void setBrowsersShown(bool shown) override { browsersShown = shown; }

    FakeTableView artists;
    FakeTableView albums;
    FakeTableView songs;
    bool browsersShown = false;
};

} // namespace zib
