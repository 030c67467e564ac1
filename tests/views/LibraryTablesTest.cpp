// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a model that breaks the toolkit's rules; a layout that is lost or mixed up; a drop that moves what
// it must not; an edit that reaches another song; a key that leads nowhere.
#include "tests/views/WindowFixture.h"

#include "library/SongReordering.h"
#include "views/BrowserTable.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>

namespace zib {
namespace {

class LibraryTablesTest : public WindowFixture {
  protected:
    BrowserTable& browser(const char* name) { return *widget<BrowserTable>(QString::fromLatin1(name)); }
    static QString text(const BrowserTable& table, int row)
    {
        return table.model()->index(row, 0).data().toString();
    }
    static void clickRow(QTableView& view, int row)
    {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                          view.visualRect(view.model()->index(row, 0)).center());
    }
    void clickHeader(SongColumn column)
    {
        QHeaderView* header = table().horizontalHeader();
        const int x = header->sectionViewportPosition(int(column)) + header->sectionSize(int(column)) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, {x, header->height() / 2});
    }
    QString names()
    {
        QStringList result;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            result.append(cell(row, SongColumn::Name).data().toString().section(QLatin1Char(' '), -1));
        return result.join(QLatin1Char(' '));
    }
    void showAsPlaylist(const QList<Record>& songs)
    {
        library->addPlaylistWithTitle(QStringLiteral("list"), songs, 0);
        controller->sources().populateOutlineContents();
        controller->showPlaylist(int(library->playlists().size()) - 1);
    }
    QList<Record> songsOfTwoArtists()
    {
        return {
            localSong(1, {{keys::Artist, QStringLiteral("Zoe")}, {keys::Album, QStringLiteral("One")}}),
            localSong(2, {{keys::Artist, QStringLiteral("Amy")}, {keys::Album, QStringLiteral("Two")}}),
            localSong(3, {{keys::Artist, QStringLiteral("Amy")}, {keys::Album, QStringLiteral("Three")}})};
    }
    /// Drops the rows on the upper half of that row, or below the last. Whether the table took them.
    bool drop(const QList<int>& rows, int above)
    {
        QMimeData songs;
        SongReordering::writeRowsWithIndexes(rows, songs);
        const QRect last = table().visualRect(cell(table().model()->rowCount() - 1, SongColumn::Name));
        const QPoint place = above < table().model()->rowCount()
                                 ? table().visualRect(cell(above, SongColumn::Name)).topLeft() + QPoint(5, 3)
                                 : last.bottomLeft() + QPoint(5, 10);
        QDragEnterEvent enter(place, Qt::MoveAction, &songs, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(table().viewport(), &enter);
        QDragMoveEvent move(place, Qt::MoveAction, &songs, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(table().viewport(), &move);
        if (!enter.isAccepted() || !move.isAccepted())
            return false;
        QDropEvent drop(place, Qt::MoveAction, &songs, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(table().viewport(), &drop);
        return drop.isAccepted();
    }
};

TEST_F(LibraryTablesTest, TheModelsKeepTheToolkitsRules)
{
    const auto fatal = QAbstractItemModelTester::FailureReportingMode::Fatal;
    const QAbstractItemModelTester songs(table().model(), fatal);
    const QAbstractItemModelTester artists(window->findChild<BrowserTable*>()->model(), fatal);
    showAsLibrary(songsOfTwoArtists());
    clickRow(browser("Artists"), 1);
    showAsSearch({webSong(4)});
    controller->showLibrary(FilterType::Favorites);
    controller->showLibrary(FilterType::All);
    EXPECT_EQ(table().model()->rowCount(), 3) << "the artist is gone with the songs, and chosen no more";
}

TEST_F(LibraryTablesTest, ArtistsAndAlbumsChooseTheSongsByMouseAndByKey)
{
    showAsLibrary(songsOfTwoArtists());
    BrowserTable& artists = browser("Artists");
    BrowserTable& albums = browser("Albums");
    EXPECT_EQ(text(artists, 0), QStringLiteral("All (2 Artists)"));
    EXPECT_EQ(artists.mapTo(window.get(), QPoint()).x() + 179, albums.mapTo(window.get(), QPoint()).x());
    clickRow(artists, 1);
    EXPECT_EQ(text(albums, 0), QStringLiteral("All (2 Albums)"));
    EXPECT_EQ(table().model()->rowCount(), 2);
    QTest::keyClick(&artists, Qt::Key_Right);
    EXPECT_EQ(QApplication::focusWidget(), &albums);
    QTest::keyClick(&albums, Qt::Key_Down);
    EXPECT_EQ(names(), QStringLiteral("3")) << "the album “Three”";
    QTest::keyClick(&albums, Qt::Key_Right);
    EXPECT_EQ(QApplication::focusWidget(), &table());
    EXPECT_EQ(table().selectedRows(), QList<int>{0});
    QTest::keyClick(&table(), Qt::Key_Left);
    EXPECT_EQ(QApplication::focusWidget(), &albums);
    QTest::keyClick(&albums, Qt::Key_Left);
    QTest::keyClick(&artists, Qt::Key_Home);
    EXPECT_EQ(table().model()->rowCount(), 3);
    QTest::keyClicks(&artists, QStringLiteral("z"));
    EXPECT_EQ(names(), QStringLiteral("1"));
    QTest::keyClick(&artists, Qt::Key_Space);
    EXPECT_TRUE(player->hasMedia()) << "the space key plays from every list";
    controller->showLibrary(FilterType::All);
    showAsSearch({webSong(4)});
    EXPECT_FALSE(artists.isVisible());
}

TEST_F(LibraryTablesTest, HeadersSortAndEachListKeepsItsOrderOverARestart)
{
    showAsPlaylist({localSong(2), localSong(3), localSong(1)});
    QHeaderView* header = table().horizontalHeader();
    EXPECT_EQ(header->sortIndicatorSection(), int(SongColumn::Index));
    clickHeader(SongColumn::Name);
    EXPECT_EQ(names(), QStringLiteral("1 2 3"));
    clickHeader(SongColumn::Name);
    EXPECT_EQ(names(), QStringLiteral("3 2 1"));
    clickHeader(SongColumn::Speaker);
    EXPECT_EQ(names(), QStringLiteral("3 2 1")) << "nothing to sort by";
    EXPECT_EQ(header->sortIndicatorSection(), int(SongColumn::Name));
    header->moveSection(header->visualIndex(int(SongColumn::Album)), 0);

    clock.advance(std::chrono::seconds(1)); // for another list
    showAsSearch({localSong(2), localSong(1)});
    EXPECT_EQ(names(), QStringLiteral("2 1"));
    EXPECT_EQ(header->visualIndex(int(SongColumn::Speaker)), 0);
    close();
    open();
    controller->showPlaylist(0);
    EXPECT_EQ(names(), QStringLiteral("3 2 1"));
    header = table().horizontalHeader();
    EXPECT_EQ(header->visualIndex(int(SongColumn::Album)), 0);
    EXPECT_EQ(header->sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(LibraryTablesTest, SongsAreDraggedWithinAPlaylistInItsOwnOrderOnly)
{
    showAsPlaylist({localSong(1), localSong(2), localSong(3), localSong(4)});
    EXPECT_TRUE(drop({0}, 4));
    EXPECT_EQ(names(), QStringLiteral("2 3 4 1"));
    EXPECT_EQ(table().selectedRows(), QList<int>{3});
    EXPECT_TRUE(drop({2, 3}, 0));
    EXPECT_EQ(names(), QStringLiteral("4 1 2 3"));
    clickHeader(SongColumn::Name);
    EXPECT_FALSE(drop({0}, 2)) << "it is shown by name";
    clock.advance(std::chrono::seconds(1));
    showAsSearch({localSong(1), localSong(2)});
    EXPECT_FALSE(drop({0}, 2));

    QMimeData files;
    files.setUrls({QUrl(QStringLiteral("file:///tmp/song.mp3"))});
    QSignalSpy given(window.get(), &MainWindow::filesGiven);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(table().viewport(), &enter);
    QDropEvent drop({5, 5}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(table().viewport(), &drop);
    EXPECT_TRUE(given.wait()) << "files are the window's";
}

TEST_F(LibraryTablesTest, ATextIsEditedInItsCellAlsoWhenItsRowMovesMeanwhile)
{
    showAsLibrary({localSong(1), localSong(2)});
    const auto editor = [this] { return table().findChild<QLineEdit*>(); };
    table().setFocus();
    table().selectRows({1});
    QTest::keyClick(&table(), Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    QTest::keyClicks(editor(), QStringLiteral("Dawn")); // over the old name, which is selected
    table().reloadData();
    clickHeader(SongColumn::Name);
    clickHeader(SongColumn::Name); // the song is in row 0 now
    QCoreApplication::processEvents();
    EXPECT_EQ(library->library().find(song(2, {}, {}).string(keys::Id)).string(keys::Name),
              QStringLiteral("Dawn"));
    EXPECT_EQ(library->library().find(song(1, {}, {}).string(keys::Id)).string(keys::Name),
              QStringLiteral("Song 1"));
}

TEST_F(LibraryTablesTest, TheKeyThatEndsAnEditPlaysNothing)
{
    showAsLibrary({localSong(1)});
    QSignalSpy played(&table(), &SongTable::activated);
    table().setFocus();
    table().selectRows({0});
    QTest::keyClick(&table(), Qt::Key_F2);
    QTest::keyClicks(table().findChild<QLineEdit*>(), QStringLiteral("Dawn"));
    QTest::keyClick(table().findChild<QLineEdit*>(), Qt::Key_Return);
    const QString id = song(1, {}, {}).string(keys::Id);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return library->library().find(id).string(keys::Name) == QStringLiteral("Dawn"); }));
    EXPECT_EQ(played.count(), 0);
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_EQ(played.count(), 1);
}

TEST_F(LibraryTablesTest, ADownloadIsStartedAndStoppedInItsRow)
{
    defaults.setValue(settings::SupressDialogDownload, true);
    showAsSearch({webSong(1), localSong(2)});
    EXPECT_TRUE(table().isColumnHidden(int(SongColumn::Progress)));
    click(1, SongColumn::Download);
    EXPECT_TRUE(urlLoader.exchanges.empty()) << "a song that is here already has no button";
    click(0, SongColumn::Download, true);
    ASSERT_EQ(urlLoader.exchanges.size(), 1U);
    EXPECT_EQ(playing(), 0) << "a button is not the song";
    EXPECT_FALSE(table().isColumnHidden(int(SongColumn::Progress)));
    EXPECT_EQ(decoration(0, SongColumn::Download).download.image, CellDecoration::ButtonImage::Stop);
}

} // namespace
} // namespace zib
