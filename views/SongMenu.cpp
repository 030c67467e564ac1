// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SongMenu.h"

#include "controller/RVMainController.h"
#include "library/RVDataManager.h"
#include "library/SongCells.h"
#include "views/SongTable.h"

namespace zib {

SongMenu::SongMenu(SongTable& table, RVMainController& controller)
    : QMenu(&table)
{
    setAccessibleName(tr("Song"));
    const RVDataManager& library = controller.dataManager();
    const int row = table.currentIndex().row();
    const SongCells cells(library.browser());
    connect(addAction(tr("Play")), &QAction::triggered, &table, &SongTable::activated);
    const bool loved = cells.willDisplayCell(SongColumn::Love, row).heartActive;
    connect(addAction(loved ? tr("Love no more") : tr("Love")), &QAction::triggered, &table,
            [&table, row] { Q_EMIT table.loveToggled(row); });
    if (const auto button = cells.willDisplayCell(SongColumn::Download, row).download; button.enabled) {
        const bool stops = button.image == CellDecoration::ButtonImage::Stop;
        connect(addAction(stops ? tr("Stop downloading") : tr("Download")), &QAction::triggered, &table,
                [&table, row] { Q_EMIT table.downloadPressed(row); });
    }
    addPlaylists(table, controller);
    connect(addAction(tr("Edit")), &QAction::triggered, &table, &SongTable::editCurrent);
    connect(addAction(tr("Information…")), &QAction::triggered, &table,
            [&controller] { controller.editInformation(); });
    addSeparator();
    table.layout().addSorting(*addNamedMenu(tr("Sort by")));
    table.layout().addColumns(*addNamedMenu(tr("Columns")));
    const bool inPlaylist = library.currentSourceType() == SourceType::Playlists;
    if (!inPlaylist && library.currentSourceType() != SourceType::Library)
        return;
    addSeparator();
    connect(addAction(inPlaylist ? tr("Remove from playlist") : tr("Remove from library…")),
            &QAction::triggered, &table, &SongTable::deletePressed);
}

QMenu* SongMenu::addNamedMenu(const QString& name)
{
    QMenu* menu = addMenu(name);
    menu->setAccessibleName(name);
    return menu;
}

void SongMenu::addPlaylists(SongTable& table, RVMainController& controller)
{
    QMenu* playlists = addNamedMenu(tr("Add to playlist"));
    connect(playlists->addAction(tr("New playlist")), &QAction::triggered, &table,
            [&controller] { controller.addPlaylistFromSelectionAction(); });
    const QList<Record>& known = controller.dataManager().playlists();
    if (!known.isEmpty())
        playlists->addSeparator();
    for (int index = 0; index < known.size(); ++index) {
        QString name = known[index].string(keys::Name);
        connect(playlists->addAction(name.replace(QLatin1Char('&'), QLatin1String("&&"))),
                &QAction::triggered, &table,
                [&controller, index] { controller.addSelectionToPlaylist(index); });
    }
}

} // namespace zib
