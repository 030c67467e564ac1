// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: songs that a drop loses, doubles or puts one row off, and a player that goes on from the old place.
#include "library/SongReordering.h"
#include "records/PropertyValue.h"
#include "tests/library/BrowserFixture.h"

#include <QMimeData>

namespace zib {
namespace {

class SongReorderingTest : public BrowserFixture {
  protected:
    SongReorderingTest()
    {
        for (const char* id : {"a", "b", "c", "d", "e"})
            add(id, "A", "X");
        show();
    }
    void show() { showPlaylist({text("a"), text("b"), text("c"), text("d"), text("e")}); }
    bool drop(const QList<int>& rows, int row)
    {
        QMimeData pasteboard;
        SongReordering::writeRowsWithIndexes(rows, pasteboard);
        return reordering.acceptDrop(pasteboard, row);
    }
    [[nodiscard]] QString stored() const
    {
        return library.playlists()[0].strings(keys::Tracks).join(QLatin1Char(' '));
    }

    SongReordering reordering{library};
};

TEST_F(SongReorderingTest, RowsMoveAboveTheRowOfTheDrop)
{
    const struct {
        QList<int> rows;
        int row;
        const char* order;
        QList<int> selection;
    } cases[] = {
        {{0}, 2, "b a c d e", {1}},
        {{0}, 5, "b c d e a", {4}},
        {{4}, 0, "e a b c d", {0}},
        {{1, 3}, 3, "a c b d e", {2, 3}},
        {{4, 0, 2}, 2, "b a c e d", {1, 2, 3}},
        {{1}, 1, "a b c d e", {1}},
        {{0, 1, 2, 3, 4}, 3, "a b c d e", {0, 1, 2, 3, 4}},
    };
    for (const auto& test : cases) {
        show();
        EXPECT_TRUE(drop(test.rows, test.row));
        EXPECT_EQ(shown(), text(test.order));
        EXPECT_EQ(stored(), text(test.order));
        EXPECT_EQ(view.songs.selectedRows(), test.selection);
        for (int row = 0; row < library.items().size(); ++row)
            EXPECT_EQ(library.items()[row].integer(keys::Index), row);
    }
}

TEST_F(SongReorderingTest, RefusesWhatHasNoPlaceInAPlaylist)
{
    QMimeData songs;
    SongReordering::writeRowsWithIndexes({0}, songs);
    EXPECT_EQ(reordering.validateDrop(songs, 3), 3);
    EXPECT_EQ(reordering.validateDrop(songs, 6), std::nullopt);
    EXPECT_EQ(reordering.validateDrop(songs, -1), std::nullopt);
    QMimeData files;
    files.setText(text("0"));
    EXPECT_EQ(reordering.validateDrop(files, 3), std::nullopt);
    for (const char* hostile : {"", ",", "99", "-1", "x", "4294967296", "1;2"}) {
        QMimeData pasteboard;
        pasteboard.setData(SongReordering::tableViewDataType, hostile);
        EXPECT_FALSE(reordering.acceptDrop(pasteboard, 0)) << hostile;
    }
    for (const QList<SortDescriptor>& order :
         {QList<SortDescriptor>{{text("Name"), true}}, {{text("Index"), false}}}) {
        view.songs.setSortDescriptors(order);
        EXPECT_EQ(reordering.validateDrop(songs, 3), std::nullopt) << "not in the playlist's order";
    }
    view.songs.setSortDescriptors({{text("Index"), true}});
    library.setSource(SourceType::Library);
    EXPECT_EQ(reordering.validateDrop(songs, 3), std::nullopt);
    EXPECT_EQ(stored(), text("a b c d e"));
}

TEST_F(SongReorderingTest, TheSongThatPlaysIsFollowedAlsoWhereItStandsTwice)
{
    showPlaylist({text("a"), text("b"), text("a")});
    controller.play(library.items()[2], library);
    EXPECT_TRUE(drop({2}, 0));
    EXPECT_EQ(shown(), text("a a b"));
    EXPECT_EQ(controller.playing.integer(keys::Index), 0);
    EXPECT_TRUE(drop({1}, 0));
    EXPECT_EQ(controller.playing.integer(keys::Index), 1);
}

} // namespace
} // namespace zib
