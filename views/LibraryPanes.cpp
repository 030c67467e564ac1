// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/LibraryPanes.h"

#include "library/RVDataManager.h"
#include "library/SongCells.h"
#include "views/BrowserTable.h"
#include "views/SongTable.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSplitter>

namespace zib {
namespace {

constexpr int browserWidth = 178;
constexpr int narrowestBrowser = 90;
constexpr int songsWidth = 800; // beside them they take what is left

} // namespace

LibraryPanes::LibraryPanes(UserDefaults& defaults, QWidget* parent)
    : QWidget(parent)
    , panes_(new QSplitter(this))
    , artists_(new BrowserTable(tr("Artists"), panes_))
    , albums_(new BrowserTable(tr("Albums"), panes_))
    , songs_(new SongTable(defaults, panes_))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (BrowserTable* browser : {artists_, albums_}) {
        browser->setMinimumWidth(narrowestBrowser);
        browser->installEventFilter(this);
    }
    songs_->installEventFilter(this);
    panes_->setHandleWidth(1);
    panes_->setChildrenCollapsible(false);
    panes_->setStretchFactor(0, 0);
    panes_->setStretchFactor(1, 0);
    panes_->setStretchFactor(2, 1);
    setBrowserWidths(browserWidth, browserWidth);
    layout->addWidget(panes_);
    setBrowsersShown(false);
}

void LibraryPanes::setBrowserWidths(int artists, int albums)
{
    panes_->setSizes({artists, albums, songsWidth});
}

void LibraryPanes::setLibrary(RVDataManager& library)
{
    TrackBrowser& browser = library.browser();
    const SongCells cells(browser);
    artists_->setSource({[&browser] { return int(browser.allArtists().size()); },
                         [cells](int row) { return cells.artist(row); }});
    albums_->setSource({[&browser] { return int(browser.allAlbums().size()); },
                        [cells](int row) { return cells.album(row); }});
    for (BrowserTable* table : {artists_, albums_})
        connect(table, &BrowserTable::rowsChosen, this,
                [&browser, table] { browser.selectionDidChange(*table); });
    connect(songs_, &SongTable::sorted, this, [&browser] { browser.sortDescriptorsDidChange(); });
    songs_->setLibrary(library);
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

bool LibraryPanes::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && !artists_->isHidden()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && moveFocus(watched, key->key()))
            return true;
    }
    return QWidget::eventFilter(watched, event);
}

/// The arrows to the left and the right lead from table to table. Whether that key is one of them.
bool LibraryPanes::moveFocus(const QObject* from, int key)
{
    if (key == Qt::Key_Left) {
        if (from == songs_)
            albums_->setFocus();
        else if (from == albums_)
            artists_->setFocus();
    } else if (key == Qt::Key_Right) {
        if (from == artists_) {
            albums_->setFocus();
        } else if (from == albums_) {
            songs_->setFocus();
            if (songs_->selectedRow() < 0)
                songs_->selectRows({0});
        }
    }
    return key == Qt::Key_Left || key == Qt::Key_Right;
}

} // namespace zib
