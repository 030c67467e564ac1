// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/LibraryPlace.h"

#include "controller/RVMainController.h"
#include "library/RVDataManager.h"
#include "views/EmptyPlace.h"
#include "views/LibraryPanes.h"
#include "views/SongMenu.h"
#include "views/SongTable.h"

#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace zib {

LibraryPlace::LibraryPlace(UserDefaults& defaults, QWidget* parent)
    : QWidget(parent)
    , offline_(new QLabel(
          tr("You are offline. Songs on this computer still play; those on the web are shown in grey."),
          this))
    , stack_(new QStackedWidget(this))
    , panes_(new LibraryPanes(defaults, stack_))
    , table_(&panes_->songTable())
    , empty_(new EmptyPlace(stack_))
{
    offline_->setObjectName(QStringLiteral("offline"));
    offline_->hide();
    stack_->addWidget(panes_);
    stack_->addWidget(empty_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(offline_);
    layout->addWidget(stack_, 1);
}

LibraryView& LibraryPlace::libraryView()
{
    return *panes_;
}

void LibraryPlace::attach(RVMainController& controller)
{
    controller_ = &controller;
    panes_->setLibrary(controller.dataManager());
    connect(table_, &SongTable::activated, this, [&controller] { controller.playback().songSelected(); });
    connect(table_, &SongTable::loveToggled, this,
            [&controller](int row) { controller.loving().addFavorite(row); });
    connect(table_, &SongTable::downloadPressed, this,
            [&controller](int row) { controller.downloading().downloadSong(row); });
    connect(table_, &SongTable::deletePressed, this, [&controller] { controller.deleteSelectedItems(); });
    connect(table_, &SongTable::edited, this, [&controller](int row, SongColumn column, const QString& text) {
        controller.editing().setObjectValue(text, column, row);
    });
    connect(table_, &SongTable::menuRequested, this, &LibraryPlace::showMenu);
    connect(table_, &SongTable::reloaded, this, &LibraryPlace::update);
    connect(empty_, &EmptyPlace::tagChosen, this,
            [&controller](const QString& tag) { controller.search().beginSearchForTags({tag}); });
}

bool LibraryPlace::pressInRow(SongColumn button)
{
    const int row = table_->hasFocus() ? table_->selectedRow() : TableView::NoRow;
    if (row == TableView::NoRow)
        return false;
    table_->press(button, row);
    return true;
}

void LibraryPlace::focusSongs()
{
    if (table_->selectedRow() == TableView::NoRow && !controller_->dataManager().items().isEmpty())
        table_->selectRows({0});
    table_->setFocus();
}

void LibraryPlace::setConnected(bool connected)
{
    offline_->setVisible(!connected);
}

void LibraryPlace::showMenu(const QPoint& at)
{
    SongMenu menu(*table_, *controller_);
    menu.exec(at);
}

void LibraryPlace::update()
{
    if (!controller_)
        return;
    const RVDataManager& library = controller_->dataManager();
    // An artist or album that was chosen must be there to be left again.
    const IndexPath chosen = library.currentIndexPath();
    const bool isPart = library.sourceHasBrowser() && (chosen.artist > 0 || chosen.album > 0);
    if (!library.items().isEmpty() || isPart) {
        stack_->setCurrentWidget(panes_);
        return;
    }
    explainEmptiness();
    stack_->setCurrentWidget(empty_);
}

void LibraryPlace::explainEmptiness()
{
    const RVDataManager& library = controller_->dataManager();
    if (!library.browser().filterText().isEmpty()) {
        empty_->say(tr("No song here holds “%1”").arg(library.browser().filterText()),
                    tr("Press Escape to see all songs again. To find others on the web, try a tag:"));
        return;
    }
    if (library.currentSourceType() == SourceType::RecentSearches) {
        empty_->say(tr("No songs found"), tr("Try another spelling, a well-known artist, or a tag:"));
        return;
    }
    if (library.currentSourceType() == SourceType::Playlists) {
        empty_->say(
            tr("This playlist is empty"),
            tr("Drag songs from anywhere else onto its name at the left, or add them from their menu. "
               "To find some, try a tag:"));
        return;
    }
    switch (library.currentFilterType()) {
    case FilterType::Favorites:
        empty_->say(
            tr("No loved songs yet"),
            tr("Press the heart beside a song, and it is kept here and in Music. To find some, try a tag:"));
        break;
    case FilterType::Downloads:
        empty_->say(
            tr("No downloads yet"),
            tr("Press the arrow beside a song from the web, and it is kept on this computer and plays "
               "offline. To find some, try a tag:"));
        break;
    case FilterType::Imported:
        empty_->say(tr("No songs of your own yet"),
                    tr("Drop files or folders on this window, or press Ctrl+O. To find songs on the web, try "
                       "a tag:"));
        break;
    case FilterType::All:
        empty_->say(tr("Your library is empty"),
                    tr("Type an artist into the search field and press Return. Play what you find, and press "
                       "the heart beside a song to keep it here. Or try a tag:"));
    }
}

} // namespace zib
