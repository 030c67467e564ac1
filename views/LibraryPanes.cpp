// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/LibraryPanes.h"

#include "controller/RVMainController.h"
#include "library/RVDataManager.h"
#include "library/SongCells.h"
#include "views/BrowserTable.h"
#include "views/SongTable.h"

#include <QHBoxLayout>

namespace zib {
namespace {

constexpr int browserWidth = 178;

} // namespace

LibraryPanes::LibraryPanes(UserDefaults& defaults, QWidget* parent)
    : QWidget(parent)
    , artists_(new BrowserTable(tr("Artists"), this))
    , albums_(new BrowserTable(tr("Albums"), this))
    , songs_(new SongTable(defaults, this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (BrowserTable* browser : {artists_, albums_}) {
        browser->setFixedWidth(browserWidth);
        layout->addWidget(browser);
    }
    layout->addWidget(songs_, 1);
    setBrowsersShown(false);
}

void LibraryPanes::setController(RVMainController& controller)
{
    TrackBrowser& browser = controller.dataManager().browser();
    const SongCells cells(browser);
    artists_->setSource({[&browser] { return int(browser.allArtists().size()); },
                         [cells](int row) { return cells.artist(row); }});
    albums_->setSource({[&browser] { return int(browser.allAlbums().size()); },
                        [cells](int row) { return cells.album(row); }});
    for (BrowserTable* table : {artists_, albums_})
        connect(table, &BrowserTable::chosen, this,
                [&browser, table] { browser.selectionDidChange(*table); });
    songs_->setController(&controller);
}

TableView& LibraryPanes::artistsTableView()
{
    return *artists_;
}

TableView& LibraryPanes::albumsTableView()
{
    return *albums_;
}

TableView& LibraryPanes::playlistsTableView()
{
    return *songs_;
}

void LibraryPanes::setBrowsersShown(bool shown)
{
    artists_->setVisible(shown);
    albums_->setVisible(shown);
}

} // namespace zib
